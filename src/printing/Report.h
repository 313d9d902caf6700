#pragma once
// The printed reports as plain data: a title, the person and date for every
// page's header, and blocks of lines, tables and the nutrient chart, in the
// order they are printed. One renderer draws a report on a printer, a PDF or
// an image; ReportText writes it as plain text. Texts are Latin-1, like every
// text of the model.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "foodlist/FoodList.h"

namespace pw {

namespace texts {

inline constexpr const char* kAnalysisReportTitle = "Platewell - Analysis Report";
inline constexpr const char* kFoodListReportTitle = "Platewell - Food List";
inline constexpr const char* kNeedsCompleteProfile = "The analysis needs a complete profile.";
inline constexpr const char* kTotalRow = "Total";

}  // namespace texts

// Text columns are left-aligned and wrap between words; number columns are
// right-aligned and never wrap.
enum class ColumnKind { Text, Number };

struct ReportColumn {
    std::string caption;
    ColumnKind kind = ColumnKind::Text;

    bool operator==(const ReportColumn&) const = default;
};

struct ReportTable {
    std::vector<ReportColumn> columns;
    std::vector<std::vector<std::string>> rows;  // one text per column
    std::vector<std::string> totals;             // the closing row; empty for none

    bool operator==(const ReportTable&) const = default;
};

// One bar of the chart: the day's intake of a nutrient as percent of its
// daily value.
struct ChartBar {
    std::string name;
    std::int32_t percent = 0;

    bool operator==(const ChartBar&) const = default;
};

// No bars while there are no daily values (no valid profile yet).
struct ChartData {
    std::vector<ChartBar> bars;

    bool operator==(const ChartData&) const = default;
};

// One nutrient over a period: a value per calendar day (none on a day not
// logged, drawn as a gap), the daily value's line when there is one and the
// period's average as a dashed line.
struct SeriesData {
    std::string name;  // "Sodium (mg)"
    std::string firstDate, lastDate;
    std::vector<std::optional<std::int64_t>> values;
    std::optional<std::int64_t> dailyValue;
    std::int64_t average = 0;

    bool operator==(const SeriesData&) const = default;
};

enum class BlockKind { Heading, Lines, Table, Chart, Series };

struct ReportBlock {
    BlockKind kind = BlockKind::Lines;
    std::vector<std::string> lines;  // Heading: its one line; Lines: the lines
    ReportTable table;
    ChartData chart;
    SeriesData series;
};

struct ReportDocument {
    std::string title;
    std::string personName;  // with the date in every page's header
    std::string dateText;
    bool landscape = false;
    std::vector<ReportBlock> blocks;
};

// What a report is made of: the profile of the last validation, the daily
// values and the list.
struct ReportSource {
    const Profile& profile;
    const DailyValues& dailyValues;
    const FoodList& list;
    std::string dateText;  // "2026-11-23"
};

// The nutrient names as the analysis tab shows them, in Nutrient order.
extern const char* const kReportNutrientNames[kShownNutrients];

// Percent of the daily value for each nutrient of the list's totals, rounded
// half to even; no bars without daily values. An overflow is a run-time
// error.
ChartData BuildChartData(const DailyValues& dailyValues, const NutrientValues& totals);

// The person's lines of a report: name, age, sex, height, weight,
// lifestyle, and the BMI with its reading when there are daily values.
std::vector<std::string> PersonLines(const Profile& profile, const DailyValues& dailyValues);

// The analysis: the person, BMI and its reading, the nutrients against their
// daily values, the chart, and every food with its eight amounts and the
// totals. Without a valid profile only the person's entries and the foods.
ReportDocument BuildAnalysisReport(const ReportSource& source);

// The food list on landscape paper: the grid's columns in the given view
// (amounts, or percent of DV) and the totals.
ReportDocument BuildFoodListReport(const ReportSource& source, bool byUnits);

// The report as plain text: lines, then tables in padded columns (numbers
// right-aligned); the chart is left out, its values stand in the tables.
// Lines end with "\n".
std::string ReportText(const ReportDocument& report);

// The list as comma-separated values (RFC 4180, CR LF line ends), UTF-8 with
// a byte-order mark: a header row, one row per food with the quantity as
// typed and the eight amounts, and a "Total" row.
std::string FoodListCsv(const FoodList& list);

// One comma-separated row (RFC 4180: a field with a comma, a quote or a
// line break quoted, its quotes doubled), ended by CR LF, appended to out.
void AppendCsvField(const std::string& field, std::string& out);
void AppendCsvRow(const std::vector<std::string>& fields, std::string& out);

// A name to propose for an exported file: the person's name (or "Platewell")
// and the date, without characters a file name cannot hold.
std::string ProposedReportName(const std::string& personName, const std::string& dateText);

}  // namespace pw
