#pragma once
// What the food-list windows and the food-table dialogs share: the food
// table, the chooser's state and the list built from it. One object, owned by
// main and handed to each window by reference; the analysis and the shell
// extend it with what only they need.
#include <string>

#include "fooddb/FoodEditing.h"
#include "fooddb/FoodTable.h"
#include "foodlist/ChooserState.h"
#include "foodlist/FoodList.h"
#include "foodlist/TierMap.h"

namespace pw {

struct FoodSession {
    std::string programFolder;
    FoodTable foodTable;
    // Every insert into foodTable goes through this one inserter, which
    // keeps its insert position from one insert to the next.
    FoodInserter foodInserter;
    TierMap tierMap;
    ChooserState chooser;  // the food and quantity being chosen
    FoodList foodList;     // the foods chosen, shown in the main grid
    DailyValues dailyValues{};  // the person's, kept while the profile is invalid
    // Set when the program is ending, by its shutdown or by a run-time
    // error; from then on nothing more is written.
    bool ended = false;
};

}  // namespace pw
