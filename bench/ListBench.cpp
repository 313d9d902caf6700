// Speed of one step of the food list on a nearly full list: a row added to
// 499 rows, and that add undone, each with the grid and the chart shown and
// repainted (offscreen), as the main window wires them.
#include <QApplication>
#include <QEvent>
#include <QTableView>
#include <benchmark/benchmark.h>

#include "analysis/DailyValues.h"
#include "foodlist/FoodSession.h"
#include "foodlist/views/FoodListModel.h"
#include "printing/Report.h"
#include "printing/views/NutrientChart.h"

namespace {

using namespace pw;

// Counts the paints a widget receives.
struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

FoodListEntry Row(int r)
{
    FoodListEntry e{0, "2-1/2", "Breakfast Cereals", "Ready-to-eat " + std::to_string(r),
                    "Wheat and malted barley flakes, fortified with vitamins and minerals", "1 cup", {}, {}};
    e.amounts = {100 + r, 12, 30, 4, 15, 3, 250, 1190, 0};
    e.percents = {5, 24, 10, 6, 5, 12, 31, 50};
    return e;
}

struct Window {
    FoodSession session;
    FoodListModel model{session};
    QTableView grid;
    NutrientChart chart;
    Paints gridPaints, chartPaints;

    Window()
    {
        session.dailyValues = ComputeDailyValues(150, kSexFemale, kLifestyleSedentary);
        for (int r = 0; r < kFoodListCapacity - 1; ++r)
            session.foodList.Append(Row(r));
        grid.setModel(&model);
        grid.resize(760, 300);
        chart.resize(760, 300);
        QObject::connect(&model, &FoodListModel::listChanged, &chart, [this] {
            chart.SetData(BuildChartData(session.dailyValues, session.foodList.Totals()));
        });
        grid.viewport()->installEventFilter(&gridPaints);
        chart.installEventFilter(&chartPaints);
        grid.show();
        chart.show();
        QCoreApplication::processEvents();
    }
    void Settle() { QCoreApplication::processEvents(); }
};

void BM_AddTo499Rows(benchmark::State& state)
{
    Window w;
    for (auto _ : state) {
        w.model.AddRow(Row(1000));
        w.grid.scrollToBottom();
        w.Settle();
        state.PauseTiming();
        w.model.Undo();
        w.Settle();
        state.ResumeTiming();
    }
    state.counters["grid paints"] = benchmark::Counter(w.gridPaints.count, benchmark::Counter::kAvgIterations);
    state.counters["chart paints"] = benchmark::Counter(w.chartPaints.count, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_AddTo499Rows)->Unit(benchmark::kMillisecond);

void BM_UndoTheAdd(benchmark::State& state)
{
    Window w;
    for (auto _ : state) {
        state.PauseTiming();
        w.model.AddRow(Row(1000));
        w.grid.scrollToBottom();
        w.Settle();
        state.ResumeTiming();
        w.model.Undo();
        w.Settle();
    }
    state.counters["grid paints"] = benchmark::Counter(w.gridPaints.count, benchmark::Counter::kAvgIterations);
    state.counters["chart paints"] = benchmark::Counter(w.chartPaints.count, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_UndoTheAdd)->Unit(benchmark::kMillisecond);

}  // namespace
