// Speed of the reports: building the analysis of a full list (500 rows) and
// rendering it to a PDF, and one repaint of the analysis tab's chart.
#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include "analysis/DailyValues.h"
#include "printing/views/NutrientChart.h"
#include "printing/Report.h"
#include "printing/views/ReportRenderer.h"

namespace {

using namespace pw;

struct FullDay {
    Profile profile;
    DailyValues dailyValues = ComputeDailyValues(150, kSexFemale, kLifestyleSedentary);
    FoodList list;
    FullDay()
    {
        ValidateProfile({"Ann Example", "62", "64", "150", kMeasurementEnglish, kSexFemale, kLifestyleSedentary}, 2026,
                        profile);
        for (int r = 0; r < kFoodListCapacity; ++r) {
            FoodListEntry e{0, "2-1/2", "Breakfast Cereals", "Ready-to-eat " + std::to_string(r),
                            "Wheat and malted barley flakes, fortified with vitamins and minerals", "1 cup", {}, {}};
            e.amounts = {100 + r, 12, 30, 4, 15, 3, 250, 1190, 0};
            list.Append(e);
        }
    }
    ReportSource Source() const { return {profile, dailyValues, list, "2026-11-23"}; }
};

void BM_BuildAnalysisReport500(benchmark::State& state)
{
    const FullDay day;
    for (auto _ : state)
        benchmark::DoNotOptimize(BuildAnalysisReport(day.Source()));
}
BENCHMARK(BM_BuildAnalysisReport500)->Unit(benchmark::kMillisecond);

void BM_AnalysisReport500ToPdf(benchmark::State& state)
{
    const FullDay day;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("report.pdf"));
    for (auto _ : state) {
        const ReportDocument report = BuildAnalysisReport(day.Source());
        if (!WriteReportPdf(report, path))
            state.SkipWithError("the PDF was not written");
    }
}
BENCHMARK(BM_AnalysisReport500ToPdf)->Unit(benchmark::kMillisecond);

void BM_ChartRepaint(benchmark::State& state)
{
    const FullDay day;
    NutrientChart chart;
    chart.resize(760, 300);
    chart.SetData(BuildChartData(day.dailyValues, day.list.Totals()));
    QImage image(chart.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        chart.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(BM_ChartRepaint)->Unit(benchmark::kMicrosecond);

}  // namespace
