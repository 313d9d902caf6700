// The food list on the whole program: rows added, changed and deleted
// through the chooser, the totals, and the list saved to and opened from a
// file.
#include <QAbstractItemModelTester>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "foodlist/FoodListTexts.h"
#include "foodlist/views/FoodChooserPage.h"
#include "printing/views/NutrientChart.h"

using namespace pw;
using namespace pw::test;

namespace {

struct ListFood {
    QStringList tiers;
    QString quantity;
};
// Butter: 108 kcal, 12 g fats, 31 mg cholesterol, 3 mg calcium, 82 mg sodium
// a tbsp; two and a half make 270, 30, 78 (77.5), 8 (7.5) and 205.
const ListFood kButter = {{"Dairy and Eggs", "Butter", "Salted", "1 tbsp"}, "2-1/2"};
const ListFood kCheddar = {{"Dairy and Eggs", "Cheese", "Cheddar", "1 oz"}, " 1"};
const ListFood kPeas = {{"Vegetables", "Peas", "Green, frozen", "1 cup"}, " 1"};
const QStringList kButterCells = {"2-1/2", "1 tbsp", "Dairy and Eggs", "Butter", "Salted", "270", "0 g",
                                  "0 g",   "30 g",   "78 mg",          "0 g",    "8 mg",   "205 mg"};
const QStringList kCheddarCells = {" 1", "1 oz", "Dairy and Eggs", "Cheese", "Cheddar", "109", "7 g",
                                   "0 g", "9 g", "30 mg",          "0 g",    "204 mg",  "176 mg"};

// Ann, 119 lb, female, sedentary: daily values 1666 kcal, 50 g protein, 240 g
// carbs, 56 g fats, 250 mg cholesterol, 21 g fiber, 666 mg calcium, 1978 mg
// sodium.
const std::string& kAnn = kAnnProfile;

struct Program {
    // Qt's model checker watches every change the grid's model tells.
    Program()
    {
        h.StartOn(DataFileBytes(SampleTable()));
        checker = std::make_unique<QAbstractItemModelTester>(grid().model(),
                                                             QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    FoodChooserPage& page() const { return FindOnly<FoodChooserPage>(*h.main); }
    QTableView& grid() const { return *Find<QTableView>(*h.main, QStringLiteral("gridMain")); }
    int GridRows() const { return grid().model()->rowCount(); }
    QString Cell(int row, int column) const { return grid().model()->index(row, column).data().toString(); }
    QTabWidget& tabs() const { return *Find<QTabWidget>(*h.main, QStringLiteral("tabMain")); }
    template <class T = QPushButton>
    T* W(const char* name) const { return Find<T>(*h.main, QString::fromLatin1(name)); }
    FoodList& list() { return h.session.foodList; }
    const std::vector<RecordedMessage>& Messages() const { return h.fakes.prompts.messages; }
    QString Path(const char* name) const { return QString::fromStdString(h.folder.File(name)); }
    QString Name() const { return W<QLineEdit>("txtName")->text(); }
    // Runs a menu command whose file dialog, if it asks, gets file name.
    void Run(const char* action, const char* name = nullptr)
    {
        if (name)
            h.fakes.files.answers.push_back(Path(name));
        W<QAction>(action)->trigger();
    }

    // The food chosen, its quantity typed, and Accept.
    void Add(const ListFood& food) const
    {
        ChooseFood(page(), food.tiers);
        EnterQuantity(food.quantity);
        W("btnAcceptItem")->click();
    }
    void EnterQuantity(const QString& text) const
    {
        W<QComboBox>("comQuantity")->setEditText(text);
        QTest::keyRelease(W<QComboBox>("comQuantity"), Qt::Key_End);
    }
    void ClickRow(int row) const
    {
        grid().scrollTo(grid().model()->index(row - 1, 0));
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().visualRect(grid().model()->index(row - 1, 0)).center());
    }
    QStringList Cells(int row) const
    {
        QStringList cells;
        for (int c = 0; c < 13; ++c)
            cells << Cell(row - 1, c);
        return cells;
    }
    QStringList Labels(const QString& pattern) const
    {
        QStringList texts;
        for (int i = 0; i < 8; ++i)
            texts << Find<QLabel>(*h.main, pattern.arg(i))->text();
        return texts;
    }
    QStringList DailyIntake() const { return Labels(QStringLiteral("labDailyIntake%1")); }
    // Clearing, saving and printing are offered while the list has rows,
    // saving it as a dish while it has two or more.
    void VerifyListMenus(bool rows) const
    {
        QCOMPARE(W<QAction>("mnuClearList")->isEnabled(), rows);
        QCOMPARE(W<QAction>("mnuSave")->isEnabled(), rows);
        QCOMPARE(W<QAction>("mnuList")->isEnabled(), rows);
        QCOMPARE(W<QAction>("mnuPrint")->isEnabled(), rows);
        QCOMPARE(W<QAction>("mnuSaveAsDish")->isEnabled(), h.session.foodList.Count() >= 2);
    }
    void VerifyChooserReset() const
    {
        QVERIFY(!W<QComboBox>("comTier0")->isEnabled() && W<QComboBox>("comTier0")->currentIndex() == -1);
        QVERIFY(!W("btnDeleteItem")->isEnabled() && !W("btnSearch")->isEnabled());
        QVERIFY(!W("btnAcceptItem")->isEnabled());
        QCOMPARE(Labels(QStringLiteral("labNutrVal%1")), QStringList(8, QString()));
    }

    // Everything a step of the list changes and an undo puts back.
    struct Snapshot {
        std::vector<FoodListEntry> rows;
        QList<QStringList> grid;  // every row's cells, the empty row too
        QStringList dailyIntake;
        ChartData chart;
        QString name, caption;
        bool saved = false;
        bool operator==(const Snapshot&) const = default;
    };
    Snapshot Snap() const
    {
        Snapshot s{h.session.foodList.Entries(), {}, DailyIntake(), FindOnly<NutrientChart>(*h.main).Data(), Name(),
                   h.main->windowTitle(), h.session.foodList.listSaved};
        for (int row = 1; row <= GridRows(); ++row)
            s.grid << Cells(row);
        return s;
    }

    ProgramHarness h;
    std::unique_ptr<QAbstractItemModelTester> checker;
};

QStringList Suffixed(const QStringList& numbers, const char* suffix)
{
    QStringList texts;
    for (const QString& n : numbers)
        texts << n + QString::fromLatin1(suffix);
    return texts;
}

}  // namespace

class FoodListGridTest : public QObject {
    Q_OBJECT

private slots:
    void RowsAndTotalsInBothViewsFromTheStoredValues()
    {
        Program p;
        p.VerifyListMenus(false);
        p.Add(kButter);
        p.Add(kCheddar);
        QCOMPARE(p.GridRows(), 3);  // and the empty row below
        QCOMPARE(p.Cells(1), kButterCells);
        QCOMPARE(p.Cells(2), kCheddarCells);
        QCOMPARE(p.DailyIntake(), QStringList({"379", "7 g", "0 g", "39 g", "108 mg", "0 g", "212 mg", "381 mg"}));
        QVERIFY(!p.list().listSaved);
        p.VerifyChooserReset();
        p.VerifyListMenus(true);

        // A stored percent is shown as stored: nothing is recomputed.
        FoodListEntry cheddar = p.list().Entry(2);
        cheddar.percents[kFiber] = 999;
        p.list().Replace(2, cheddar);
        QSignalSpy told(p.grid().model(), &QAbstractItemModel::dataChanged);  // views repaint what is told
        p.Run("mnuViewByDV");
        QCOMPARE(told.size(), 1);
        QCOMPARE(p.Cells(1),
                 kButterCells.mid(0, 5) + Suffixed({"16", "0", "0", "54", "31", "0", "1", "10"}, "%DV"));
        QCOMPARE(p.Cells(2),
                 kCheddarCells.mid(0, 5) + Suffixed({"7", "14", "0", "16", "12", "999", "31", "9"}, "%DV"));
        QCOMPARE(p.DailyIntake(), Suffixed({"23", "14", "0", "70", "43", "0", "32", "19"}, "%DV"));

        // Twice the weight: new daily values for the totals, whose rows keep
        // the percents they were stored with.
        auto* weight = p.W<QLineEdit>("txtWeight");
        weight->selectAll();
        QTest::keyClicks(weight, QStringLiteral("238"));
        QCOMPARE(p.Cells(1)[5], QStringLiteral("16%DV"));
        QCOMPARE(p.DailyIntake()[kCalories], QStringLiteral("11% DV"));  // 379 / 3332, written as rows are

        QVERIFY(p.Messages().empty());
    }

    void TheFiveHundredAndFirstRowIsRefused()
    {
        Program p;
        p.Add(kCheddar);
        while (p.list().Count() < kFoodListCapacity - 1)
            p.list().Append(p.list().Entry(1));
        p.Add(kButter);
        QCOMPARE(p.list().Count(), kFoodListCapacity);

        p.Add(kPeas);
        QCOMPARE(Shown(p.Messages()), QStringList{"Unable to Add to List|3|0|" + QString(texts::kListFull)});
        QCOMPARE(p.list().Count(), kFoodListCapacity);
        QCOMPARE(p.GridRows(), kFoodListCapacity + 1);
        QCOMPARE(p.Cells(kFoodListCapacity), kButterCells);
    }

    void ARowClickedLoadsTheChooserAnyOtherClickResetsIt()
    {
        Program p;
        p.Add(kButter);
        p.Add(kCheddar);
        // The row's own quantity scales the food again: Change without an
        // edit keeps the row, whatever the box held before.
        p.W<QComboBox>("comQuantity")->setEditText(QStringLiteral("7"));
        p.ClickRow(1);
        QCOMPARE(p.W("btnAcceptItem")->text(), QStringLiteral("Change"));
        QVERIFY(p.W("btnDeleteItem")->isEnabled() && p.W("btnSearch")->isEnabled());
        QCOMPARE(p.W<QComboBox>("comTier3")->currentText(), QStringLiteral("1 tbsp"));
        QCOMPARE(p.W<QComboBox>("comQuantity")->currentText(), QStringLiteral("2-1/2"));
        QCOMPARE(p.Labels(QStringLiteral("labNutrVal%1"))[kCholesterol], QStringLiteral("78"));
        const FoodListEntry butter = p.list().Entry(1);
        p.W("btnAcceptItem")->click();
        QCOMPARE(p.list().Entry(1), butter);

        p.ClickRow(1);
        p.EnterQuantity(QStringLiteral("1"));
        QSignalSpy told(p.grid().model(), &QAbstractItemModel::dataChanged);
        p.W("btnAcceptItem")->click();
        QCOMPARE(told.size(), 1);
        QCOMPARE(p.list().Count(), 2);
        QCOMPARE(p.GridRows(), 3);
        QCOMPARE(p.Cells(1), QStringList({"1", "1 tbsp", "Dairy and Eggs", "Butter", "Salted", "108", "0 g", "0 g",
                                          "12 g", "31 mg", "0 g", "3 mg", "82 mg"}));
        QCOMPARE(p.DailyIntake()[kCalories], QStringLiteral("217"));
        p.VerifyChooserReset();

        // The keys move to a row as a click does.
        p.ClickRow(1);
        QTest::keyClick(&p.grid(), Qt::Key_Down);
        QCOMPARE(p.W<QComboBox>("comTier2")->currentText(), QStringLiteral("Cheddar"));

        p.h.main->resize(p.h.main->width(), p.h.main->height() + 300);  // room below the rows
        const std::function<void()> outside[] = {
            [&] { QTest::mouseClick(p.grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, {10, 5}); },
            [&] { p.ClickRow(3); },  // the empty row
            [&] {
                QTest::mouseClick(p.grid().viewport(), Qt::LeftButton, {}, {20, p.grid().viewport()->height() - 2});
            },
        };
        for (const auto& click : outside) {
            p.ClickRow(2);
            QVERIFY(p.W("btnDeleteItem")->isEnabled());
            click();
            p.VerifyChooserReset();
        }
        QVERIFY(p.Messages().empty());
    }

    void TheViewSwitchesTheChosenFoodsValues()
    {
        Program p;
        auto* copy = p.W<QAction>("mnuCopyToFavorites");
        auto* remove = p.W<QAction>("mnuDeleteFromDatabase");
        QVERIFY(!copy->isEnabled() && !remove->isEnabled());
        p.W("btnNewItem")->click();
        p.page().RecreateTiers(5);  // cheddar: 7 g protein, 14% of 50 g
        const QString values = QStringLiteral("labNutrVal%1"), units = QStringLiteral("labNutrUnit%1");
        QCOMPARE(p.Labels(values)[kProtein], QStringLiteral("7"));
        QVERIFY(copy->isEnabled() && remove->isEnabled());

        p.Run("mnuViewByDV");
        QCOMPARE(p.Labels(values)[kProtein], QStringLiteral("14"));
        QCOMPARE(p.Labels(units), QStringList(8, QStringLiteral("%DV")));
        for (int i = 0; i < 8; ++i)
            QCOMPARE(p.Labels(values)[i], QString::number(p.h.session.chooser.currentPercents[i]));
        // A quantity picked from the list in this view scales the values at
        // once and keeps the unit.
        auto* quantity = p.W<QComboBox>("comQuantity");
        quantity->setCurrentIndex(4);
        emit quantity->activated(4);
        QCOMPARE(p.Labels(values)[kProtein] + p.Labels(units)[kCalories], QStringLiteral("8%DV"));  // 4 g of 50
        p.Run("mnuViewByUnits");
        QCOMPARE(p.Labels(values)[kProtein], QStringLiteral("4"));  // 3.5 to the even 4
        QCOMPARE(p.Labels(units)[kCarbs], QStringLiteral("mg"));  // the view's own captions

        p.page().DisableTiers();
        QVERIFY(!copy->isEnabled() && !remove->isEnabled());
        p.Run("mnuViewByDV");  // nothing chosen: values stay blank
        QCOMPARE(p.Labels(values)[kProtein], QString());
        QVERIFY(p.Messages().empty());
    }

    void DeletingAndClearing()
    {
        Program p;
        for (const ListFood& food : {kButter, kCheddar, kPeas})
            p.Add(food);
        const FoodListEntry peas = p.list().Entry(3);
        const QStringList peasCells = p.Cells(3);
        auto& prompts = p.h.fakes.prompts;
        const QString item = QStringLiteral("\"Dairy and Eggs / Cheese / Cheddar\"");

        p.ClickRow(2);
        prompts.answers = {MsgResult::No, MsgResult::Yes};
        p.W("btnDeleteItem")->click();
        QCOMPARE(p.list().Count(), 3);
        QVERIFY(!p.h.session.foodTable.DatabaseDirty);
        p.W("btnDeleteItem")->click();
        const QString question = QStringLiteral("This will delete the item:\r\n") + item +
                                 QStringLiteral("\r\nfrom your list, as shown in the grid.\r\n\r\n"
                                                "Do you want to delete this item?");
        const QStringList texts = {question, "Operation cancelled.", question,
                                   item + QStringLiteral("\r\nItem removed from your list.")};
        QCOMPARE(p.Messages().size(), size_t(4));
        for (int i = 0; i < 4; ++i) {
            const bool asked = i % 2 == 0;
            QCOMPARE(Shown(p.Messages()[i]), Shown({texts[i], asked ? "Confirm Delete from List" : "Delete from List",
                                                    asked ? MsgIcon::Question : MsgIcon::Information,
                                                    asked ? MsgButtons::YesNo : MsgButtons::Ok}));
        }
        QCOMPARE(p.list().Count(), 2);
        QCOMPARE(p.list().Entry(2), peas);
        QCOMPARE(p.Cells(2), peasCells);
        QCOMPARE(p.GridRows(), 3);
        QCOMPARE(p.DailyIntake()[kCalories], QStringLiteral("383"));  // butter and peas
        QVERIFY(p.h.session.foodTable.DatabaseDirty);
        p.VerifyChooserReset();
        p.VerifyListMenus(true);

        for (int rows = 2; rows > 0; --rows) {
            prompts.answers = {MsgResult::Yes};
            p.ClickRow(rows);
            p.W("btnDeleteItem")->click();
            p.VerifyListMenus(rows > 1);
        }
        QCOMPARE(p.GridRows(), 1);

        // Clearing: no rows, the profile kept, nothing left to delete.
        p.Add(kCheddar);
        p.ClickRow(1);
        p.Run("mnuClearList");
        QCOMPARE(p.list().Count(), 0);
        QCOMPARE(p.GridRows(), 0);
        QCOMPARE(p.DailyIntake()[kSodium], QStringLiteral("0 mg"));
        p.VerifyChooserReset();
        p.VerifyListMenus(false);
        QVERIFY(!p.h.guard.Failed());
    }

    void SavedListReopensWithTheSameRowsAndCaption()
    {
        Program p;
        p.Add(kButter);
        p.Add(kCheddar);
        const FoodListEntry butter = p.list().Entry(1), cheddar = p.list().Entry(2);
        p.Run("mnuSave", "day.pwl");
        const FileDialogRequest& save = p.h.fakes.files.saveRequests.at(0);
        QCOMPARE(save.initialFolder, QString::fromStdString(p.h.folder.Path()));
        QVERIFY(save.defaultExtension == ".pwl" && save.filter == "Platewell analyses (*.pwl)|*.pwl");
        QVERIFY(save.overwritePrompt && save.hideReadOnly && save.pathMustExist && !save.fileMustExist);
        QCOMPARE(p.h.main->windowTitle(), "Platewell - " + p.Path("day.pwl"));
        QCOMPARE(Shown(p.Messages()), QStringList{"Save Profile|1|0|Analysis saved."});

        p.Run("mnuClearList");  // saved: nothing to ask
        p.tabs().setCurrentIndex(2);
        p.Run("mnuOpen", "day.pwl");
        QVERIFY(p.list().Count() == 2 && p.list().Entry(1) == butter && p.list().Entry(2) == cheddar);
        QCOMPARE(p.Cell(0, 0), QStringLiteral("2-1/2"));
        QCOMPARE(p.h.main->windowTitle(), "Platewell - " + p.Path("day.pwl"));
        QCOMPARE(p.tabs().currentIndex(), 2);  // back where the file was opened from
        const FileDialogRequest& open = p.h.fakes.files.openRequests.at(0);
        QVERIFY(open.overwritePrompt && open.pathMustExist && !open.fileMustExist && open.proposedName.isEmpty());
        p.Run("mnuSave", "again.pwl");
        QCOMPARE(p.h.fakes.files.saveRequests.at(1).proposedName, p.Path("day.pwl"));
        QCOMPARE(p.Messages().size(), size_t(2));
    }

    // Yes to the question saves the list, then the command goes on.
    void SaveIsOfferedOnlyForAnUnsavedList()
    {
        const char* const commands[][2] = {
            {"mnuOpen", "Open Analysis"}, {"mnuClearList", "Clear List"}, {"mnuExit", "Exit"}};
        // The rows added, saved or not, and one deleted after saving.
        const std::tuple<int, bool, bool> lists[] = {
            {0, false, false}, {2, false, false}, {2, true, false}, {2, true, true}};
        for (const auto& [action, title] : commands)
            for (const auto& [rows, saved, deleted] : lists)
                RunAfterOfferingToSave(action, title, rows, saved, deleted);
        // At exit, a list that cannot be written is offered again.
        Program p;
        p.Add(kCheddar);
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        p.Run("mnuExit", "missing/day.pwl");
        QCOMPARE(p.Messages().back().buttons, MsgButtons::RetryCancel);
    }

    // Each step taken back leaves the list, its grid, totals, chart and
    // profile as before it; done again, as the step left them. Back at the
    // list as saved, leaving it asks nothing.
    void EveryStepIsUndoneAndRedone()
    {
        const std::pair<QString, std::function<void(Program&)>> steps[] = {
            {"Add Green, frozen", [](Program& p) { p.Add(kPeas); }},
            {"Change Salted",
             [](Program& p) {
                 p.ClickRow(1);
                 p.EnterQuantity(QStringLiteral("1"));
                 p.W("btnAcceptItem")->click();
             }},
            {"Delete Cheddar",
             [](Program& p) {
                 p.ClickRow(2);
                 p.h.fakes.prompts.answers = {MsgResult::Yes};
                 p.W("btnDeleteItem")->click();
             }},
            {"Clear List", [](Program& p) { p.Run("mnuClearList"); }},
            {"Open bob.pwl", [](Program& p) { p.Run("mnuOpen", "bob.pwl"); }},
        };
        for (const auto& [name, take] : steps) {
            Program p;
            p.h.folder.Write("bob.pwl", "NAME:Bob\r\n" + kAnn.substr(10) +
                                            "ITEM: 11 \t1\tVegetables\tPeas\tGreen, frozen\t1 cup\r\n");
            p.Add(kButter);
            p.Add(kCheddar);
            p.Run("mnuSave", "day.pwl");
            auto* undo = p.W<QAction>("mnuUndo");
            auto* redo = p.W<QAction>("mnuRedo");
            const Program::Snapshot before = p.Snap();
            take(p);
            const Program::Snapshot after = p.Snap();
            QVERIFY(!(after == before));
            QCOMPARE(undo->text(), "&Undo " + name);
            QVERIFY(!redo->isEnabled());

            undo->trigger();
            QVERIFY2(p.Snap() == before, qPrintable(name));
            p.VerifyChooserReset();
            QCOMPARE(redo->text(), "&Redo " + name);
            redo->trigger();
            Program::Snapshot redone = p.Snap();
            // A redo leaves the list unsaved, but back at the list as opened.
            QCOMPARE(redone.saved, name.startsWith("Open"));
            redone.saved = after.saved;
            QVERIFY2(redone == after, qPrintable(name));
            QVERIFY(!redo->isEnabled());

            undo->trigger();
            const size_t messages = p.Messages().size();
            p.Run("mnuClearList");
            QCOMPARE(p.Messages().size(), messages);
            QVERIFY(!p.h.guard.Failed());
        }
    }

    // Opening a list and a new profile start a new history.
    void OpeningAndANewProfileForgetTheSteps()
    {
        Program p;
        auto* undo = p.W<QAction>("mnuUndo");
        QVERIFY(!undo->isEnabled() && undo->text() == "&Undo");
        p.Add(kButter);
        p.Run("mnuSave", "day.pwl");
        p.Add(kCheddar);
        p.h.fakes.prompts.answers = {MsgResult::No};  // not saved again
        p.Run("mnuOpen", "day.pwl");
        QCOMPARE(undo->text(), QStringLiteral("&Undo Open day.pwl"));
        undo->trigger();
        QVERIFY(!undo->isEnabled());
        QCOMPARE(p.list().Count(), 2);
        p.Add(kPeas);
        p.W("btnNewProfile")->click();
        QVERIFY(!undo->isEnabled());
        QCOMPARE(p.list().Count(), 3);
    }

    // One change of the list repaints the chart once.
    void TheChartFollowsEachChangeOnce()
    {
        Program p;
        p.Add(kButter);
        p.tabs().setCurrentIndex(2);
        auto& chart = FindOnly<NutrientChart>(*p.h.main);
        QVERIFY(QTest::qWaitForWindowExposed(p.h.main.get()));
        QCoreApplication::processEvents();
        PaintCounter paints(chart);
        p.Add(kCheddar);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
        p.W<QAction>("mnuUndo")->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 2);
    }

private:
    struct PaintCounter : QObject {
        explicit PaintCounter(QWidget& w) { w.installEventFilter(this); }
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    };

    void RunAfterOfferingToSave(const QString& action, const QString& title, int rows, bool saved, bool deleted)
    {
        Program p;
        for (int i = 0; i < rows; ++i)
            p.Add({kCheddar.tiers, "2"});
        if (saved)
            p.Run("mnuSave", "saved.pwl");
        if (deleted) {
            p.ClickRow(1);
            p.h.fakes.prompts.answers = {MsgResult::Yes};
            p.W("btnDeleteItem")->click();
        }
        const int count = p.list().Count();
        const size_t before = p.Messages().size();
        const bool asks = rows > 0 && !saved;
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        FolderWatch watch(p.h.folder.Path());
        p.Run(qPrintable(action), asks ? "asked.pwl" : nullptr);

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

QTEST_MAIN(FoodListGridTest)
#include "FoodListGridTest.moc"
