#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "foodlist/FoodListGrid.h"
#include "foodlist/FoodListPage.h"

using namespace pw;
using namespace pw::test;

namespace {

const std::string kAnn = "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:119\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";

struct Program {
    Program()
    {
        WriteProgramFolder(h.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        h.folder.Write("default.pwp", kAnn);
        if (!h.Start())
            qFatal("the program did not start");
    }
    FoodList& list() { return h.session.foodList; }
    const std::vector<RecordedMessage>& Messages() const { return h.fakes.prompts.messages; }
    QString Path(const char* name) const { return QString::fromStdString(h.folder.File(name)); }
    QString Name() const { return h.main->findChild<QLineEdit*>("txtName")->text(); }

    // Chooses a food of the tiers as the user does and adds it.
    void Add(const QStringList& tiers, const QString& quantity) const
    {
        FoodListPage& page = *h.main->foodListPage;
        page.btnNewItem->click();
        QComboBox* combos[] = {page.comTier0, page.comTier1, page.comTier2, page.comTier3};
        for (int t = 0; t < 4; ++t) {
            combos[t]->setCurrentIndex(combos[t]->findText(tiers[t]));
            emit combos[t]->activated(combos[t]->currentIndex());
        }
        page.comQuantity->setEditText(quantity);
        QTest::keyRelease(page.comQuantity, Qt::Key_End);
        page.btnAcceptItem->click();
    }
    // Runs a menu command whose file dialog, if it asks, gets file name.
    void Run(const char* action, const char* name = nullptr)
    {
        if (name)
            h.fakes.files.answers.push_back(Path(name));
        h.main->findChild<QAction*>(action)->trigger();
    }
    ProgramHarness h;
};

}  // namespace

class AnalysisFileCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void SavedListReopensWithTheSameRowsAndCaption()
    {
        Program p;
        p.Add({"Dairy and Eggs", "Butter", "Salted", "1 tbsp"}, "2-1/2");
        p.Add({"Dairy and Eggs", "Cheese", "Cheddar", "1 oz"}, " 1");
        const FoodListEntry butter = p.list().Entry(1), cheddar = p.list().Entry(2);
        p.Run("mnuSave", "day.pwl");
        const FileDialogRequest& save = p.h.fakes.files.saveRequests.at(0);
        QCOMPARE(save.initialFolder, QString::fromStdString(p.h.folder.Path()));
        QVERIFY(save.defaultExtension == ".pwl" && save.filter == "Platewell analyses (*.pwl)|*.pwl");
        QVERIFY(save.overwritePrompt && save.hideReadOnly && save.pathMustExist && !save.fileMustExist);
        QCOMPARE(p.h.main->windowTitle(), "Platewell - " + p.Path("day.pwl"));
        QCOMPARE(p.Messages().size(), size_t(1));
        QVERIFY(p.Messages()[0].text == "Analysis saved." && p.Messages()[0].title == "Save Profile");
        QVERIFY(p.Messages()[0].icon == MsgIcon::Information);

        p.Run("mnuClearList");  // saved: nothing to ask
        QCOMPARE(p.h.main->windowTitle(), QStringLiteral("Platewell"));
        p.h.main->tabMain->setCurrentIndex(2);
        p.Run("mnuOpen", "day.pwl");
        QVERIFY(p.list().Count() == 2 && p.list().Entry(1) == butter && p.list().Entry(2) == cheddar);
        QCOMPARE(p.h.main->gridMain->item(0, 0)->text(), QStringLiteral("2-1/2"));
        QCOMPARE(p.h.main->windowTitle(), "Platewell - " + p.Path("day.pwl"));
        QCOMPARE(p.h.main->tabMain->currentIndex(), 2);  // back where the file was opened from
        const FileDialogRequest& open = p.h.fakes.files.openRequests.at(0);
        QVERIFY(open.overwritePrompt && open.pathMustExist && !open.fileMustExist && open.proposedName.isEmpty());
        p.Run("mnuSave", "again.pwl");
        QCOMPARE(p.h.fakes.files.saveRequests.at(1).proposedName, p.Path("day.pwl"));
        QCOMPARE(p.Messages().size(), size_t(2));
    }

    void FoodsAreFoundByTheirTextsAndBadFilesReported()
    {
        Program p;
        FoodTable& table = p.h.session.foodTable;
        table.Append(table.Record(5));  // a second cheddar, index 12
        const std::string cheddar = "\t1\tDairy and Eggs\tCheese\tCheddar\t1 oz\r\n";
        p.h.folder.Write("day.pwl", "NAME:Bob\r\n" + kAnn.substr(10) + "ITEM: 12 " + cheddar + "ITEM: 3 " + cheddar +
                                        "ITEM: 0 \t1\tDairy and Eggs\tCheese\tBrie\t1 oz\r\n"
                                        "ITEM: 300 \t1\tVegetables\tPeas\tGreen, frozen\t1 cup\r\n");
        p.Run("mnuOpen", "day.pwl");
        QCOMPARE(p.Messages().size(), size_t(1));
        QCOMPARE(p.Messages()[0].text, QStringLiteral("\"Dairy and Eggs/Cheese/Brie/1 oz\"\r\n"
                                                      "is no longer in the database.  It will not be imported."));
        QVERIFY(p.Messages()[0].title == "Open foodlist/analysis" && p.Messages()[0].icon == MsgIcon::Exclamation);
        QCOMPARE(p.list().Count(), 3);
        QVERIFY(p.list().Entry(1).foodIndex == 12 && p.list().Entry(2).foodIndex == 5);  // hinted, else lowest
        QCOMPARE(p.list().Entry(3).foodIndex, 11);  // moved
        QCOMPARE(p.Name(), QStringLiteral("Bob"));

        p.h.folder.Write("profile.pwl", kAnn);
        p.Run("mnuOpen", "profile.pwl");
        QVERIFY(p.list().Count() == 0 && p.Name() == "Ann" && p.h.main->tabMain->isTabEnabled(1));

        p.h.folder.Write("random.pwl", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\xB7\x01", 18));
        p.Run("mnuOpen", "random.pwl");
        QCOMPARE(p.Messages().size(), size_t(2));
        QCOMPARE(p.Messages()[1].text, p.Path("random.pwl") + "\r\nis not a valid Platewell\r\n.pwl file.");
        QVERIFY(p.Messages()[1].title == "Error" && p.Messages()[1].icon == MsgIcon::Critical);
    }

    void SaveIsOfferedOnlyForAnUnsavedList_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("saved");
        QTest::addColumn<bool>("deleted");
        const char* actions[][2] = {{"mnuOpen", "Open Analysis"}, {"mnuClearList", "Clear List"}, {"mnuExit", "Exit"}};
        for (const auto& [action, title] : actions) {
            QTest::addRow("%s empty", action) << action << title << 0 << false << false;
            QTest::addRow("%s unsaved", action) << action << title << 2 << false << false;
            QTest::addRow("%s saved", action) << action << title << 2 << true << false;
            QTest::addRow("%s saved, one deleted", action) << action << title << 2 << true << true;
        }
    }

    // Yes to the question saves the list, then the command goes on.
    void SaveIsOfferedOnlyForAnUnsavedList()
    {
        QFETCH(QString, action);
        QFETCH(QString, title);
        QFETCH(int, rows);
        QFETCH(bool, saved);
        QFETCH(bool, deleted);
        Program p;
        for (int i = 0; i < rows; ++i)
            p.Add({"Dairy and Eggs", "Cheese", "Cheddar", "1 oz"}, "2");
        if (saved)
            p.Run("mnuSave", "saved.pwl");
        if (deleted) {
            p.h.main->listGrid->gridMain_Click(1);
            p.h.fakes.prompts.answers = {MsgResult::Yes};
            p.h.main->foodListPage->btnDeleteItem->click();
        }
        const int count = p.list().Count();
        const size_t before = p.Messages().size();
        const bool asks = rows > 0 && !saved;
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        FolderWatch watch(p.h.folder.Path());
        p.Run(action.toLatin1().constData(), asks ? "asked.pwl" : nullptr);

        QCOMPARE(p.Messages().size() > before, asks);
        if (asks)
            QVERIFY(p.Messages()[before].text == "Do you want to save your foodlist?" &&
                    p.Messages()[before].title == title && p.Messages()[before].buttons == MsgButtons::YesNo);
        QCOMPARE(p.h.folder.Exists("asked.pwl"), asks);
        if (action == "mnuOpen")  // the open dialog cancelled: nothing cleared
            QVERIFY(p.list().Count() == count && p.Name() == "Ann");
        if (action == "mnuClearList")
            QVERIFY(p.list().Count() == 0 && p.Name() == "Ann" && p.h.main->windowTitle() == "Platewell");
        if (action == "mnuExit" && asks)
            QCOMPARE(watch.Written(), std::vector<std::string>({"default.pwp", "pw.ini", "data.dat", "asked.pwl"}));
    }
};

QTEST_MAIN(AnalysisFileCommandsTest)
#include "AnalysisFileCommandsTest.moc"
