// The shell's windows on a whole program: the splash, the main window and
// its menus, the tips, help and about windows, and the way out.
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QMenu>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QApplication>
#include <QMenuBar>
#include <QStandardPaths>
#include <iterator>
#include <sstream>
#include <filesystem>
#include <set>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "core/LineFile.h"
#include "fooddb/DataFile.h"
#include "foodlist/views/FoodChooserPage.h"
#include "days/views/DaysWindow.h"
#include "shell/views/AboutBox.h"
#include "shell/views/DesktopIntegration.h"
#include "shell/HelpTopics.h"
#include "shell/views/HelpWindow.h"
#include "shell/Settings.h"
#include "shell/StartupTexts.h"
#include "core/views/Twips.h"

using namespace pw;
using namespace pw::test;

namespace {

QTableView* Grid(const QWidget& w) { return Find<QTableView>(w, QStringLiteral("gridMain")); }
QTabWidget* Tabs(const QWidget& w) { return Find<QTabWidget>(w, QStringLiteral("tabMain")); }

// The sample table's program folder with pw.ini text settings (none when
// empty), started without a default profile.
void StartOnSample(ProgramHarness& program, const std::string& settings = QuietSettings())
{
    program.StartOn(DataFileBytes(SampleTable()), {}, settings);
}

// The settings the program has written.
Settings Written(const ProgramHarness& program)
{
    Settings s;
    ReadSettingsText(program.folder.Read("pw.ini"), s);
    return s;
}

// A valid profile, and a day's list on the sample table with that profile.
const std::string kBob =
    "NAME:Bob\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:70\r\nWEIGHT:160\r\nSEX: 1 \r\nLIFESTYLE: 0 \r\n";
const std::string kBobsDay = kBob + "ITEM: 5 \t2\tDairy and Eggs\tCheese\tCheddar\t1 oz\r\n";

// Starts a program whose pw.ini turns tips on, its tips.txt holding tips, and stops at
// the tip window.
bool StartAtTips(ProgramHarness& program, const std::string& tips)
{
    WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()),
                       "FIRST RUN:False\r\nSHOW TIPS:True\r\nCURRENT TIP:0\r\n");
    program.folder.Write("tips.txt", tips);
    if (!program.LoadSplash())
        return false;
    program.splash->StartMain();
    return program.tip != nullptr && !program.main && !program.guard.Failed();  // the main window waits
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
            QCOMPARE(Shown(program.fakes.prompts.messages), QStringList{"Error|4|0|" + QString(texts::kFilesCorrupt)});
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
            QCOMPARE(Shown(program.fakes.prompts.messages),
                     QStringList{"Error|4|0|" + QString(texts::kDatabaseCorrupted)});
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
            QTest::keyClick(program.splash.get(), Qt::Key_Space);  // a key hands over without the timer
            QVERIFY(program.main && !program.guard.Failed());
        }
    }

    void MainWindowShowsTheStartingStateAndKeepsItsMinima()
    {
        ProgramHarness program;
        StartOnSample(program);
        MainWindow& w = *program.main;
        QVERIFY(program.fakes.prompts.messages.empty());  // no tutorial offer after the first run

        auto* tabs = w.findChild<QTabWidget*>("tabMain");
        QVERIFY(tabs && tabs->count() == 3);
        QVERIFY(tabs->isTabEnabled(0) && !tabs->isTabEnabled(1) && !tabs->isTabEnabled(2));

        auto* grid = Grid(w);
        QCOMPARE(grid->model()->columnCount(), 13);
        QCOMPARE(grid->columnWidth(4), TwipsToPx(4000, w.logicalDpiX()));

        QVERIFY(w.findChild<QAction*>("mnuViewByUnits")->isChecked() && !w.findChild<QAction*>("mnuViewByDV")->isChecked());
        QVERIFY(!w.findChild<QMenu*>("mnuViewBy")->menuAction()->isEnabled());
        QVERIFY(!w.findChild<QAction*>("mnuShowTip")->isChecked());

        // The minimum size, and the grid following the window.
        const int dx = w.logicalDpiX();
        const int dy = w.logicalDpiY();

        w.resize(100, 100);
        QCoreApplication::processEvents();
        QCOMPARE(w.size(), QSize(TwipsToPx(7728, dx), TwipsToPx(6000, dy)));
        QCOMPARE(Grid(w)->geometry(),
                 QRect(TwipsToPx(60, dx), TwipsToPx(3540, dy), TwipsToPx(7512, dx), TwipsToPx(1800, dy)));
    }

    // File > Analyse Days opens the days window beside the main window; its
    // reports reach the same printer and preview as the day's.
    void AnalyseDaysOpensTheDaysWindowWithTheDaysReports()
    {
        QStandardPaths::setTestModeEnabled(true);  // its last folder stays out of the user's settings
        ProgramHarness program;
        StartOnSample(program);
        MainWindow& w = *program.main;
        auto* analyse = Find<QAction>(w, QStringLiteral("mnuAnalyseDays"));
        analyse->trigger();
        auto* days = w.findChild<QDialog*>("frmDays");
        QVERIFY(days && days->isVisible() && !days->isModal());

        program.folder.Write("2026-11-01.pwl", kAnnProfile + std::string("ITEM: 0 \t1\tBakery and Grains\tBread\tWhite\t1 slice\r\n"));
        static_cast<DaysWindow*>(days)->AddPaths({QString::fromStdString(program.folder.File("2026-11-01.pwl"))});
        days->findChild<QPushButton*>("btnDaysPrint")->click();
        days->findChild<QPushButton*>("btnDaysPreview")->click();
        QCOMPARE(program.fakes.printer.printed.size(), std::size_t(1));
        QCOMPARE(program.fakes.printer.printed[0].title, std::string("Platewell - Period Report"));
        QCOMPARE(program.fakes.printer.previewed.size(), std::size_t(1));
        analyse->trigger();  // the same window again
        QCOMPARE(w.findChildren<QDialog*>("frmDays").size(), 1);
        QCOMPARE(ClippedTexts(*days), QStringList());
        // Its Help button and F1 while it is in front open its own topic.
        days->findChild<QPushButton*>("btnDaysHelp")->click();
        QApplication::setActiveWindow(days);
        QTest::keyClick(days, Qt::Key_F1);
        QCOMPARE(program.fakes.help.calls.size(), size_t(2));
        for (const HelpCall& call : program.fakes.help.calls)
            QVERIFY(call.command == kHelpContext && call.context == kTopicDays);
        days->close();
    }

    void FirstRunOffersTheTutorialAndClearsTheFlag()
    {
        ProgramHarness program;
        program.fakes.prompts.answers.push_back(MsgResult::Yes);
        StartOnSample(program, {});
        QVERIFY(program.folder.Exists("pw.ini"));  // written at start-up when missing
        const QStringList asked = Shown(program.fakes.prompts.messages);
        QVERIFY(asked.size() == 1 && asked[0].startsWith("View Quick Tutorial?|2|1|Would you like to view"));
        QCOMPARE(program.fakes.help.calls.size(), size_t(1));
        QCOMPARE(program.fakes.help.calls[0].file, QString::fromStdString(program.folder.File("pw.hlp")));
        QVERIFY(program.fakes.help.calls[0].command == 1 && program.fakes.help.calls[0].context == 1);
        program.main->close();
        QVERIFY(!Written(program).firstRun);

        ProgramHarness declined;  // answered No, the offer opens no help
        declined.fakes.prompts.answers.push_back(MsgResult::No);
        StartOnSample(declined, {});
        QVERIFY(declined.fakes.prompts.messages.size() == 1 && declined.fakes.help.calls.empty());
    }

    void EgressWritesEachFileOnceInOrder()
    {
        for (const bool byExit : {false, true}) {  // the close box, or File > Exit
            // A remembered size, or the maximized state, to open in.
            ProgramHarness program;
            StartOnSample(program, QuietSettings("CURRENT TIP:2\r\nREMEMBER WINDOW SIZE:True\r\n" +
                                                 std::string(byExit ? "WINDOW WIDTH:9000\r\nWINDOW HEIGHT:8000\r\n"
                                                                    : "WINDOW STATE:2\r\n")));
            const MainWindow& w = *program.main;
            QVERIFY(w.findChild<QAction*>("mnuRememberWindowSize")->isChecked());
            QVERIFY(byExit ? w.size() == QSize(TwipsToPx(9000, w.logicalDpiX()), TwipsToPx(8000, w.logicalDpiY()))
                           : w.isMaximized());
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
            QVERIFY(!byExit || (Written(program).windowWidth == 9000 && Written(program).windowHeight == 8000));
            QVERIFY(program.fakes.prompts.messages.empty());  // an empty list asks nothing
        }
    }

    void OptionsDisclaimerAboutBoxAndWebPage()
    {
        ProgramHarness program;
        StartOnSample(program, QuietSettings("CURRENT TIP:7\r\nREMEMBER COLUMN WIDTH:True\r\nCOLUMN04:5000\r\n"));
        MainWindow& w = *program.main;
        Settings& s = program.session.settings;
        QCOMPARE(Grid(w)->columnWidth(4), TwipsToPx(5000, w.logicalDpiX()));

        // Ticking tips starts them over; each toggle reaches pw.ini at exit.
        w.findChild<QAction*>("mnuShowTip")->trigger();
        QCOMPARE(s.currentTip, 0);
        w.findChild<QAction*>("mnuRememberWindowSize")->trigger();
        w.findChild<QAction*>("mnuRememberColumnWidth")->trigger();

        w.findChild<QAction*>("mnuDisclaimer")->trigger();
        const auto& prompts = program.fakes.prompts;
        QCOMPARE(prompts.events, std::vector<QString>({"beep", "message:Important Disclaimer"}));
        const RecordedMessage& disclaimer = prompts.messages.back();  // nine lines, the fifth empty
        QVERIFY(disclaimer.text.startsWith("Although the nutrition") && disclaimer.text.endsWith("or physician."));
        QVERIFY(disclaimer.text.split("\r\n").size() == 9 && disclaimer.text.contains("\r\n\r\nData analysis"));
        QVERIFY(disclaimer.icon == MsgIcon::Critical && disclaimer.buttons == MsgButtons::Ok);

        w.findChild<QAction*>("mnuHelpOnHelp")->trigger();
        w.findChild<QAction*>("mnuHelpIndex")->trigger();
        QCOMPARE(program.fakes.help.calls.size(), size_t(2));
        QVERIFY(!program.fakes.help.calls[0].context.has_value());
        QCOMPARE(program.fakes.help.calls[0].command, 4);
        QCOMPARE(program.fakes.help.calls[1].command, 15);

        w.findChild<QAction*>("mnuAbout")->trigger();
        auto* about = w.findChild<AboutBox*>("frmAbout");
        QVERIFY(about && about->isVisible() && about->isModal());
        QCOMPARE(ClippedTexts(*about), QStringList());
        QCOMPARE(Find<QLabel>(*about, QStringLiteral("labDataVersion"))->text(), "Data version: 1.37 Test data");
        about->close();

        // The web site; when no browser opens, the address to visit by hand.
        w.findChild<QAction*>("mnuPlatewellWeb")->trigger();
        program.fakes.help.webPageOpens = false;
        w.findChild<QAction*>("mnuPlatewellWeb")->trigger();
        const auto& said = program.fakes.prompts.messages;  // the disclaimer, then the failure only
        QVERIFY(said.size() == 2 && said[1].text.endsWith(":\r\n" + program.fakes.help.pages.at(1)));

        w.close();
        QCOMPARE(Written(program).columnWidths[4], 4000);  // widths not remembered any more
        QVERIFY(Written(program).rememberWindowSize && Written(program).showTips);
    }

    void DocumentsGivenToTheProgramOpenAsTheirCommandsOpenThem()
    {
        ProgramHarness program;
        StartOnSample(program);
        MainWindow& w = *program.main;
        auto path = [&](const char* name) { return QString::fromStdString(program.folder.File(name)); };
        auto* name = w.findChild<QLineEdit*>("txtName");

        // A profile loads as Load Profile loads it: the list's tabs open.
        program.folder.Write("Bob.PWP", kBob);
        w.OpenDocument(path("Bob.PWP"));
        QVERIFY(name->text() == "Bob" && Tabs(w)->isTabEnabled(1) && w.windowTitle() == "Platewell");
        // A list opens as File > Open opens it: its profile, its foods, its
        // name in the caption, saved.
        program.folder.Write("day.pwl", "NAME:Ann\r\n" + kBobsDay.substr(10));
        w.OpenDocument(path("day.pwl"));
        QVERIFY(name->text() == "Ann" && program.session.foodList.Count() == 1 && program.session.foodList.listSaved);
        QCOMPARE(w.windowTitle(), "Platewell - " + path("day.pwl"));
        QVERIFY(program.fakes.prompts.messages.empty());

        // An unsaved list is offered for saving first; a file that is not a
        // list is reported as File > Open reports it.
        program.session.foodList.listSaved = false;
        program.folder.Write("notes.txt", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\xB7\x01", 18));
        w.OpenDocument(path("notes.txt"));
        const auto& shown = program.fakes.prompts.messages;
        QCOMPARE(shown.size(), size_t(2));
        QCOMPARE(Shown(shown[0]), Shown({"Do you want to save your foodlist?", "Open Analysis", MsgIcon::Question,
                                         MsgButtons::YesNo}));
        QCOMPARE(Shown(shown[1]), Shown({path("notes.txt") + "\r\nis not a valid Platewell\r\n.pwl file.", "Error",
                                         MsgIcon::Critical, MsgButtons::Ok}));
    }

    void BadTipsFiles()
    {
        {
            ProgramHarness program;  // an empty file shows an empty tip
            QVERIFY(StartAtTips(program, ""));
            QCOMPARE(Find<QLabel>(*program.tip, QStringLiteral("lblTipText"))->text(), QString());
            QCOMPARE(program.session.settings.currentTip, 1);
        }
        {
            ProgramHarness program;  // binary bytes are shown as text, never run
            QVERIFY(StartAtTips(program, std::string("<b>\0\x01\xff</b>", 9)));
            QCOMPARE(Find<QLabel>(*program.tip, QStringLiteral("lblTipText"))->textFormat(), Qt::PlainText);
            Find<QAbstractButton>(*program.tip, QStringLiteral("chkLoadTipsAtStartup"))->click();  // tips off
            QVERIFY(!program.session.settings.showTips);
        }
        {
            // A missing file ends the program (too many tips: the end-to-end runs).
            ProgramHarness program;
            WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), "FIRST RUN:False\r\n");
            std::filesystem::remove(program.folder.File("tips.txt"));
            QVERIFY(program.LoadSplash());
            program.splash->StartMain();
            QVERIFY(program.guard.Failed() && !program.main);
            QCOMPARE(program.fakes.prompts.messages.size(), size_t(1));
            QVERIFY(program.fakes.prompts.messages[0].text.startsWith("Run-time error '53':"));
            QVERIFY(!program.folder.Exists("default.pwp"));
        }
    }

    void TheDeliveredHelpFileHasEveryTopicTheProgramOpens()
    {
        const std::string file = ReadWholeFile(PLATEWELL_SOURCE_DIR "/data/pw.hlp", kHelpFileLimit);
        std::vector<int> contexts;
        for (const HelpTopic& topic : HelpTopics(file)) {
            contexts.push_back(topic.context);
            QVERIFY2(!topic.title.empty(), std::to_string(topic.context).c_str());
        }
        // The main window's menus and tab buttons, the chooser, the search,
        // add, dish, copy, rich-in and days windows open these.
        for (int wanted : {0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12})
            QVERIFY2(std::find(contexts.begin(), contexts.end(), wanted) != contexts.end(),
                     std::to_string(wanted).c_str());
        QCOMPARE(std::set<int>(contexts.begin(), contexts.end()).size(), contexts.size());  // no topic twice

        // Every link and every index entry leads to an anchor of the file,
        // every anchor is named once, and every picture was drawn by the
        // build beside the program.
        const HelpBook book = ReadHelpBook(file);
        std::set<std::string> anchors;
        std::size_t words = 0;
        for (const HelpPage& page : book.pages) {
            QVERIFY2(!page.name.empty() && !page.title.empty(), page.html.substr(0, 60).c_str());
            for (const std::string& anchor : page.anchors)
                QVERIFY2(anchors.insert(anchor).second, anchor.c_str());
            for (std::size_t at = 0; (at = page.html.find("<img src=\"", at)) != std::string::npos;) {
                at += 10;
                const std::string picture = page.html.substr(at, page.html.find('"', at) - at);
                const std::string drawn = std::filesystem::path(PLATEWELL_EXE).parent_path() / picture;
                QVERIFY2(std::filesystem::file_size(drawn) > 1000, drawn.c_str());
            }
            std::istringstream text(page.text);
            words += std::distance(std::istream_iterator<std::string>(text), std::istream_iterator<std::string>());
        }
        for (const std::string& link : HelpLinks(file))
            QVERIFY2(anchors.count(link), link.c_str());
        const std::vector<HelpIndexEntry> index = HelpIndex(book);
        QVERIFY(index.size() >= 80);
        for (const HelpIndexEntry& entry : index)
            QVERIFY2(anchors.count(entry.anchor) && !entry.keyword.empty(), entry.keyword.c_str());
        QVERIFY(anchors.count("using-help") && anchors.count("index"));
        QVERIFY(words >= 4000);
    }

    void TopicsAreFoundByTheirAnchors()
    {
        const struct {
            const char* file;
            std::vector<std::pair<int, std::string>> topics;
        } cases[] = {
            {"", {}},
            {"<h2><a name=\"context-3\"></a> Three </h2>", {{3, "Three"}}},
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
        // Pages, their own anchors, the index's entries and the word search.
        const HelpBook book = ReadHelpBook(
            "<html><body><h1><a name=\"a\"></a>First &amp; <b>one</b></h1><p>Apple <a name=\"in-a\"></a>pie</p>"
            "<h1><a name=\"index\"></a>Index</h1><ul><li><a href=\"#in-a\">pie, apple</a></li>"
            "<li><a href=\"#b\">Second</a></li></ul>"
            "<h1><a name=\"b\"></a>Second</h1><p>APPLE tart</p></body>trailing <h1>");
        QCOMPARE(book.pages.size(), size_t(3));
        QCOMPARE(book.pages[0].title, std::string("First & one"));
        QCOMPARE(book.pages[0].anchors, std::vector<std::string>({"a", "in-a"}));
        QCOMPARE(book.PageOf("in-a"), 0);
        QCOMPARE(book.PageOf("b"), 2);
        QCOMPARE(book.PageOf("none"), -1);
        const std::vector<HelpIndexEntry> entries = HelpIndex(book);
        QCOMPARE(entries.size(), size_t(2));
        QVERIFY(entries[0].keyword == "pie, apple" && entries[0].anchor == "in-a");
        QCOMPARE(SearchHelp(book, "apple"), std::vector<int>({0, 2}));  // any case; the index page not searched
        QCOMPARE(SearchHelp(book, " Apple   PIE "), std::vector<int>({0}));
        QCOMPARE(SearchHelp(book, "apple pie tart"), std::vector<int>());
        QCOMPARE(SearchHelp(book, "  "), std::vector<int>());
    }

    void HelpWindowWalksPagesBackAndForwardSearchesAndKeepsItsSize()
    {
        QStandardPaths::setTestModeEnabled(true);
        const auto title = [](const HelpWindow& w) {
            const auto* browser = Find<QTextBrowser>(w, QStringLiteral("browserHelp"));
            return browser->document()->toPlainText().section('\n', 0, 0).trimmed();
        };
        RecordingPrompts prompts;
        {
            HelpWindow window(prompts);
            auto* browser = Find<QTextBrowser>(window, QStringLiteral("browserHelp"));
            auto* back = Find<QPushButton>(window, QStringLiteral("btnBack"));
            auto* forward = Find<QPushButton>(window, QStringLiteral("btnForward"));
            auto* search = Find<QLineEdit>(window, QStringLiteral("txtHelpSearch"));
            QVERIFY(window.LoadFile(QStringLiteral(PLATEWELL_SOURCE_DIR "/data/pw.hlp")));
            window.show();
            QVERIFY(!back->isEnabled() && !forward->isEnabled());
            window.ShowTopic(0);
            QCOMPARE(title(window), QStringLiteral("Platewell Help"));
            window.ShowTopic(4);
            QCOMPARE(title(window), QStringLiteral("The Analysis tab"));
            // A link of the page leads to the page that holds its anchor.
            emit browser->anchorClicked(QUrl(QStringLiteral("#quantities")));
            QCOMPARE(title(window), QStringLiteral("Entering quantities"));
            back->click();
            QCOMPARE(title(window), QStringLiteral("The Analysis tab"));
            forward->click();
            QCOMPARE(title(window), QStringLiteral("Entering quantities"));
            QVERIFY(!forward->isEnabled());

            // The search lists the pages holding every word, each a link.
            QTest::keyClicks(search, QStringLiteral("Dash FRACTION"));
            QTest::keyClick(search, Qt::Key_Return);
            const QString results = browser->toPlainText();
            QVERIFY(results.contains("Entering quantities"));
            emit browser->anchorClicked(QUrl(QStringLiteral("help:quantities?find=Dash%20fraction")));
            QCOMPARE(title(window), QStringLiteral("Entering quantities"));
            back->click();
            QVERIFY(browser->toPlainText().contains("Entering quantities"));  // the results again

            window.resize(640, 420);
            Find<QPushButton>(window, QStringLiteral("btnClose"))->click();
        }
        HelpWindow again(prompts);
        QCOMPARE(again.size(), QSize(640, 420));
    }

    void KeyboardAloneKeepsTheFoodList()
    {
        ProgramHarness program;
        StartOnSample(program);
        MainWindow& w = *program.main;
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        const FoodChooserPage& chooser = FindOnly<FoodChooserPage>(w);
        auto* btnNewItem = Find<QPushButton>(chooser, QStringLiteral("btnNewItem"));
        auto* btnAcceptItem = Find<QPushButton>(chooser, QStringLiteral("btnAcceptItem"));
        auto* btnDeleteItem = Find<QPushButton>(chooser, QStringLiteral("btnDeleteItem"));
        auto* comQuantity = Find<QComboBox>(chooser, QStringLiteral("comQuantity"));
        QComboBox* comTier[4];
        for (int t = 0; t < 4; ++t)
            comTier[t] = Find<QComboBox>(chooser, QStringLiteral("comTier%1").arg(t));
        const auto focus = [] { return QApplication::focusWidget(); };
        const auto key = [&](Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(focus(), k, m); };
        const auto type = [&](const char* text) { QTest::keyClicks(focus(), QString::fromLatin1(text)); };
        // Tab (or Shift+Tab) until the widget has the focus.
        const auto tabTo = [&](QWidget* wanted, Qt::KeyboardModifiers m = Qt::NoModifier) {
            for (int i = 0; i < 40 && focus() != wanted; ++i)
                key(Qt::Key_Tab, m);
            return focus() == wanted;
        };
        // Down in a list until it shows the text.
        const auto pick = [&](QComboBox* box, const char* text) {
            for (int i = 0; i < 20 && box->currentText() != QString::fromLatin1(text); ++i)
                key(Qt::Key_Down);
            return box->currentText() == QString::fromLatin1(text);
        };
        // The apple, tier by tier: Down in each list, Tab to the next.
        const auto pickApple = [&] {
            const char* const texts[] = {"Fruits", "Apples", "Raw, with skin", "1 medium"};
            for (int t = 0; t < 4; ++t) {
                if (t > 0)
                    key(Qt::Key_Tab);
                if (focus() != comTier[t] || !pick(comTier[t], texts[t]))
                    return false;
            }
            return true;
        };

        // The profile, box by box through the labels' mnemonics.
        for (auto [mnemonic, text] : {std::pair{Qt::Key_N, "Ann"}, {Qt::Key_Y, "62"}, {Qt::Key_I, "64"},
                                      {Qt::Key_G, "130"}}) {
            key(mnemonic, Qt::AltModifier);
            type(text);
        }
        QVERIFY(program.session.profile.valid);
        QVERIFY(w.findChild<QLabel*>("labProfileGuide")->isHidden());

        // Two foods through the four tiers; the first with "2-1/2" and Enter.
        key(Qt::Key_L, Qt::AltModifier);
        QCOMPARE(Tabs(w)->currentIndex(), 1);
        for (const char* quantity : {"2-1/2", "1/3"}) {
            QVERIFY(tabTo(btnNewItem));
            key(Qt::Key_Space);
            QVERIFY(pickApple());  // the quantity waits for a measure
            key(Qt::Key_Tab, Qt::ShiftModifier);
            QCOMPARE(focus(), comQuantity);
            key(Qt::Key_A, Qt::ControlModifier);
            // The first to the box, the second to its line edit: both read each key.
            QTest::keyClicks(quantity[1] == '/' ? comQuantity->lineEdit() : static_cast<QWidget*>(comQuantity), quantity);
            key(Qt::Key_Return);
        }
        // Enter on the measure adds the food as Enter on the quantity does;
        // Ctrl+F opens the search while a food may be chosen.
        QVERIFY(tabTo(btnNewItem));
        key(Qt::Key_Space);
        key(Qt::Key_F, Qt::ControlModifier);
        QTRY_VERIFY(w.findChild<QDialog*>(QStringLiteral("frmSearch")));  // the button's click is animated
        auto* search = w.findChild<QDialog*>(QStringLiteral("frmSearch"));
        QVERIFY(search->isVisible());
        QTest::keyClick(search, Qt::Key_Escape);
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        QVERIFY(pickApple());
        key(Qt::Key_Return);
        const FoodList& list = program.session.foodList;
        QCOMPARE(list.Count(), 3);
        QCOMPARE(list.Entry(3).quantityText, std::string(" 1"));
        QCOMPARE(list.Entry(1).quantityText, std::string("2-1/2"));
        QCOMPARE(list.Entry(1).amounts[2], 62);  // 2.5 x 25 g carbohydrates, half to even
        QCOMPARE(list.Entry(2).quantityText, std::string("1/3"));
        QCOMPARE(list.Entry(2).amounts[2], 8);  // 25 g / 3
        QCOMPARE(focus(), btnNewItem);
        QCOMPARE(comQuantity->count(), 17);  // nothing typed joins the list

        // The grid is one Tab stop that selects nothing until a row is chosen.
        QVERIFY(tabTo(Grid(w)));
        QVERIFY(!Grid(w)->selectionModel()->hasSelection());
        QVERIFY(!btnDeleteItem->isEnabled());
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        QCOMPARE(list.selectedRow, std::int16_t(2));
        QCOMPARE(btnAcceptItem->text(), QStringLiteral("Change"));
        program.fakes.prompts.answers = {MsgResult::Yes};
        key(Qt::Key_Delete);
        QCOMPARE(list.Count(), 2);
        QCOMPARE(program.fakes.prompts.messages.at(0).title, QStringLiteral("Confirm Delete from List"));
        key(Qt::Key_Tab);
        QVERIFY(focus() != Grid(w));

        // Ctrl+S saves the list through the file dialog.
        const std::string saved = program.folder.File("day.pwl");
        program.fakes.files.answers = {QString::fromStdString(saved)};
        key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(program.fakes.files.saveRequests.size(), size_t(1));
        QVERIFY(program.folder.Read("day.pwl").find("\t2-1/2\tFruits\tApples\tRaw, with skin\t1 medium") !=
                std::string::npos);

        // Help: the analysis tab's button, and F1 on the topic of the tab in front.
        auto& calls = program.fakes.help.calls;
        w.findChild<QPushButton*>("btnTab3Help")->click();
        QCOMPARE(calls.size(), size_t(1));
        QVERIFY(calls[0].command == kHelpContext && calls[0].context == 4);
        QVERIFY(calls[0].file.endsWith("pw.hlp", Qt::CaseInsensitive));
        for (int tab : {0, 1, 2}) {
            Tabs(w)->setCurrentIndex(tab);
            QTest::keyClick(&w, Qt::Key_F1);
            QVERIFY(calls.back().command == kHelpContext && calls.back().context == 2 + tab);
        }
        QCOMPARE(calls.size(), size_t(4));
        // The tabs' mnemonics differ from each other and from the menus'.
        QSet<QChar> keys;
        for (QAction* menu : w.menuBar()->actions())
            keys.insert(menu->text().at(menu->text().indexOf('&') + 1).toLower());
        for (int tab = 0; tab < 3; ++tab) {
            const QString caption = Tabs(w)->tabText(tab);
            QVERIFY2(caption.contains('&') && !keys.contains(caption.at(caption.indexOf('&') + 1).toLower()),
                     qPrintable(caption));
            keys.insert(caption.at(caption.indexOf('&') + 1).toLower());
        }
        // Within each menu, every item has its own mnemonic.
        for (const QMenu* menu : w.findChildren<QMenu*>()) {
            QSet<QChar> items;
            for (const QAction* item : menu->actions()) {
                const int at = item->text().indexOf('&');
                QVERIFY2(item->isSeparator() || (at >= 0 && !items.contains(item->text().at(at + 1).toLower())),
                         qPrintable(item->text()));
                if (at >= 0)
                    items.insert(item->text().at(at + 1).toLower());
            }
        }
        QCOMPARE(Find<QAction>(w, QStringLiteral("mnuUndo"))->shortcut(), QKeySequence(QKeySequence::Undo));
        Tabs(w)->setCurrentIndex(0);
        QTest::keyClick(&w, Qt::Key_A, Qt::AltModifier);
        QCOMPARE(Tabs(w)->currentIndex(), 2);
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
