// Speed of the foods rich in a nutrient on a full table of 4,000 foods: the
// ranking alone on each basis, the gap, and the dialog's table filled (and
// painted) offscreen, as a change of nutrient or basis does it.
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QTableView>
#include <benchmark/benchmark.h>

#include "fooddb/FoodGroups.h"
#include "foodlist/FoodSession.h"
#include "richin/RichIn.h"
#include "richin/views/RichInDialog.h"
#include "FakeSeams.h"

namespace {

using namespace pw;

// 4,000 foods in the 17 groups with varied values, some without calories.
FoodTable FullTable()
{
    FoodTable table;
    std::uint32_t seed = 12345;
    const auto next = [&seed](int limit) {
        seed = seed * 1103515245u + 12345u;
        return static_cast<int>((seed >> 16) % static_cast<std::uint32_t>(limit));
    };
    for (int i = 0; i < kFoodCapacity; ++i) {
        FoodRecord r;
        r.group = std::string(kGroupNames[static_cast<std::size_t>(i * kGroupCount / kFoodCapacity)]);
        r.subgroup = "Subgroup " + std::to_string(i / 40);
        r.description = "Food number " + std::to_string(i) + ", raw, with its longer description";
        r.measure = "1 cup";
        const int protein = next(30), carbs = next(80), fats = next(40);
        const bool water = next(20) == 0;
        r.values = {water ? 0 : ComputeCalories(protein, carbs, fats, 0), water ? 0 : protein, water ? 0 : carbs,
                    water ? 0 : fats, next(300), next(15), next(500), next(2000), 0};
        table.Append(r);
    }
    return table;
}

void BM_RankFoods(benchmark::State& state)
{
    const FoodTable table = FullTable();
    const RichQuery query{kFiber, state.range(0) == 0 ? RichBasis::PerServing : RichBasis::Per100Calories, kAllGroups,
                          RichOrder::Most};
    for (auto _ : state)
        benchmark::DoNotOptimize(RankFoods(table, query));
}
BENCHMARK(BM_RankFoods)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_FillGap(benchmark::State& state)
{
    const FoodTable table = FullTable();
    for (auto _ : state)
        benchmark::DoNotOptimize(FillGap(table, kFiber, kAllGroups, 10, 26));
}
BENCHMARK(BM_FillGap)->Unit(benchmark::kMicrosecond);

// Argument: 0 per serving, 1 per 100 calories; painted: the table's visible
// rows drawn as well.
void FillGrid(benchmark::State& state, bool painted)
{
    FoodSession session;
    session.foodTable = FullTable();
    session.dailyValues = {2100, 63, 304, 70, 315, 26, 840, 2494};
    test::FakeSeams fakes;
    RichInDialog dialog(session, fakes.seams, nullptr);
    dialog.resize(900, 600);
    dialog.SetProfileComplete(true);
    dialog.findChild<QComboBox*>(QStringLiteral("comRichBasis"))->setCurrentIndex(static_cast<int>(state.range(0)));
    auto* grid = dialog.findChild<QTableView*>(QStringLiteral("gridRich"));
    auto* nutrient = dialog.findChild<QComboBox*>(QStringLiteral("comRichNutrient"));
    QImage image(grid->size(), QImage::Format_ARGB32_Premultiplied);
    int n = 0;
    for (auto _ : state) {
        nutrient->setCurrentIndex(n++ % kShownNutrients);
        dialog.FillGrid();
        if (painted)
            grid->render(&image);
    }
    if (dialog.RowCount() < 3800)
        state.SkipWithError("the table was not filled");
}
void BM_FillGrid(benchmark::State& state) { FillGrid(state, false); }
void BM_FillGridAndPaint(benchmark::State& state) { FillGrid(state, true); }
BENCHMARK(BM_FillGrid)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FillGridAndPaint)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
