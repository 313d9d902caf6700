#pragma once
// The period as a printed report and as text: the person of the latest
// day, the period, the days with their averages, the averages against the
// daily values with the day's bar chart drawn on them, a small chart of
// each nutrient over the days, the foods behind each nutrient, and the
// foods and files left out.
#include <string>
#include <vector>

#include "days/Period.h"
#include "printing/Report.h"

namespace pw {

namespace texts {

inline constexpr const char* kPeriodReportTitle = "Platewell - Period Report";
inline constexpr const char* kAveragesPerLoggedDay = "Averages are per logged day.";

}  // namespace texts

// The column captions of the eight nutrients with their units.
extern const char* const kPeriodNutrientCaptions[kShownNutrients];

// The date of a day as the table shows it: "2026-11-03", followed by
// " (modified)" when a file was dated by its modification time.
std::string DayDateText(const PeriodDay& day);

// The day's value of a nutrient as the table shows it: the amount, or the
// percent of the day's daily value ("" without daily values).
std::string DayCellText(const PeriodDay& day, int nutrient, bool byUnits);

// The nutrient over the calendar days from the first logged day to the last.
SeriesData BuildSeries(const Period& period, int nutrient);

// A lost food with its days: "Group/Subgroup/Description/Measure: 2026-11-01, 2026-11-03".
std::string LostFoodLine(const LostFood& lost);
// A file left out: "path: reason".
std::string SkippedFileLine(const SkippedFile& skipped);

// The report; topCount foods per nutrient.
ReportDocument BuildPeriodReport(const Period& period, const std::string& dateText, std::size_t topCount = 5);

// The days table, the averages and the top foods as text, lines ended by
// "\n".
std::string PeriodText(const Period& period, const std::string& dateText);

// A file name, as the system gives it (UTF-8), as Latin-1 text; a character
// Latin-1 cannot hold becomes "?".
std::string FileNameText(const std::string& name);

}  // namespace pw
