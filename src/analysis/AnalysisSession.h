#pragma once
// The food session with the person it is analysed for and the list file it
// was saved to or opened from.
#include <string>

#include "analysis/Profile.h"
#include "foodlist/FoodSession.h"

namespace pw {

struct AnalysisSession : FoodSession {
    Profile profile;  // the measures of the last profile validation
    // The list file last saved or opened (its path in the file system's
    // encoding), empty for none; the main window's caption names it.
    std::string currentListFile;
};

}  // namespace pw
