#pragma once
// The help file's topics by context number, and the commands of the help
// interface: the contract between the program and pw.hlp, whose topics are
// the anchors "context-N". Every window opens its topic by these names.
namespace pw {

// The help file, in the program folder.
inline constexpr const char* kHelpFileName = "pw.hlp";

enum HelpTopicNumber : int {
    kTopicContents = 0,
    kTopicQuickTutorial = 1,
    kTopicProfile = 2,
    kTopicFoodList = 3,
    kTopicAnalysis = 4,
    kTopicSearch = 5,
    kTopicFavoritesAndDishes = 6,  // also the topic of the list saved as a dish
    kTopicAddCustomFood = 7,
    kTopicCopyToFavorites = 9,
    kTopicTechnicalSupport = 10,
    kTopicRichIn = 11,
    kTopicDays = 12,
};

// Help commands of the help file interface.
inline constexpr int kHelpContext = 1;     // show the topic of a context number
inline constexpr int kHelpHelpOnHelp = 4;  // how to use help
inline constexpr int kHelpIndex = 15;      // passed through unchanged

}  // namespace pw
