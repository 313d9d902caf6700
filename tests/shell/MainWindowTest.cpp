#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <csignal>
#include <filesystem>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "core/LineFile.h"
#include "fooddb/DataFile.h"
#include "foodlist/FoodListPage.h"
#include "shell/Settings.h"
#include "shell/Twips.h"

using namespace pw;
using namespace pw::test;

namespace {

int FileCount(const std::string& folder)
{
    int n = 0;
    for ([[maybe_unused]] auto& e : std::filesystem::directory_iterator(folder))
        ++n;
    return n;
}

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void MissingOrCorruptDataEndsWithTheMessageAndWritesNothing()
    {
        {
            ProgramHarness program;
            QVERIFY(!program.LoadSplash());
            QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
            const auto& m = program.fakes.prompts.messages[0];
            QCOMPARE(m.text, QStringLiteral("Files are corrupt. Please reinstall program"));
            QCOMPARE(m.title, QStringLiteral("Error"));
            QVERIFY(m.icon == MsgIcon::Critical);
            QCOMPARE(FileCount(program.folder.Path()), 0);
        }
        {
            ProgramHarness program;
            std::string bytes = DataFileBytes(SampleTable());
            auto lines = SplitLines(bytes);
            lines[2][0] = static_cast<char>(lines[2][0] ^ 1);
            const std::string corrupt = LinesToBytes(lines);
            WriteProgramFolder(program.folder.Path(), corrupt);
            QVERIFY(!program.LoadSplash());
            QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
            QCOMPARE(program.fakes.prompts.messages[0].text,
                     QStringLiteral("Database is corrupted.  Please re-install program."));
            QCOMPARE(program.fakes.prompts.messages[0].title, QStringLiteral("Error"));
            QVERIFY(!program.folder.Exists("pw.ini"));  // nothing written
            QCOMPARE(program.folder.Read("data.dat"), corrupt);
        }
        {
            // The data file's name is found whatever its case.
            ProgramHarness program;
            program.folder.Write("DATA.DAT", DataFileBytes(SampleTable()));
            program.folder.Write("pw.ini", QuietSettings());
            QVERIFY(program.LoadSplash());
            QCOMPARE(program.session.foodTable.Count(), 12);
        }
    }

    void SplashHandsOverOnceByTimerClickOrKey_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("timer") << "timer";
        QTest::newRow("key") << "key";
        QTest::newRow("click on the logo") << "logo";
        QTest::newRow("click on the window") << "window";
    }

    void SplashHandsOverOnceByTimerClickOrKey()
    {
        QFETCH(QString, way);
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        QVERIFY(program.LoadSplash());
        SplashWindow& splash = *program.splash;
        int requested = 0;
        connect(&splash, &SplashWindow::mainRequested, this, [&] { ++requested; });
        QCOMPARE(splash.timerSplash->interval(), 2000);
        splash.show();
        splash.timerSplash->start();
        if (way == "timer")
            QTRY_COMPARE_WITH_TIMEOUT(requested, 1, 5000);
        else if (way == "key")
            QTest::keyClick(&splash, Qt::Key_Space);
        else if (way == "logo")
            QTest::mouseClick(splash.imgLogo, Qt::LeftButton);
        else
            QTest::mouseClick(&splash, Qt::LeftButton, {}, QPoint(1, 1));
        QCOMPARE(requested, 1);
        QVERIFY(!splash.timerSplash->isActive());
        // Whatever comes next does not hand over again.
        QTest::keyClick(&splash, Qt::Key_Return);
        QTest::mouseClick(splash.imgLogo, Qt::LeftButton);
        QTest::qWait(50);
        QCOMPARE(requested, 1);
        QVERIFY(!program.session.settings.firstRun);  // FIRST RUN:False in the file
        QVERIFY(!program.session.tutorialPending);
    }

    void MainWindowShowsTheStartingState()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        QVERIFY(program.Start());
        MainWindow& w = *program.main;
        QVERIFY(program.fakes.prompts.messages.empty());  // no tutorial offer after the first run

        auto* tabs = w.findChild<QTabWidget*>("tabMain");
        QVERIFY(tabs);
        QCOMPARE(tabs->count(), 3);
        QVERIFY(tabs->isTabEnabled(0));
        QVERIFY(!tabs->isTabEnabled(1));
        QVERIFY(!tabs->isTabEnabled(2));

        auto* groups = w.findChild<QComboBox*>("comTier0");
        QStringList listed;
        for (int i = 0; i < groups->count(); ++i)
            listed << groups->itemText(i);
        QCOMPARE(listed, QStringList({"Bakery and Grains", "Beverages", "Dairy and Eggs", "Favorites", "Fruits",
                                      "Vegetables"}));
        QCOMPARE(program.session.tierMap.Get(2, 0), 3);  // Dairy and Eggs starts at record 3
        QCOMPARE(program.session.tierMap.Get(6, 0), 12);  // one past the last record

        auto* quantity = w.findChild<QComboBox*>("comQuantity");
        QCOMPARE(quantity->count(), 17);
        QCOMPARE(quantity->currentText(), QStringLiteral(" 1"));
        QCOMPARE(quantity->itemText(0), QStringLiteral("1/8"));
        QCOMPARE(quantity->itemText(16), QStringLiteral(" 8"));

        auto* grid = w.findChild<QTableWidget*>("gridMain");
        QCOMPARE(grid->columnCount(), 13);
        QCOMPARE(grid->horizontalHeaderItem(9)->text(), QStringLiteral("Cholest."));
        QCOMPARE(grid->columnWidth(4), TwipsToPx(4000, w.logicalDpiX()));

        const struct {
            const char* name;
            const char* caption;
        } items[] = {{"mnuExit", "E&xit"},
                     {"mnuDisclaimer", "Important &Disclaimer"},
                     {"mnuShowTip", "&Show \"Tip of the Day\" at startup"},
                     {"mnuRememberWindowSize", "Remember &Window Size"},
                     {"mnuRememberColumnWidth", "Remember &Column Widths"},
                     {"mnuQuickTutorial", "&Quick Tutorial"},
                     {"mnuHelpContents", "&Contents..."},
                     {"mnuHelpIndex", "&Index"},
                     {"mnuHelpOnHelp", "&How to use Help"},
                     {"mnuTechSupport", "&Technical Support"},
                     {"mnuPlatewellWeb", "Platewell's &Web Site"},
                     {"mnuAbout", "&About Platewell"}};
        for (const auto& item : items) {
            auto* action = w.findChild<QAction*>(item.name);
            QVERIFY2(action, item.name);
            QCOMPARE(action->text(), QString::fromLatin1(item.caption));
        }
        for (const char* name : {"mnuOpen", "mnuSave", "mnuClearList", "mnuList", "mnuAddCustomItem",
                                 "mnuSaveAsDish", "mnuCopyToFavorites", "mnuDeleteFromDatabase", "mnuViewByUnits",
                                 "mnuViewByDV"})
            QVERIFY2(w.findChild<QAction*>(name), name);
        QVERIFY(!w.findChild<QAction*>("mnuSave")->isEnabled());
        QVERIFY(w.findChild<QAction*>("mnuViewByUnits")->isChecked());
        QVERIFY(!w.findChild<QAction*>("mnuViewByDV")->isChecked());
        QVERIFY(!w.findChild<QMenu*>("mnuViewBy")->menuAction()->isEnabled());
        QVERIFY(!w.findChild<QAction*>("mnuShowTip")->isChecked());
    }

    void FirstRunOffersTheTutorialAndClearsTheFlag()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()));
        program.fakes.prompts.answers.push_back(MsgResult::Yes);
        QVERIFY(program.Start());
        QVERIFY(program.folder.Exists("pw.ini"));  // written at start-up when missing
        const auto& messages = program.fakes.prompts.messages;
        QCOMPARE(messages.size(), size_t(1));
        QCOMPARE(messages[0].text, QStringLiteral("Would you like to view the Quick Tutorial?\r\n\r\n"
                                                  "You can master this program in less than three minutes!"));
        QCOMPARE(messages[0].title, QStringLiteral("View Quick Tutorial?"));
        QVERIFY(messages[0].icon == MsgIcon::Question && messages[0].buttons == MsgButtons::YesNo);
        QCOMPARE(program.fakes.help.calls.size(), size_t(1));
        QCOMPARE(program.fakes.help.calls[0].file,
                 QString::fromStdString(program.folder.File("pw.hlp")));
        QCOMPARE(program.fakes.help.calls[0].command, 1);
        QCOMPARE(*program.fakes.help.calls[0].context, 1);

        program.main->close();
        Settings after;
        ReadSettingsText(program.folder.Read("pw.ini"), after);
        QVERIFY(!after.firstRun);

        // Answered No, the offer opens no help.
        ProgramHarness declined;
        WriteProgramFolder(declined.folder.Path(), DataFileBytes(SampleTable()));
        declined.fakes.prompts.answers.push_back(MsgResult::No);
        QVERIFY(declined.Start());
        QCOMPARE(declined.fakes.prompts.messages.size(), size_t(1));
        QVERIFY(declined.fakes.help.calls.empty());
    }

    void EgressWritesEachFileOnceInOrder_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("close box") << "close";
        QTest::newRow("Exit") << "exit";
    }

    void EgressWritesEachFileOnceInOrder()
    {
        QFETCH(QString, way);
        ProgramHarness program;
        const std::string data = DataFileBytes(SampleTable());
        WriteProgramFolder(program.folder.Path(), data, QuietSettings("CURRENT TIP:2\r\n"));
        QVERIFY(program.Start());
        FolderWatch watch(program.folder.Path());

        for (int twice = 0; twice < 2; ++twice) {
            if (way == "close")
                program.main->close();
            else
                program.main->findChild<QAction*>("mnuExit")->trigger();
        }
        const auto written = watch.Written();
        std::vector<std::string> expected = {"pw.ini", "data.dat"};
        if (program.folder.Exists("default.pwp"))
            expected.insert(expected.begin(), "default.pwp");
        QCOMPARE(written, expected);
        QVERIFY(program.main->EgressDone());
        QVERIFY(program.session.ended);

        QCOMPARE(program.folder.Read("data.dat"), data);
        const auto lines = SplitLines(program.folder.Read("pw.ini"));
        QCOMPARE(lines.size(), size_t(25));
        QCOMPARE(program.folder.Read("pw.ini"), WriteSettingsText(program.session.settings));
        QCOMPARE(QString::fromStdString(lines[5]), QStringLiteral("CURRENT TIP:2"));
        QCOMPARE(QString::fromStdString(lines[7]), QStringLiteral("WINDOW HEIGHT: 6000 "));
        QVERIFY(program.fakes.prompts.messages.empty());  // an empty list asks nothing
    }

    void WindowSizeFollowsTheSettings()
    {
        {
            // Remember off: always the default size, whatever the file holds.
            ProgramHarness program;
            WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                               QuietSettings("WINDOW WIDTH:9000\r\nWINDOW HEIGHT:8000\r\n"));
            QVERIFY(program.Start());
            MainWindow& w = *program.main;
            QCOMPARE(w.width(), TwipsToPx(7728, w.logicalDpiX()));
            QCOMPARE(w.height(), TwipsToPx(6000, w.logicalDpiY()));
        }
        {
            ProgramHarness program;
            WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                               QuietSettings("REMEMBER WINDOW SIZE:True\r\nWINDOW WIDTH:9000\r\nWINDOW HEIGHT:8000\r\n"));
            QVERIFY(program.Start());
            MainWindow& w = *program.main;
            QVERIFY(w.findChild<QAction*>("mnuRememberWindowSize")->isChecked());
            QCOMPARE(w.width(), TwipsToPx(9000, w.logicalDpiX()));
            QCOMPARE(w.height(), TwipsToPx(8000, w.logicalDpiY()));
            w.close();
            Settings after;
            ReadSettingsText(program.folder.Read("pw.ini"), after);
            QCOMPARE(after.windowWidth, 9000);  // no drift through pixels
            QCOMPARE(after.windowHeight, 8000);
        }
        {
            ProgramHarness program;
            WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                               QuietSettings("REMEMBER WINDOW SIZE:True\r\nWINDOW STATE:2\r\n"));
            QVERIFY(program.Start());
            QVERIFY(program.main->isMaximized());
        }
    }

    void ResizeKeepsTheMinimaAndTheGridRule()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        QVERIFY(program.Start());
        MainWindow& w = *program.main;
        const int dx = w.logicalDpiX();
        const int dy = w.logicalDpiY();

        w.resize(100, 100);
        QCoreApplication::processEvents();
        QCOMPARE(w.width(), TwipsToPx(7728, dx));
        QCOMPARE(w.height(), TwipsToPx(6000, dy));
        QCOMPARE(w.gridMain->width(), TwipsToPx(7512, dx));
        QCOMPARE(w.gridMain->height(), TwipsToPx(1800, dy));
        QCOMPARE(w.gridMain->x(), TwipsToPx(60, dx));
        QCOMPARE(w.gridMain->y(), TwipsToPx(3540, dy));

        w.resize(TwipsToPx(10000, dx), TwipsToPx(9000, dy));
        QCoreApplication::processEvents();
        QCOMPARE(w.gridMain->width(), TwipsToPx(PxToTwips(w.width(), dx) - 216, dx));
        QCOMPARE(w.gridMain->height(), TwipsToPx(PxToTwips(w.height(), dy) - 4200, dy));
        QCOMPARE(w.tabMain->x(), TwipsToPx(PxToTwips(w.width(), dx) / 2 - 3756, dx));
    }

    void OptionsTogglesAndDisclaimer()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                           QuietSettings("CURRENT TIP:7\r\nREMEMBER COLUMN WIDTH:True\r\nCOLUMN04:5000\r\n"));
        QVERIFY(program.Start());
        MainWindow& w = *program.main;
        Settings& s = program.session.settings;
        QCOMPARE(w.gridMain->columnWidth(4), TwipsToPx(5000, w.logicalDpiX()));

        w.findChild<QAction*>("mnuShowTip")->trigger();
        QVERIFY(s.showTips);
        QCOMPARE(s.currentTip, 0);
        w.findChild<QAction*>("mnuShowTip")->trigger();
        QVERIFY(!s.showTips);
        w.findChild<QAction*>("mnuRememberWindowSize")->trigger();
        QVERIFY(s.rememberWindowSize);
        w.findChild<QAction*>("mnuRememberColumnWidth")->trigger();
        QVERIFY(!s.rememberColumnWidths);

        w.findChild<QAction*>("mnuDisclaimer")->trigger();
        const auto& prompts = program.fakes.prompts;
        QCOMPARE(prompts.events, std::vector<QString>({"beep", "message:Important Disclaimer"}));
        QCOMPARE(prompts.messages.back().text,
                 QStringLiteral("Although the nutrition database is believed to be accurate,\r\n"
                                "this program is provided AS IS, and there is no warranty\r\n"
                                "for the accuracy of the nutritional database or for the\r\n"
                                "interpretation of data or analysis.\r\n\r\n"
                                "Data analysis is intended for healthy adults only.\r\n"
                                "However, this program is not intended to replace the\r\n"
                                "services of a qualified health care provider, dietician,\r\n"
                                "nutritionist, or physician."));
        QVERIFY(prompts.messages.back().icon == MsgIcon::Critical);

        w.findChild<QAction*>("mnuHelpOnHelp")->trigger();
        w.findChild<QAction*>("mnuHelpIndex")->trigger();
        QCOMPARE(program.fakes.help.calls.size(), size_t(2));
        QVERIFY(!program.fakes.help.calls[0].context.has_value());
        QCOMPARE(program.fakes.help.calls[0].command, 4);
        QCOMPARE(program.fakes.help.calls[1].command, 15);

        w.close();
        Settings after;
        ReadSettingsText(program.folder.Read("pw.ini"), after);
        QCOMPARE(after.columnWidths[4], 4000);  // widths not remembered any more
        QVERIFY(after.rememberWindowSize);
    }

    void AboutBoxAndWebPage()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        QVERIFY(program.Start());
        MainWindow& w = *program.main;
        w.findChild<QAction*>("mnuAbout")->trigger();
        auto* about = w.findChild<QDialog*>("frmAbout");
        QVERIFY(about && about->isVisible() && about->isModal());
        QCOMPARE(about->findChild<QLabel*>("labDataVersion")->text(), QStringLiteral("Data version: 1.37 Test data"));
        about->findChild<QPushButton*>("cmdOK")->click();
        QVERIFY(!about->isVisible());

        w.findChild<QAction*>("mnuPlatewellWeb")->trigger();
        QCOMPARE(program.fakes.help.pages.size(), size_t(1));
        QVERIFY(program.fakes.prompts.messages.empty());
        program.fakes.help.webPageOpens = false;
        w.findChild<QAction*>("mnuPlatewellWeb")->trigger();
        QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
        QCOMPARE(program.fakes.prompts.messages[0].text,
                 "Unable to open your web browser.\r\nIf you are able to do so manually, please visit our site at:\r\n" +
                     program.fakes.help.pages[0]);
    }

    void RunTimeErrorEndsWithOneMessageAndNoWrites()
    {
        ProgramHarness program;
        FoodTable table = SampleTable();
        std::string bytes = DataFileBytes(table);
        auto lines = SplitLines(bytes);
        lines[5] = "no tabs here";  // the header still checks out
        WriteProgramFolder(program.folder.Path(), LinesToBytes(lines), QuietSettings());
        FolderWatch watch(program.folder.Path());
        QVERIFY(!program.Start());
        QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
        QVERIFY(program.fakes.prompts.messages[0].text.startsWith("Run-time error '5':\r\n\r\n"
                                                                  "Invalid procedure call or argument"));
        QVERIFY(program.fakes.prompts.messages[0].icon == MsgIcon::Critical);
        if (program.main)
            program.main->close();
        QVERIFY(watch.Written().empty());
    }

    void RunTimeErrorInATabsHandlerEndsTheProgram()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        QVERIFY(program.Start());
        FolderWatch watch(program.folder.Path());
        MainWindow& w = *program.main;
        QTest::keyClicks(w.findChild<QLineEdit*>("txtYOB"), "62");
        QTest::keyClicks(w.findChild<QLineEdit*>("txtHeight"), "64");
        // A weight beyond the range of a single-precision number.
        QTest::keyClicks(w.findChild<QLineEdit*>("txtWeight"), "1" + QString(39, '0'));
        QVERIFY(program.guard.Failed());
        QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
        QVERIFY(program.fakes.prompts.messages[0].text.startsWith("Run-time error '6':\r\n\r\nOverflow"));
        w.close();
        QVERIFY(watch.Written().empty());
    }

    void TheProgramEndsThroughEgressOnSigterm()
    {
        // The real executable, copied into a program folder of its own.
        TempFolder folder;
        const std::string exe = folder.File("platewell");
        std::filesystem::copy_file(PLATEWELL_EXE, exe);
        const std::string data = DataFileBytes(SampleTable());
        WriteProgramFolder(folder.Path(), data, QuietSettings());

        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(env);
        process.start(QString::fromStdString(exe), {});
        QVERIFY(process.waitForStarted(10000));
        // The splash hands over after two seconds; give the main window time
        // to load before asking the program to end.
        QTest::qWait(4000);
        QCOMPARE(process.state(), QProcess::Running);
        ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);

        QCOMPARE(folder.Read("data.dat"), data);
        const auto lines = SplitLines(folder.Read("pw.ini"));
        QCOMPARE(lines.size(), size_t(25));
        QCOMPARE(QString::fromStdString(lines[3]), QStringLiteral("FIRST RUN:False"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
