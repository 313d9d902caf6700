#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <random>
#include <set>

#include "Fixtures.h"
#include "TempFolder.h"
#include "core/LineFile.h"
#include "shell/AboutBox.h"
#include "shell/HelpTopics.h"
#include "shell/HelpWindow.h"
#include "shell/Session.h"

using namespace pw;

class HelpTest : public QObject {
    Q_OBJECT

private slots:
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

    void AboutBoxShowsTheVersions()
    {
        Session session;
        session.foodTable.DataVersionLine = "v21.111 USDA National Nutrient Database";
        AboutBox box(session);
        QCOMPARE(box.windowTitle(), QStringLiteral("About Platewell"));
        QCOMPARE(box.labTitle->text(), QStringLiteral("Platewell"));
        QCOMPARE(box.labVersion->text(), QStringLiteral("Program version: 2.04W"));
        QCOMPARE(box.labDataVersion->text(), QStringLiteral("Data version: 21.111 USDA National Nutrient Database"));
        QCOMPARE(box.labHelpVersion->text(), QStringLiteral("Help file version: 2.02"));
        QCOMPARE(box.Label1->text(), QStringLiteral("All Rights Reserved"));
        box.show();
        box.cmdOK->click();
        QVERIFY(!box.isVisible());
        QCOMPARE(box.result(), int(QDialog::Accepted));
    }
};

QTEST_MAIN(HelpTest)
#include "HelpTest.moc"
