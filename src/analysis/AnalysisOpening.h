#pragma once
// A list file opened without a window, as File > Open opens it: the profile
// lines applied to a fresh profile and validated, then each entry's food
// found again by its four texts, its quantity parsed again and its values
// scaled; a food no longer in the table is told and dropped.
#include <string>
#include <vector>

#include "analysis/AnalysisFile.h"
#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "fooddb/FoodTable.h"
#include "foodlist/FoodList.h"

namespace pw {

struct OpenedAnalysis {
    Profile profile;            // validated, with its inputs
    DailyValues dailyValues{};  // all 0 while the profile is not valid
    FoodList list;
    // The messages the window would show while opening, in order, each a
    // text and its title.
    std::vector<std::pair<std::string, std::string>> messages;
    bool valid = true;  // false: the file is not a list file
};

// Never throws: a run-time error while opening makes the result invalid.
OpenedAnalysis OpenAnalysis(const AnalysisFileContent& content, const FoodTable& table, int currentYear);

}  // namespace pw
