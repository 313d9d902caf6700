#pragma once
// Everything the program shares between its windows, owned by main and handed
// to each window by reference: no mutable globals.
#include <string>

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "fooddb/FoodEditing.h"
#include "fooddb/FoodTable.h"
#include "foodlist/ChooserState.h"
#include "foodlist/FoodList.h"
#include "foodlist/TierMap.h"
#include "shell/Settings.h"

namespace pw {

inline constexpr const char* kProgramVersionText = "2.04W";
inline constexpr const char* kHelpVersionText = "2.02";
inline constexpr const char* kDataFileName = "data.dat";
// Held by the running program so a second copy does not use the same folder.
inline constexpr const char* kLockFileName = "pw.lock";

struct Session {
    std::string programFolder;
    FoodTable foodTable;
    // Every insert into foodTable goes through this one inserter, which
    // keeps its insert position from one insert to the next.
    FoodInserter foodInserter;
    Settings settings;
    TierMap tierMap;
    ChooserState chooser;  // the food and quantity being chosen
    FoodList foodList;     // the foods chosen, shown in the main grid
    bool tutorialPending = false;
    Profile profile;            // the measures of the last profile validation
    DailyValues dailyValues{};  // kept while the profile is invalid
    // The list file last saved or opened (its path in the file system's
    // encoding), empty for none; the main window's caption names it.
    std::string currentListFile;
    // Set when the program is ending, by its shutdown or by a run-time
    // error; from then on nothing more is written.
    bool ended = false;
};

}  // namespace pw
