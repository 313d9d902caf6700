#include "days/PeriodReport.h"

#include "analysis/DailyValues.h"

namespace pw {

const char* const kPeriodNutrientCaptions[kShownNutrients] = {
    "Calories", "Protein (g)", "Carbs (g)", "Fats (g)", "Cholest. (mg)", "Fiber (g)", "Calcium (mg)", "Sodium (mg)"};

namespace {

ReportBlock Block(BlockKind kind, std::vector<std::string> lines = {})
{
    ReportBlock block;
    block.kind = kind;
    block.lines = std::move(lines);
    return block;
}

std::string Join(const std::vector<std::string>& parts, const char* separator)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : separator) + part;
    return text;
}

ReportTable DaysTable(const Period& period)
{
    ReportTable table;
    table.columns = {{"Date", ColumnKind::Text}, {"Files", ColumnKind::Number}, {"Foods", ColumnKind::Number}};
    for (const char* caption : kPeriodNutrientCaptions)
        table.columns.push_back({caption, ColumnKind::Number});
    for (const PeriodDay& day : period.days) {
        std::vector<std::string> cells = {DayDateText(day), std::to_string(day.files.size()),
                                          std::to_string(day.foods.size())};
        for (int n = 0; n < kShownNutrients; ++n)
            cells.push_back(DayCellText(day, n, true));
        table.rows.push_back(std::move(cells));
    }
    table.totals = {texts::kAverageRow, "", std::to_string(period.AverageFoods())};
    for (int n = 0; n < kShownNutrients; ++n)
        table.totals.push_back(std::to_string(period.Average(n)));
    return table;
}

ReportTable AveragesTable(const Period& period)
{
    const PeriodDay* latest = period.LatestDayWithDailyValues();
    ReportTable table;
    table.columns = {{"Nutrient", ColumnKind::Text},
                     {"Daily Value (DV)", ColumnKind::Number},
                     {"Average Intake", ColumnKind::Number},
                     {"Average % of DV", ColumnKind::Number},
                     {texts::kDaysOverRow, ColumnKind::Number}};
    for (int n = 0; n < kShownNutrients; ++n) {
        const auto nutrient = static_cast<Nutrient>(n);
        const auto percent = period.AveragePercent(n);
        const std::int64_t average = period.Average(n);
        table.rows.push_back(
            {kReportNutrientNames[n],
             latest && latest->haveDailyValues ? DailyValueText(nutrient, latest->dailyValues[n]) : std::string(),
             average >= INT32_MIN && average <= INT32_MAX ? DailyValueText(nutrient, static_cast<std::int32_t>(average))
                                                          : std::to_string(average),
             percent ? std::to_string(*percent) + "%" : std::string(), std::to_string(period.DaysOver(n))});
    }
    return table;
}

ReportTable TopFoodsTable(const std::vector<TopFood>& foods, int nutrient)
{
    ReportTable table;
    table.columns = {{"Food", ColumnKind::Text},
                     {"Measure", ColumnKind::Text},
                     {kPeriodNutrientCaptions[nutrient], ColumnKind::Number},
                     {"Share", ColumnKind::Number}};
    for (const TopFood& food : foods) {
        std::vector<std::string> name;
        for (const std::string* part : {&food.group, &food.subgroup, &food.description})
            if (!part->empty())
                name.push_back(*part);
        table.rows.push_back({Join(name, " / "), food.measure, std::to_string(food.amount),
                              std::to_string(food.share) + "%"});
    }
    return table;
}

}  // namespace

std::string FileNameText(const std::string& name)
{
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto c = static_cast<unsigned char>(name[i]);
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else if ((c == 0xC2 || c == 0xC3) && i + 1 < name.size() &&
                   (static_cast<unsigned char>(name[i + 1]) & 0xC0) == 0x80) {
            text += static_cast<char>(((c & 0x03) << 6) | (static_cast<unsigned char>(name[i + 1]) & 0x3F));
            ++i;
        } else if ((c & 0xC0) != 0x80) {
            text += '?';
        }
    }
    return text;
}

std::string DayDateText(const PeriodDay& day)
{
    return DateText(day.date) + (day.dateFromModified ? std::string(" (") + texts::kModifiedMark + ")" : "");
}

std::string DayCellText(const PeriodDay& day, int nutrient, bool byUnits)
{
    if (byUnits)
        return std::to_string(day.totals[nutrient]);
    const auto percent = day.Percent(nutrient);
    return percent ? std::to_string(*percent) + "%" : std::string();
}

SeriesData BuildSeries(const Period& period, int nutrient)
{
    SeriesData series;
    series.name = kPeriodNutrientCaptions[nutrient];
    if (period.Empty())
        return series;
    series.firstDate = DateText(period.days.front().date);
    series.lastDate = DateText(period.days.back().date);
    series.values.resize(static_cast<std::size_t>(period.CalendarDays()));
    for (const PeriodDay& day : period.days)
        series.values[static_cast<std::size_t>(day.date - period.days.front().date)] = day.totals[nutrient];
    if (const PeriodDay* latest = period.LatestDayWithDailyValues())
        series.dailyValue = latest->dailyValues[nutrient];
    series.average = period.Average(nutrient);
    return series;
}

std::string LostFoodLine(const LostFood& lost)
{
    std::vector<std::string> dates;
    for (DaySerial date : lost.dates)
        dates.push_back(DateText(date));
    return lost.tierPath + ": " + Join(dates, ", ");
}

std::string SkippedFileLine(const SkippedFile& skipped) { return FileNameText(skipped.path) + ": " + skipped.reason; }

ReportDocument BuildPeriodReport(const Period& period, const std::string& dateText, std::size_t topCount)
{
    ReportDocument report;
    report.title = texts::kPeriodReportTitle;
    report.dateText = dateText;
    const PeriodDay* latest = period.LatestDay();
    if (latest != nullptr) {
        report.personName = latest->profile.inputs.name;
        report.blocks.push_back(Block(BlockKind::Heading, {"Person"}));
        report.blocks.push_back(Block(BlockKind::Lines, PersonLines(latest->profile, latest->dailyValues)));
    }
    report.blocks.push_back(Block(BlockKind::Heading, {"Period"}));
    report.blocks.push_back(Block(BlockKind::Lines, {period.PeriodLine() + ".", texts::kAveragesPerLoggedDay}));
    if (!period.Empty()) {
        ReportBlock days = Block(BlockKind::Table);
        days.table = DaysTable(period);
        report.blocks.push_back(Block(BlockKind::Heading, {"Days"}));
        report.blocks.push_back(std::move(days));

        report.blocks.push_back(Block(BlockKind::Heading, {"Averages against daily values"}));
        ReportBlock averages = Block(BlockKind::Table);
        averages.table = AveragesTable(period);
        report.blocks.push_back(std::move(averages));
        ReportBlock chart = Block(BlockKind::Chart);
        for (int n = 0; n < kShownNutrients; ++n)
            if (const auto percent = period.AveragePercent(n))
                chart.chart.bars.push_back(
                    {kReportNutrientNames[n], static_cast<std::int32_t>(std::min<std::int64_t>(*percent, INT32_MAX))});
        if (chart.chart.bars.size() != kShownNutrients)
            chart.chart.bars.clear();
        report.blocks.push_back(std::move(chart));

        report.blocks.push_back(Block(BlockKind::Heading, {"Nutrients over the days"}));
        for (int n = 0; n < kShownNutrients; ++n) {
            ReportBlock series = Block(BlockKind::Series);
            series.series = BuildSeries(period, n);
            report.blocks.push_back(std::move(series));
        }

        for (int n = 0; n < kShownNutrients; ++n) {
            const std::vector<TopFood> foods = period.TopFoods(n, topCount);
            if (foods.empty())
                continue;
            if (report.blocks.back().kind == BlockKind::Series)
                report.blocks.push_back(Block(BlockKind::Heading, {"Top foods"}));
            ReportBlock table = Block(BlockKind::Table);
            table.table = TopFoodsTable(foods, n);
            report.blocks.push_back(std::move(table));
        }
    }
    if (!period.lost.empty()) {
        std::vector<std::string> lines;
        for (const LostFood& lost : period.lost)
            lines.push_back(LostFoodLine(lost));
        report.blocks.push_back(Block(BlockKind::Heading, {"Foods no longer in the database"}));
        report.blocks.push_back(Block(BlockKind::Lines, std::move(lines)));
    }
    if (!period.skipped.empty()) {
        std::vector<std::string> lines;
        for (const SkippedFile& skipped : period.skipped)
            lines.push_back(SkippedFileLine(skipped));
        report.blocks.push_back(Block(BlockKind::Heading, {"Files left out"}));
        report.blocks.push_back(Block(BlockKind::Lines, std::move(lines)));
    }
    return report;
}

std::string PeriodText(const Period& period, const std::string& dateText)
{
    return ReportText(BuildPeriodReport(period, dateText, 10));
}

}  // namespace pw
