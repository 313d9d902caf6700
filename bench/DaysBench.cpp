// Speed of a year of days: 365 list files of 100 foods each on the
// delivered food database, read and summed, exported as CSV, built into the
// period report and rendered as PDF; the days window opening the folder and
// showing another nutrient.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>

#include "core/LineFile.h"
#include "core/views/SeriesChart.h"
#include "days/DayFiles.h"
#include "days/PeriodReport.h"
#include "days/views/DaysWindow.h"
#include "fooddb/DataFile.h"
#include "printing/views/ReportRenderer.h"
#include "../tests/support/FakeSeams.h"

namespace {

using namespace pw;

constexpr int kDays = 365;
constexpr int kFoodsPerDay = 100;

// The delivered table and a folder of a year of lists made from it.
struct Year {
    FoodTable table;
    QTemporaryDir dir;
    std::string folder;

    Year()
    {
        LoadDatabaseHeader(ReadWholeFile(PLATEWELL_SOURCE_DIR "/data/data.dat", kDataFileLimit), table);
        LoadDatabaseRecords(table);
        folder = dir.path().toStdString();
        const std::string profile =
            "NAME:Ann Example\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n";
        const char* quantities[] = {"1", "2", "1/2", "2-1/2", "1/3"};
        for (int d = 0; d < kDays; ++d) {
            std::string bytes = profile;
            for (int f = 0; f < kFoodsPerDay; ++f) {
                const int i = (d * 37 + f * 101) % table.Count();
                bytes += "ITEM: " + std::to_string(i) + " \t" + quantities[(d + f) % 5] + "\t" + table.Group(i) + "\t" +
                         table.Subgroup(i) + "\t" + table.Description(i) + "\t" + table.Measure(i) + "\r\n";
            }
            char name[32];
            std::snprintf(name, sizeof name, "day %s.pwl", DateText(20454 + d).c_str());  // from 2026-01-01
            WriteFileAtomic(JoinPath(folder, name), bytes);
        }
    }
    Period Read() const { return ReadPeriod({folder}, table, 2026); }
};

const Year& TheYear()
{
    static const Year year;
    return year;
}

void BM_ReadAndSumYear(benchmark::State& state)
{
    const Year& year = TheYear();
    for (auto _ : state) {
        const Period period = year.Read();
        if (period.days.size() != kDays)
            state.SkipWithError("not every day was read");
    }
}
BENCHMARK(BM_ReadAndSumYear)->Unit(benchmark::kMillisecond);

void BM_DaysCsvYear(benchmark::State& state)
{
    const Period period = TheYear().Read();
    for (auto _ : state) {
        benchmark::DoNotOptimize(PeriodDaysCsv(period));
        benchmark::DoNotOptimize(PeriodFoodsCsv(period));
    }
}
BENCHMARK(BM_DaysCsvYear)->Unit(benchmark::kMillisecond);

void BM_BuildPeriodReportYear(benchmark::State& state)
{
    const Period period = TheYear().Read();
    for (auto _ : state)
        benchmark::DoNotOptimize(BuildPeriodReport(period, "2026-12-31"));
}
BENCHMARK(BM_BuildPeriodReportYear)->Unit(benchmark::kMillisecond);

void BM_PeriodPdfYear(benchmark::State& state)
{
    const Period period = TheYear().Read();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("period.pdf"));
    for (auto _ : state)
        if (!WriteReportPdf(BuildPeriodReport(period, "2026-12-31"), path))
            state.SkipWithError("the PDF was not written");
}
BENCHMARK(BM_PeriodPdfYear)->Unit(benchmark::kMillisecond);

// The window opening the year's folder: read, summed and shown.
void BM_WindowOpensYear(benchmark::State& state)
{
    const Year& year = TheYear();
    test::FakeSeams fakes;
    QTemporaryDir dir;
    for (auto _ : state) {
        DaysWindow window(year.table, fakes.seams, dir.filePath(QStringLiteral("days.ini")));
        window.AddPaths({QString::fromStdString(year.folder)});
        benchmark::DoNotOptimize(window.CurrentPeriod().days.size());
    }
}
BENCHMARK(BM_WindowOpensYear)->Unit(benchmark::kMillisecond);

// Another nutrient chosen: its chart and top foods made again and painted.
void BM_ChangeNutrientYear(benchmark::State& state)
{
    const Year& year = TheYear();
    test::FakeSeams fakes;
    QTemporaryDir dir;
    DaysWindow window(year.table, fakes.seams, dir.filePath(QStringLiteral("days.ini")));
    window.resize(1000, 700);
    window.AddPaths({QString::fromStdString(year.folder)});
    auto* nutrient = window.findChild<QComboBox*>(QStringLiteral("comDaysNutrient"));
    QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
    int n = 0;
    for (auto _ : state) {
        nutrient->setCurrentIndex(++n % kShownNutrients);
        window.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(BM_ChangeNutrientYear)->Unit(benchmark::kMillisecond);

}  // namespace
