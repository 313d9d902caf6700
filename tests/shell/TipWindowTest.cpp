#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "shell/Settings.h"
#include "shell/Tips.h"

using namespace pw;
using namespace pw::test;

class TipWindowTest : public QObject {
    Q_OBJECT

    // Starts a program whose pw.ini turns tips on at the given tip, and
    // stops at the tip window.
    static bool StartAtTips(ProgramHarness& program, int currentTip, const std::string& tips)
    {
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                           "FIRST RUN:False\r\nSHOW TIPS:True\r\nCURRENT TIP:" + std::to_string(currentTip) + "\r\n");
        program.folder.Write("tips.txt", tips);
        if (!program.LoadSplash())
            return false;
        program.splash->StartMain();
        return program.tip != nullptr && !program.guard.Failed();
    }

private slots:
    void TipsFollowOnFromRunToRun_data()
    {
        QTest::addColumn<int>("saved");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("afterNext");
        QTest::newRow("first start") << 0 << "One." << "Two.";
        QTest::newRow("after the last") << 3 << "One." << "Two.";
        QTest::newRow("file shortened") << 9 << "One." << "Two.";
        QTest::newRow("middle") << 1 << "Two." << "Three.";
        QTest::newRow("wraps on next") << 2 << "Three." << "One.";
        QTest::newRow("below one") << -4 << "One." << "Two.";
    }

    void TipsFollowOnFromRunToRun()
    {
        QFETCH(int, saved);
        QFETCH(QString, shown);
        QFETCH(QString, afterNext);
        ProgramHarness program;
        QVERIFY(StartAtTips(program, saved, "One.\r\nTwo.\r\nThree.\r\n"));
        TipWindow& tip = *program.tip;
        QCOMPARE(tip.windowTitle(), QStringLiteral("Platewell's Tip of the Day"));
        QCOMPARE(tip.findChild<QLabel*>("Label1")->text(), QStringLiteral("Did you know..."));
        QCOMPARE(tip.findChild<QLabel*>("lblTipText")->text(), shown);
        QVERIFY(!program.main);  // the main window waits for the tip window
        tip.findChild<QPushButton*>("cmdNextTip")->click();
        QCOMPARE(tip.findChild<QLabel*>("lblTipText")->text(), afterNext);

        tip.findChild<QPushButton*>("cmdOK")->click();
        QVERIFY(program.main);
        program.main->close();
        Settings after;
        ReadSettingsText(program.folder.Read("pw.ini"), after);
        QCOMPARE(QString::number(after.currentTip), QString::number(program.session.settings.currentTip));
        QVERIFY(after.currentTip >= 1 && after.currentTip <= 3);
        QVERIFY(after.showTips);
    }

    void UncheckingTheBoxTurnsTipsOff()
    {
        ProgramHarness program;
        QVERIFY(StartAtTips(program, 0, "Only tip.\r\n"));
        auto* box = program.tip->findChild<QCheckBox*>("chkLoadTipsAtStartup");
        QVERIFY(box->isChecked());
        QCOMPARE(box->text(), QStringLiteral("&Show Tips at Startup"));
        box->click();
        QVERIFY(!program.session.settings.showTips);
        program.tip->close();  // the close box opens the main window too
        QVERIFY(program.main);
        QVERIFY(!program.main->findChild<QAction*>("mnuShowTip")->isChecked());
        program.main->close();
        Settings after;
        ReadSettingsText(program.folder.Read("pw.ini"), after);
        QVERIFY(!after.showTips);
    }

    void BadTipsFiles()
    {
        {
            ProgramHarness program;  // an empty file shows an empty tip
            QVERIFY(StartAtTips(program, 0, ""));
            QCOMPARE(program.tip->lblTipText->text(), QString());
            QCOMPARE(program.session.settings.currentTip, 1);
        }
        {
            ProgramHarness program;  // binary bytes are shown as text, never run
            QVERIFY(StartAtTips(program, 0, std::string("<b>\0\x01\xff</b>", 9)));
            QCOMPARE(program.tip->lblTipText->textFormat(), Qt::PlainText);
        }
        std::string tooMany;
        for (int i = 0; i < 101; ++i)
            tooMany += "Tip.\r\n";
        for (const bool missing : {true, false}) {
            ProgramHarness program;
            WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), "FIRST RUN:False\r\n");
            if (missing)
                std::filesystem::remove(program.folder.File("tips.txt"));
            else
                program.folder.Write("tips.txt", tooMany);
            QVERIFY(program.LoadSplash());
            program.splash->StartMain();
            QVERIFY(program.guard.Failed());
            QVERIFY(!program.main);
            QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
            QVERIFY(program.fakes.prompts.messages[0].text.startsWith(
                missing ? "Run-time error '53':" : "Run-time error '9':"));
            QVERIFY(!program.folder.Exists("default.pwp"));
        }
    }
};

QTEST_MAIN(TipWindowTest)
#include "TipWindowTest.moc"
