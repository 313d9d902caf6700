#pragma once
// A list file opened without a window, as File > Open opens it: the profile
// lines applied to a fresh profile and validated, then each entry's food
// found again by its four texts, its quantity parsed again and its values
// scaled; a food no longer in the table is told and dropped.
#include <functional>
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

// "3" of an old measure as a quantity of a new one numerator / denominator
// times its size: "1.5" for 3 x 1/2, to two decimals (never 0), a quantity
// the quantity box reads. A text that is no positive quantity stays as it is.
std::string ScaledQuantityText(const std::string& quantityText, std::int32_t numerator, std::int32_t denominator);

// The item's food in table: by its four texts, else, for a food the
// delivered database renamed, by its new texts, the quantity scaled to the
// new measure. Returns the item as found (renamed or not); index is -1 when
// the food is not there, or when the scaled quantity would exceed what the
// quantity box takes.
AnalysisItem LocateItem(const AnalysisItem& item, const FoodTable& table, std::int16_t& index);

// The items of a list file turned back into rows, in file order: each
// item's food found again by its four texts (or its old texts, when the
// delivered database renamed it), its quantity parsed again and
// its values scaled with the daily values, then handed to row. An item whose
// food is no longer in the table is handed to missing, as its message, and
// dropped. An overflow is a run-time error, and so is a row more than a list
// holds, when row appends to a FoodList.
void OpenItems(const std::vector<AnalysisItem>& items, const FoodTable& table, const DailyValues& dailyValues,
               const std::function<void(FoodListEntry)>& row, const std::function<void(const std::string&)>& missing);

// Never throws: a run-time error while opening makes the result invalid.
OpenedAnalysis OpenAnalysis(const AnalysisFileContent& content, const FoodTable& table, int currentYear);

}  // namespace pw
