#pragma once
// The food list and analysis file (.pwl): the seven profile lines, then one
// "ITEM:" line per list entry naming the food by its four tier texts, so a
// list still opens after the food table has changed. Latin-1 text, each
// line ended by CR LF.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "analysis/ProfileFile.h"
#include "fooddb/FoodTable.h"
#include "foodlist/FoodList.h"

namespace pw {

inline constexpr const char* kAnalysisExtension = ".pwl";

namespace texts {

inline constexpr const char* kAnalysisFilter = "Platewell analyses (*.pwl)|*.pwl";
inline constexpr const char* kAnalysisSaved = "Analysis saved.";
// The profile tab's title, which the list's save shares.
inline constexpr const char* kTitleAnalysisSaved = "Save Profile";
inline constexpr const char* kSaveListQuestion = "Do you want to save your foodlist?";
inline constexpr const char* kTitleOpenAnalysis = "Open Analysis";
inline constexpr const char* kTitleClearList = "Clear List";
inline constexpr const char* kTitleExit = "Exit";
inline constexpr const char* kTitleOpenList = "Open foodlist/analysis";
// Follows the quoted tier path of a food no longer in the table.
inline constexpr const char* kNoLongerInDatabase = "\r\nis no longer in the database.  It will not be imported.";
// Follows the path of a file that is not a list file (title "Error").
inline constexpr const char* kNotAnAnalysisFile =
    "\r\n"
    "is not a valid Platewell\r\n"
    ".pwl file.";
// The main window's caption: the program's name, with " - " and the path of
// the list file while there is one.
inline constexpr const char* kCaptionFileSeparator = " - ";

}  // namespace texts

// One entry as the file keeps it: where the food was in the table when the
// list was saved, the quantity as typed and the food's four tier texts.
struct AnalysisItem {
    std::int16_t foodIndex = 0;
    std::string quantityText;
    std::string group;
    std::string subgroup;
    std::string description;
    std::string measure;

    bool operator==(const AnalysisItem&) const = default;
};

// The profile lines as the profile file writes them, except that a year of
// birth that is not exactly two characters is written as "YOB:" alone; then
// per entry "ITEM:" + the index in print form (" 123 ") and the quantity and
// the four texts, TAB between each.
std::vector<std::string> AnalysisFileLines(const ProfileInputs& inputs, const FoodList& list);
std::string AnalysisFileBytes(const ProfileInputs& inputs, const FoodList& list);
// Writes the file over path (temporary file and rename); a failure is a
// PathFileAccess run-time error.
void WriteAnalysisFile(const std::string& path, const ProfileInputs& inputs, const FoodList& list);

// The profile settings and the entries of a file, each in file order, up to
// its first bad line.
struct AnalysisFileContent {
    std::vector<ProfileSetting> settings;
    std::vector<AnalysisItem> items;
    bool valid = true;  // false: a bad line, or the file could not be read
    // The file is refused whole, before anything of it is used: larger than
    // any list file, or more entries than a list holds. Then valid is false
    // and settings and items are empty.
    bool refused = false;
};

// Lines are read as the profile file's are (one blank appended, split at the
// first colon, the key matched without regard to case, the value trimmed);
// an "ITEM:" value is split at TABs into the index, the quantity and the four
// texts, any further fields ignored. Besides the profile reader's bad lines,
// an item with fewer than six fields, an index beyond 16 bits, or a quantity
// the quantity parser refuses or that exceeds the largest one the chooser
// takes, is bad. More entries than a list holds refuse the file.
AnalysisFileContent ParseAnalysisBytes(std::string_view bytes);
// Never throws: a missing or unreadable file gives an invalid content.
AnalysisFileContent ReadAnalysisFile(const std::string& path);

// The list entry an item becomes once its food is found at index: its
// quantity parsed again and the food's values scaled by it as the chooser
// scales them, so an entry opened against an unchanged table equals the one
// saved. Without daily values (any of them 0) the percents are 0. An
// overflow is a run-time error.
FoodListEntry OpenedEntry(const FoodTable& table, int index, const AnalysisItem& item,
                          const DailyValues& dailyValues);

// The message for an item whose food is no longer in the table: its tier
// path in double quotes, "/" between the texts, and why it is dropped.
std::string MissingFoodText(const AnalysisItem& item);

}  // namespace pw
