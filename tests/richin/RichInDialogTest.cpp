// Foods Rich In: the dialog alone on the sample foods and the fakes, view by
// view; the whole program, where the Analysis tab opens it and the chooser
// takes its food; and the ranking printed by the built program from a shell.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <filesystem>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "core/HelpContexts.h"
#include "foodlist/FoodSession.h"
#include "printing/views/NutrientChart.h"
#include "richin/views/RichInDialog.h"

using namespace pw;
using namespace pw::test;

namespace {

// A daily value for each nutrient: 150 pounds, female, sedentary.
const DailyValues kDailyValues = {2100, 63, 304, 70, 315, 26, 840, 2494};

// A list row of a food of the sample table with the given fiber.
FoodListEntry Row(const FoodTable& table, int food, std::int32_t fiber)
{
    FoodListEntry entry;
    entry.foodIndex = static_cast<std::int16_t>(food);
    entry.quantityText = " 1";
    entry.group = table.Group(food);
    entry.subgroup = table.Subgroup(food);
    entry.description = table.Description(food);
    entry.measure = table.Measure(food);
    entry.amounts[kFiber] = fiber;
    return entry;
}

struct Alone {
    Alone()
    {
        session.foodTable = SampleTable();
        session.dailyValues = kDailyValues;
    }
    void Open(std::optional<Nutrient> nutrient, bool complete = true)
    {
        dialog.PresetNutrient(nutrient);
        dialog.SetProfileComplete(complete);
        dialog.open();
    }
    QString Cell(int row, int column) const
    {
        return grid->model()->index(row, column).data().toString();
    }
    QString Note() const { return Find<QLabel>(dialog, "labRichNote")->text(); }
    bool Enabled(const char* name) const { return Find<QWidget>(dialog, name)->isEnabled(); }

    FoodSession session;
    FakeSeams fakes;
    RichInDialog dialog{session, fakes.seams, nullptr};
    QTableView* grid = Find<QTableView>(dialog, "gridRich");
    QComboBox* nutrient = Find<QComboBox>(dialog, "comRichNutrient");
};

struct Shell : ProgramCopy {
    Shell() : ProgramCopy(PLATEWELL_EXE) {}
};

}  // namespace

class RichInDialogTest : public QObject {
    Q_OBJECT

private slots:
    void ANutrientOpensInItsOwnOrder()
    {
        Alone a;
        // The nutrient asked for, in its own order (the order's rule is the
        // model's); every food but the empty Favorites record.
        a.Open(kSodium);
        QVERIFY(a.nutrient->currentIndex() == kSodium && Find<QRadioButton>(a.dialog, "optRichLeast")->isChecked());
        QVERIFY(a.dialog.RowCount() == 11 && a.dialog.FoodIndexOfRow(0) == 8 && a.Cell(0, 5) == "1 mg");
        QCOMPARE(a.Note(), QStringLiteral("11 foods."));
        a.dialog.reject();
        // Per 100 calories in the Fruits, as percent of the DV: 4000 / 100 and
        // 3000 / 60 calories.
        a.Open(kFiber);
        QVERIFY(Find<QRadioButton>(a.dialog, "optRichMost")->isChecked());
        for (const auto& [name, index] : {std::pair{"comRichBasis", 1}, std::pair{"comRichGroup", 9}}) {
            auto* combo = Find<QComboBox>(a.dialog, name);
            combo->setCurrentIndex(index);
            emit combo->activated(index);
        }
        QCOMPARE(a.dialog.RowCount(), 2);
        QCOMPARE(a.Cell(0, 5) + ' ' + a.Cell(0, 6) + ' ' + a.Cell(1, 5) + ' ' + a.Cell(1, 6),
                 QStringLiteral("5.0 g 19% 4.0 g 15%"));
        QCOMPARE(a.grid->model()->headerData(5, Qt::Horizontal).toString(), QStringLiteral("Fiber per 100 calories"));
    }

    void TheGapListsQuantitiesAndChoosingHandsThemOver()
    {
        Alone a;
        QSignalSpy chosen(&a.dialog, &RichInDialog::foodChosen);
        a.Open(kFiber);
        QVERIFY(!a.Enabled("chkRichGap"));  // the list is empty
        a.dialog.reject();

        // 14 g of fiber against 26: 12 g to go, fewest calories first.
        a.session.foodList.Append(Row(a.session.foodTable, 9, 4));
        a.session.foodList.Append(Row(a.session.foodTable, 11, 10));
        a.Open(kFiber);
        Find<QCheckBox>(a.dialog, "chkRichGap")->click();
        QVERIFY(!a.Enabled("comRichBasis") && !a.Enabled("optRichMost"));
        QCOMPARE(ClippedTexts(a.dialog), QStringList());
        QStringList rows;
        for (int row = 0; row < 3; ++row)
            rows << a.Cell(row, 3) + '|' + a.Cell(row, 5) + '|' + a.Cell(row, 6) + '|' + a.Cell(row, 7);
        QCOMPARE(rows, QStringList({"Raw| 6|12 g|168", "Green, frozen| 2|12 g|226", "Raw, with skin| 4|12 g|240"}));
        QVERIFY(a.Note().startsWith("The day has 14 g of Fiber of its daily value of 26 g."));
        QTest::keyClick(a.grid, Qt::Key_Return);
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(chosen.at(0), (QVariantList{10, QStringLiteral(" 6")}));
        QVERIFY(!a.dialog.isVisible());

        // Opened again it starts over; a nutrient at its DV has no gap.
        a.Open(kCalcium);
        QVERIFY(!Find<QCheckBox>(a.dialog, "chkRichGap")->isChecked());
        a.dialog.reject();
        a.session.foodList.Append(Row(a.session.foodTable, 11, 20));
        a.Open(kFiber);
        Find<QCheckBox>(a.dialog, "chkRichGap")->click();
        QCOMPARE(a.dialog.RowCount(), 0);
        QCOMPARE(a.Note(), QStringLiteral("The day already has 34 g of Fiber, at or above its daily value of 26 g: "
                                          "there is no gap to fill."));

        // The list's own foods by what each gave, with their share.
        Find<QRadioButton>(a.dialog, "optRichThisList")->click();
        QCOMPARE(a.dialog.RowCount(), 3);
        QCOMPARE(a.Cell(0, 6) + ' ' + a.Cell(0, 7) + ' ' + a.Cell(2, 6) + ' ' + a.Cell(2, 7),
                 QStringLiteral("20 g 59% 4 g 12%"));
        QVERIFY(!a.Enabled("chkRichGap"));
        Find<QPushButton>(a.dialog, "btnRichChoose")->click();
        QCOMPARE(chosen.at(1), (QVariantList{11, QString()}));

        // Without a complete profile: no percents, no gap, nothing to choose.
        a.Open(kFiber, false);
        QVERIFY(a.Cell(0, 6).isEmpty());
        QVERIFY(!a.Enabled("chkRichGap") && !a.Enabled("btnRichChoose"));
        Find<QPushButton>(a.dialog, "btnRichHelp")->click();
        QCOMPARE(a.fakes.help.calls.back().context, std::optional<int>(kTopicRichIn));
    }

    void TheAnalysisTabOpensItAndTwoKeysAddTheFood()
    {
        ProgramHarness program;
        program.StartOn(DataFileBytes(SampleTable()));
        MainWindow& w = *program.main;
        FoodChooserPage& chooser = FindOnly<FoodChooserPage>(w);
        ChooseFood(chooser, {"Fruits", "Apples", "Raw, with skin", "1 medium"});
        Find<QPushButton>(chooser, "btnAcceptItem")->click();
        auto* tabs = Find<QTabWidget>(w, "tabMain");
        tabs->setCurrentIndex(2);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));

        // The chart keeps the labels' text size, and its rows open the dialog.
        auto* chart = Find<NutrientChart>(w, "chartNutrients");
        const ChartGeometry g = LayoutNutrientChart(chart->Data(), chart->Area(), chart->font(), ChartText::KeepSize);
        auto* fiberName = Find<QLabel>(w, "labNutrient5");
        QVERIFY(QFontMetricsF(g.font).height() >= QFontMetricsF(fiberName->font()).height());
        QCOMPARE(chart->BarAt(g.bars.at(kFiber).bar.center()), int(kFiber));
        QCOMPARE(chart->BarAt(g.bars.at(kSodium).nameRect.center()), int(kSodium));
        QTest::mouseClick(chart, Qt::LeftButton, {}, g.bars.at(kCalcium).nameRect.center().toPoint());
        auto* dialog = Find<RichInDialog>(w, "frmRichIn");
        QVERIFY(dialog->isVisible());
        QCOMPARE(Find<QComboBox>(*dialog, "comRichNutrient")->currentIndex(), int(kCalcium));
        dialog->reject();
        QCOMPARE(fiberName->toolTip(), QStringLiteral("Foods rich in Fiber"));
        QTest::mouseClick(fiberName, Qt::LeftButton);
        QCOMPARE(Find<QComboBox>(*dialog, "comRichNutrient")->currentIndex(), int(kFiber));

        // 4 g of 21: the carrots bring the day to its DV with the fewest
        // calories; Enter takes them, Enter adds them.
        Find<QCheckBox>(*dialog, "chkRichGap")->click();
        QTest::keyClick(Find<QTableView>(*dialog, "gridRich"), Qt::Key_Return);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(tabs->currentWidget(), &chooser);
        QCOMPARE(Find<QComboBox>(chooser, "comQuantity")->currentText(), QStringLiteral("8-1/2"));
        QCOMPARE(Find<QComboBox>(chooser, "comTier3")->currentText(), QStringLiteral("1 medium"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(program.session.foodList.Count(), 2);
        QCOMPARE(program.session.foodList.Entry(2).description, std::string("Raw"));
        QCOMPARE(program.session.foodList.Totals()[kFiber], program.session.dailyValues[kFiber]);

        // The Database menu opens it on the nutrient the day lacks most.
        Find<QAction>(w, "mnuRichIn")->trigger();
        QCOMPARE(Find<QComboBox>(*dialog, "comRichNutrient")->currentIndex(), int(kProtein));
        dialog->reject();
    }

    void TheShellPrintsTheRanking()
    {
        const Shell shell;
        auto [status, out, err] = shell.Run({"--rich-in", "FIBER", "--top", "3"});
        QCOMPARE(status, 0);
        QCOMPARE(out, QStringLiteral("1\tVegetables\tPeas\tGreen, frozen\t1 cup\t6\n"
                                     "2\tFruits\tApples\tRaw, with skin\t1 medium\t4\n"
                                     "3\tFruits\tApples\tRaw, with skin\t1 cup slices\t3\n"));
        QVERIFY(err.isEmpty());
        std::tie(status, out, err) = shell.Run({"--rich-in", "Iron"});
        QCOMPARE(status, 1);
        QVERIFY(out.isEmpty() && err.startsWith("Unknown nutrient \"Iron\". Give one of:\n  Calories\n"));
        std::tie(status, out, err) = shell.Run({"--help"});
        QVERIFY(status == 0 && out.contains("--rich-in <NUTRIENT>") && out.contains("--per-100-calories"));
        // The folder is only read.
        QCOMPARE(shell.folder.Read("data.dat"), shell.data);
        for (const char* name : {"pw.ini", "default.pwp", "pw.lock"})
            QVERIFY(!std::filesystem::exists(shell.folder.File(name)));
    }
};

QTEST_MAIN(RichInDialogTest)
#include "RichInDialogTest.moc"
