// The shell's windows on a whole program: the splash, the main window and
// its menus, the tips, help and about windows, and the way out.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QMenu>
#include <QProcess>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "core/LineFile.h"
#include "fooddb/DataFile.h"
#include "foodlist/FoodListPage.h"
#include "shell/AboutBox.h"
#include "shell/HelpTopics.h"
#include "shell/HelpWindow.h"
#include "shell/Settings.h"
#include "shell/Twips.h"

using namespace pw;
using namespace pw::test;

namespace {

// Writes the program folder on the sample table with pw.ini text settings
// (none when empty) and starts the program.
bool Started(ProgramHarness& program, const std::string& settings = QuietSettings())
{
    WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), settings);
    return program.Start();
}

// The settings the program has written.
Settings Written(const ProgramHarness& program)
{
    Settings s;
    ReadSettingsText(program.folder.Read("pw.ini"), s);
    return s;
}

// A message as one text, to compare all it shows at once.
QString Shown(const RecordedMessage& m)
{
    return m.title + '|' + QString::number(int(m.icon)) + '|' + QString::number(int(m.buttons)) + '|' + m.text;
}

// Starts a program whose pw.ini turns tips on at the given tip, and stops at
// the tip window.
bool StartAtTips(ProgramHarness& program, int currentTip, const std::string& tips)
{
    WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                       "FIRST RUN:False\r\nSHOW TIPS:True\r\nCURRENT TIP:" + std::to_string(currentTip) + "\r\n");
    program.folder.Write("tips.txt", tips);
    if (!program.LoadSplash())
        return false;
    program.splash->StartMain();
    return program.tip != nullptr && !program.guard.Failed();
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
            QCOMPARE(Shown(program.fakes.prompts.messages[0]),
                     Shown({"Files are corrupt. Please reinstall program", "Error", MsgIcon::Critical,
                            MsgButtons::Ok}));
            QVERIFY(std::filesystem::is_empty(program.folder.Path()));
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
            QCOMPARE(Shown(program.fakes.prompts.messages[0]),
                     Shown({"Database is corrupted.  Please re-install program.", "Error", MsgIcon::Critical,
                            MsgButtons::Ok}));
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

    void SplashHandsOverOnceByTimerClickOrKey()
    {
        for (const QString way : {"timer", "key", "logo", "window"}) {
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
    }

    void MainWindowShowsTheStartingState()
    {
        ProgramHarness program;
        QVERIFY(Started(program));
        MainWindow& w = *program.main;
        QVERIFY(program.fakes.prompts.messages.empty());  // no tutorial offer after the first run

        auto* tabs = w.findChild<QTabWidget*>("tabMain");
        QVERIFY(tabs && tabs->count() == 3);
        QVERIFY(tabs->isTabEnabled(0) && !tabs->isTabEnabled(1) && !tabs->isTabEnabled(2));

        auto* groups = w.findChild<QComboBox*>("comTier0");
        QStringList listed;
        for (int i = 0; i < groups->count(); ++i)
            listed << groups->itemText(i);
        QCOMPARE(listed, QStringList({"Bakery and Grains", "Beverages", "Dairy and Eggs", "Favorites", "Fruits",
                                      "Vegetables"}));

        auto* quantity = w.findChild<QComboBox*>("comQuantity");
        QCOMPARE(quantity->count(), 17);
        QCOMPARE(quantity->currentText(), QStringLiteral(" 1"));
        QCOMPARE(quantity->itemText(0), QStringLiteral("1/8"));
        QCOMPARE(quantity->itemText(16), QStringLiteral(" 8"));

        auto* grid = w.findChild<QTableWidget*>("gridMain");
        QCOMPARE(grid->columnCount(), 13);
        QCOMPARE(grid->horizontalHeaderItem(9)->text(), QStringLiteral("Cholest."));
        QCOMPARE(grid->columnWidth(4), TwipsToPx(4000, w.logicalDpiX()));

        const char* const items[][2] = {
            {"mnuExit", "E&xit"}, {"mnuDisclaimer", "Important &Disclaimer"},
            {"mnuShowTip", "&Show \"Tip of the Day\" at startup"}, {"mnuRememberWindowSize", "Remember &Window Size"},
            {"mnuRememberColumnWidth", "Remember &Column Widths"}, {"mnuQuickTutorial", "&Quick Tutorial"},
            {"mnuHelpContents", "&Contents..."}, {"mnuHelpIndex", "&Index"}, {"mnuHelpOnHelp", "&How to use Help"},
            {"mnuTechSupport", "&Technical Support"}, {"mnuPlatewellWeb", "Platewell's &Web Site"},
            {"mnuAbout", "&About Platewell"}};
        for (const auto& [name, caption] : items) {
            auto* action = w.findChild<QAction*>(name);
            QVERIFY2(action, name);
            QCOMPARE(action->text(), QString::fromLatin1(caption));
        }
        QVERIFY(!w.findChild<QAction*>("mnuSave")->isEnabled());
        QVERIFY(w.findChild<QAction*>("mnuViewByUnits")->isChecked());
        QVERIFY(!w.findChild<QAction*>("mnuViewByDV")->isChecked());
        QVERIFY(!w.findChild<QMenu*>("mnuViewBy")->menuAction()->isEnabled());
        QVERIFY(!w.findChild<QAction*>("mnuShowTip")->isChecked());
    }

    void FirstRunOffersTheTutorialAndClearsTheFlag()
    {
        ProgramHarness program;
        program.fakes.prompts.answers.push_back(MsgResult::Yes);
        QVERIFY(Started(program, {}));
        QVERIFY(program.folder.Exists("pw.ini"));  // written at start-up when missing
        const auto& messages = program.fakes.prompts.messages;
        QCOMPARE(messages.size(), size_t(1));
        QCOMPARE(Shown(messages[0]), Shown({"Would you like to view the Quick Tutorial?\r\n\r\n"
                                            "You can master this program in less than three minutes!",
                                            "View Quick Tutorial?", MsgIcon::Question, MsgButtons::YesNo}));
        QCOMPARE(program.fakes.help.calls.size(), size_t(1));
        QCOMPARE(program.fakes.help.calls[0].file, QString::fromStdString(program.folder.File("pw.hlp")));
        QVERIFY(program.fakes.help.calls[0].command == 1 && program.fakes.help.calls[0].context == 1);
        program.main->close();
        QVERIFY(!Written(program).firstRun);

        // Answered No, the offer opens no help.
        ProgramHarness declined;
        declined.fakes.prompts.answers.push_back(MsgResult::No);
        QVERIFY(Started(declined, {}));
        QCOMPARE(declined.fakes.prompts.messages.size(), size_t(1));
        QVERIFY(declined.fakes.help.calls.empty());
    }

    void EgressWritesEachFileOnceInOrder()
    {
        for (const bool byExit : {false, true}) {  // the close box, or File > Exit
            ProgramHarness program;
            QVERIFY(Started(program, QuietSettings("CURRENT TIP:2\r\n")));
            FolderWatch watch(program.folder.Path());
            for (int twice = 0; twice < 2; ++twice) {
                if (byExit)
                    program.main->findChild<QAction*>("mnuExit")->trigger();
                else
                    program.main->close();
            }
            std::vector<std::string> expected = {"pw.ini", "data.dat"};
            if (program.folder.Exists("default.pwp"))
                expected.insert(expected.begin(), "default.pwp");
            QCOMPARE(watch.Written(), expected);
            QVERIFY(program.main->EgressDone());
            QVERIFY(program.session.ended);

            QCOMPARE(program.folder.Read("data.dat"), DataFileBytes(SampleTable()));
            QCOMPARE(program.folder.Read("pw.ini"), WriteSettingsText(program.session.settings));
            QCOMPARE(program.session.settings.currentTip, 2);
            QVERIFY(program.fakes.prompts.messages.empty());  // an empty list asks nothing
        }
    }

    void AFileThatCannotBeWrittenAtExitIsToldAndTheRestIsSaved()
    {
        ProgramHarness program;
        QVERIFY(Started(program, QuietSettings("CURRENT TIP:2\r\n")));
        // data.dat has become a folder: its save fails with the system's reason.
        std::filesystem::remove(program.folder.File("data.dat"));
        std::filesystem::create_directory(program.folder.File("data.dat"));
        program.fakes.prompts.answers = {MsgResult::Retry, MsgResult::Cancel};
        program.main->close();
        const auto& said = program.fakes.prompts.messages;
        QCOMPARE(said.size(), size_t(2));  // tried twice, then left without it
        for (const RecordedMessage& m : said) {
            QCOMPARE(m.text, "Platewell could not save the file\r\n" + QString::fromStdString(program.folder.File("data.dat")) +
                                 "\r\n\r\nThe system says: Is a directory.\r\n\r\nFree some disk space or correct "
                                 "the folder's permissions, then choose Retry. Cancel goes on without saving this file; "
                                 "its previous version is kept.");
            QVERIFY(m.buttons == MsgButtons::RetryCancel && m.icon == MsgIcon::Exclamation);
        }
        QVERIFY(program.main->EgressDone() && program.session.ended && !program.guard.Failed());
        QCOMPARE(Written(program).currentTip, 2);  // pw.ini was still saved
    }

    void WindowSizeFollowsTheSettings()
    {
        ProgramHarness program;
        QVERIFY(Started(program,
                        QuietSettings("REMEMBER WINDOW SIZE:True\r\nWINDOW WIDTH:9000\r\nWINDOW HEIGHT:8000\r\n")));
        MainWindow& w = *program.main;
        QVERIFY(w.findChild<QAction*>("mnuRememberWindowSize")->isChecked());
        QCOMPARE(w.width(), TwipsToPx(9000, w.logicalDpiX()));
        QCOMPARE(w.height(), TwipsToPx(8000, w.logicalDpiY()));
        w.close();
        QCOMPARE(Written(program).windowWidth, 9000);  // no drift through pixels
        QCOMPARE(Written(program).windowHeight, 8000);

        // A size beyond the screen opens at most at the screen's size.
        ProgramHarness huge;
        QVERIFY(Started(huge, QuietSettings("REMEMBER WINDOW SIZE:True\r\nWINDOW WIDTH:2000000000\r\n"
                                            "WINDOW HEIGHT:2000000000\r\n")));
        const QSize screen = huge.main->screen()->availableGeometry().size();
        QVERIFY(huge.main->width() <= screen.width() && huge.main->height() <= screen.height());

        ProgramHarness maximized;
        QVERIFY(Started(maximized, QuietSettings("REMEMBER WINDOW SIZE:True\r\nWINDOW STATE:2\r\n")));
        QVERIFY(maximized.main->isMaximized());
    }

    void ResizeKeepsTheMinimaAndTheGridRule()
    {
        ProgramHarness program;
        QVERIFY(Started(program));
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
        QVERIFY(Started(program, QuietSettings("CURRENT TIP:7\r\nREMEMBER COLUMN WIDTH:True\r\nCOLUMN04:5000\r\n")));
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
        QCOMPARE(Shown(prompts.messages.back()),
                 Shown({"Although the nutrition database is believed to be accurate,\r\n"
                        "this program is provided AS IS, and there is no warranty\r\n"
                        "for the accuracy of the nutritional database or for the\r\n"
                        "interpretation of data or analysis.\r\n\r\n"
                        "Data analysis is intended for healthy adults only.\r\n"
                        "However, this program is not intended to replace the\r\n"
                        "services of a qualified health care provider, dietician,\r\n"
                        "nutritionist, or physician.",
                        "Important Disclaimer", MsgIcon::Critical, MsgButtons::Ok}));

        w.findChild<QAction*>("mnuHelpOnHelp")->trigger();
        w.findChild<QAction*>("mnuHelpIndex")->trigger();
        QCOMPARE(program.fakes.help.calls.size(), size_t(2));
        QVERIFY(!program.fakes.help.calls[0].context.has_value());
        QCOMPARE(program.fakes.help.calls[0].command, 4);
        QCOMPARE(program.fakes.help.calls[1].command, 15);

        w.close();
        QCOMPARE(Written(program).columnWidths[4], 4000);  // widths not remembered any more
        QVERIFY(Written(program).rememberWindowSize);
    }

    void AboutBoxAndWebPage()
    {
        ProgramHarness program;
        QVERIFY(Started(program));
        MainWindow& w = *program.main;
        w.findChild<QAction*>("mnuAbout")->trigger();
        auto* about = w.findChild<AboutBox*>("frmAbout");
        QVERIFY(about && about->isVisible() && about->isModal());
        QCOMPARE(about->windowTitle(), QStringLiteral("About Platewell"));
        QCOMPARE((QStringList{about->labTitle->text(), about->labVersion->text(), about->labDataVersion->text(),
                              about->labHelpVersion->text(), about->Label1->text()}),
                 (QStringList{"Platewell", "Program version: 2.04W", "Data version: 1.37 Test data",
                              "Help file version: 2.02", "All Rights Reserved"}));
        about->cmdOK->click();
        QVERIFY(!about->isVisible() && about->result() == QDialog::Accepted);

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
        auto lines = SplitLines(DataFileBytes(SampleTable()));
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
        QVERIFY(Started(program));
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

    void TipsFollowOnFromRunToRun()
    {
        // The tip saved, the tip shown and the one after Next.
        const std::tuple<int, QString, QString> cases[] = {
            {0, "One.", "Two."},    // first start
            {3, "One.", "Two."},    // after the last
            {9, "One.", "Two."},    // the file shortened
            {1, "Two.", "Three."},  // the middle
            {2, "Three.", "One."},  // wraps on Next
            {-4, "One.", "Two."},   // below one
        };
        for (const auto& [saved, shown, afterNext] : cases) {
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
            const Settings after = Written(program);
            QCOMPARE(after.currentTip, program.session.settings.currentTip);
            QVERIFY(after.currentTip >= 1 && after.currentTip <= 3 && after.showTips);
        }
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
        QVERIFY(!Written(program).showTips);
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

    void TheDeliveredHelpFileHasEveryTopicTheProgramOpens()
    {
        const std::string file = ReadWholeFile(PLATEWELL_SOURCE_DIR "/data/pw.hlp");
        std::vector<int> contexts;
        for (const HelpTopic& topic : HelpTopics(file)) {
            contexts.push_back(topic.context);
            QVERIFY2(!topic.title.empty(), std::to_string(topic.context).c_str());
        }
        // The main window's menus and tab buttons, the chooser, the search,
        // add, dish and copy windows open these.
        for (int wanted : {0, 1, 2, 3, 4, 5, 6, 7, 9, 10})
            QVERIFY2(std::find(contexts.begin(), contexts.end(), wanted) != contexts.end(),
                     std::to_string(wanted).c_str());
        QCOMPARE(std::set<int>(contexts.begin(), contexts.end()).size(), contexts.size());  // no topic twice
    }

    void TopicsAreFoundByTheirAnchors()
    {
        const struct {
            const char* file;
            std::vector<std::pair<int, std::string>> topics;
        } cases[] = {
            {"", {}},
            {"<h2><a name=\"context-3\"></a> Three </h2>", {{3, "Three"}}},
            {"<a name=\"context-1\"></a>One<a name=\"context-12\"></a>Twelve<", {{1, "One"}, {12, "Twelve"}}},
            {"<a name=\"context-\"></a>No number<a name=\"context-x\"></a>", {}},
            {"<a name=\"context-1234567\"></a>Too long", {}},
            {"<a name=\"context-5\">unclosed", {}},
            {"<a name=\"context-5\"></a>no end tag", {{5, "no end tag"}}},
        };
        for (const auto& c : cases) {
            std::vector<std::pair<int, std::string>> got;
            for (const HelpTopic& t : HelpTopics(c.file))
                got.emplace_back(t.context, t.title);
            QCOMPARE(got, c.topics);
        }
        std::mt19937 random(3);
        for (int round = 0; round < 500; ++round) {  // any bytes: topics or none, never a crash
            std::string bytes;
            for (int i = 0; i < 300; ++i)
                bytes += random() % 8 == 0 ? std::string("<a name=\"context-") : std::string(1, char(random() % 256));
            HelpTopics(bytes);
        }
    }

    void DataVersionTextFollowsTheFirstV()
    {
        QCOMPARE(DataVersionText("v21.111 USDA"), std::string("21.111 USDA"));
        QCOMPARE(DataVersionText("Release 1.5, version 2"), std::string("ersion 2"));
        QCOMPARE(DataVersionText("2.7 plain"), std::string("2.7 plain"));
        QCOMPARE(DataVersionText(""), std::string());
    }

    void HelpWindowShowsTopicsAnIndexAndHowToUseHelp()
    {
        HelpWindow window;
        QVERIFY(!window.LoadFile(QStringLiteral("/nonexistent/pw.hlp")));
        QVERIFY(window.LoadFile(QStringLiteral(PLATEWELL_SOURCE_DIR "/data/pw.hlp")));
        window.resize(400, 200);
        window.show();
        window.ShowTopic(0);
        const int contents = window.browser->verticalScrollBar()->value();
        window.ShowTopic(10);  // the last topic: far below the contents
        QVERIFY(window.browser->verticalScrollBar()->value() > contents + 100);
        window.ShowTopic(8);  // no such topic: the start
        QCOMPARE(window.browser->verticalScrollBar()->value(), 0);
        QVERIFY(window.browser->toPlainText().contains("Platewell Help"));

        window.ShowIndex();
        const QString index = window.browser->toHtml();
        QVERIFY(index.contains("Quick Tutorial"));
        QVERIFY(index.contains("#context-10"));
        window.ShowHelpOnHelp();
        QVERIFY(window.browser->toPlainText().contains("How to use Help"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
