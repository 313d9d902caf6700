// The days window built alone on the fakes: adding files and a folder,
// removing days, the View setting, the chosen nutrient, the lost foods and
// the files left out, the remembered folder and the CSV export.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>
#include <filesystem>

#include "FakeSeams.h"
#include "Fixtures.h"
#include "TempFolder.h"
#include "WindowTestSupport.h"
#include "core/views/SeriesChart.h"
#include "days/PeriodReport.h"
#include "days/views/DaysWindow.h"

using namespace pw;
using namespace pw::test;

namespace {

constexpr const char* kAnn = "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";
const std::string kMilk = "ITEM: 6 \t1\tDairy and Eggs\tMilk\tWhole\t1 cup\r\n";
const std::string kBread = "ITEM: 0 \t3\tBakery and Grains\tBread\tWhite\t1 slice\r\n";
const std::string kChips = "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\n";

QString Text(const QTableWidget& grid, int row, int column)
{
    const QTableWidgetItem* item = grid.item(row, column);
    return item ? item->text() : QString();
}

}  // namespace

class DaysWindowTest : public QObject {
    Q_OBJECT

private slots:
    void AddsShowsAndRemovesDays()
    {
        TempFolder folder;
        std::filesystem::create_directories(folder.File("diary"));
        std::filesystem::create_directories(folder.File("more"));
        folder.Write("diary/2026-11-01 a.pwl", kAnn + kMilk);
        folder.Write("diary/2026-11-01 b.pwl", kAnn + kBread + kChips);
        folder.Write("diary/2026-11-03.pwl", kAnn + kMilk + kChips);
        folder.Write("diary/2026-11-04.pwl", "NAME:Cy\r\n" + kBread);  // no daily values
        folder.Write("diary/2026-11-05 bad.pwl", "nothing of a list\r\n");
        folder.Write("more/2026-11-08.pwl", kAnn + kBread);
        folder.Write("more/2026-11-09.pwl", kAnn + kMilk);
        const QString settings = QString::fromStdString(folder.File("days.ini"));

        FakeSeams fakes;
        const FoodTable table = SampleTable();
        DaysWindow window(table, fakes.seams, settings);
        auto* grid = Find<QTableWidget>(window, "gridDays");
        auto* period = Find<QLabel>(window, "labDaysPeriod");
        QCOMPARE(grid->rowCount(), 0);
        QVERIFY(!Find<QPushButton>(window, "btnDaysPdf")->isEnabled());

        fakes.files.answers.push_back(QString::fromStdString(folder.File("diary")));
        Find<QPushButton>(window, "btnDaysAddFolder")->click();
        QCOMPARE(grid->rowCount(), 3 + 2);  // three days, the average and the days over
        QVERIFY(period->text().startsWith("3 days logged from 2026-11-01 to 2026-11-04 (4 calendar days)"));
        QCOMPARE(Text(*grid, 0, 1), QStringLiteral("2"));            // two files on the first day
        QCOMPARE(Text(*grid, 0, 3 + kSodium), QStringLiteral("608"));  // 98 + 3 x 170
        QCOMPARE(Text(*grid, 3, 0), QStringLiteral("Average"));
        QCOMPARE(Text(*grid, 4, 0), QStringLiteral("Days over DV"));
        auto* lost = Find<QListWidget>(window, "lstDaysLostFoods");
        QCOMPARE(lost->count(), 1);
        QCOMPARE(lost->item(0)->text(), QStringLiteral("Snacks/Chips/Potato/1 oz: 2026-11-01, 2026-11-03"));
        auto* skipped = Find<QListWidget>(window, "lstDaysSkipped");
        QCOMPARE(skipped->count(), 1);
        QVERIFY(skipped->item(0)->text().endsWith("2026-11-05 bad.pwl: is not a valid Platewell .pwl file"));

        // The View setting: percents of each day's own DV; none without DV.
        window.SetViewByUnits(false);
        QCOMPARE(Text(*grid, 0, 3 + kSodium), QStringLiteral("24%"));  // 608 / 2494
        QCOMPARE(Text(*grid, 2, 3 + kSodium), QString());
        window.SetViewByUnits(true);

        // The chosen nutrient: its chart with a gap on 2026-11-02, its top foods.
        Find<QComboBox>(window, "comDaysNutrient")->setCurrentIndex(kSodium);
        const SeriesPicture& picture = Find<SeriesChart>(window, "chartDays")->Picture();
        QCOMPARE(picture.name, QStringLiteral("Sodium (mg)"));
        QCOMPARE(picture.values.size(), std::size_t(4));
        QVERIFY(!picture.values[1].has_value());
        QCOMPARE(picture.reference.value_or(0), 2494.0);
        auto* top = Find<QTableWidget>(window, "gridDaysTopFoods");
        QCOMPARE(top->rowCount(), 2);
        QCOMPARE(Text(*top, 0, 0), QStringLiteral("1020"));
        QCOMPARE(Text(*top, 0, 2), QStringLiteral("Bakery and Grains / Bread / White (1 slice)"));

        // Several files at once, from one dialog.
        fakes.files.answers.push_back(QString::fromStdString(folder.File("more/2026-11-08.pwl") + "\n" +
                                                             folder.File("more/2026-11-09.pwl")));
        Find<QPushButton>(window, "btnDaysAddFiles")->click();
        QCOMPARE(window.CurrentPeriod().days.size(), std::size_t(5));
        QCOMPARE(fakes.files.openRequests.back().filter, QStringLiteral("Platewell analyses (*.pwl)|*.pwl"));

        // Removing the first day removes both of its files.
        grid->selectRow(0);
        QVERIFY(Find<QPushButton>(window, "btnDaysRemove")->isEnabled());
        Find<QPushButton>(window, "btnDaysRemove")->click();
        QCOMPARE(window.CurrentPeriod().days.size(), std::size_t(4));
        QCOMPARE(DateText(window.CurrentPeriod().days.front().date), std::string("2026-11-03"));

        // The reports go out by signal; the CSVs are written by the window.
        QSignalSpy printed(&window, &DaysWindow::printRequested);
        Find<QPushButton>(window, "btnDaysPrint")->click();
        QCOMPARE(printed.size(), 1);
        fakes.files.answers.push_back(QString::fromStdString(folder.File("days.csv")));
        Find<QAction>(window, "mnuDaysCsvDays")->trigger();
        QCOMPARE(folder.Read("days.csv"), PeriodDaysCsv(window.CurrentPeriod()));
        fakes.files.answers.push_back(QString::fromStdString(folder.File("no/foods.csv")));
        Find<QAction>(window, "mnuDaysCsvFoods")->trigger();
        QCOMPARE(fakes.prompts.messages.size(), std::size_t(1));  // the failed write told, with its reason
        QVERIFY(fakes.prompts.messages[0].text.contains("No such file or directory"));

        // The last folder is the window's own setting, opened again.
        DaysWindow again(table, fakes.seams, settings);
        again.OpenLastFolder();
        QCOMPARE(again.CurrentPeriod().days.size(), std::size_t(2));  // the folder of the files added last
        QVERIFY(!std::filesystem::exists(folder.File("pw.ini")));
    }
};

QTEST_MAIN(DaysWindowTest)
#include "DaysWindowTest.moc"
