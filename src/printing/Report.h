#pragma once
// The printed reports, as HTML text (Latin-1, like every text of the
// model): the food list, and the analysis with the profile, age, BMI, the
// daily intake against the daily values and the details of every food.
#include <string>

namespace pw {

struct Session;

// The food list as the grid shows it, in units or as percent of DV, with
// the totals.
std::string FoodListReportHtml(const Session& session, bool byUnits, const std::string& dateText);

// The analysis report. A profile that is not valid prints its entries and
// says the analysis needs a complete profile.
std::string AnalysisReportHtml(const Session& session, const std::string& dateText);

// Text made safe inside HTML: & < > " replaced by their entities.
std::string EscapeHtml(const std::string& text);

}  // namespace pw
