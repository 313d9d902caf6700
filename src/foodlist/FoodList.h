#pragma once
// The user's list of eaten foods: at most 500 rows numbered from 1, each a
// food of the FoodTable with the quantity as typed and its values frozen at
// the time the row was added or changed; and the texts the grid and the
// analysis show for them.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fooddb/FoodTable.h"
#include "foodlist/ChooserState.h"

namespace pw {

inline constexpr int kFoodListCapacity = 500;

struct FoodListEntry {
    std::int16_t foodIndex = 0;  // FoodTable index when the row was stored
    std::string quantityText;    // as typed, "2-1/2", not the parsed number
    std::string group;
    std::string subgroup;
    std::string description;
    std::string measure;
    NutrientValues amounts{};    // the nine values times the quantity
    NutrientPercents percents{};  // the first eight as percent of DV

    bool operator==(const FoodListEntry&) const = default;
};

class FoodList {
public:
    int Count() const { return static_cast<int>(entries_.size()); }
    bool IsFull() const { return Count() >= kFoodListCapacity; }

    // Row 1..Count; any other row is a subscript error.
    const FoodListEntry& Entry(int row) const;

    // Each of these marks the list unsaved. Append returns the new row; a
    // 501st row is a subscript error (the caller refuses it first), as is a
    // row outside 1..Count for Replace and Delete. Delete moves the rows
    // below one place up.
    int Append(FoodListEntry entry);
    void Replace(int row, FoodListEntry entry);
    void Delete(int row);
    // Puts entry back at row (1..Count+1), moving the rows from there one
    // place down; the saved flag is left as it is.
    void Insert(int row, FoodListEntry entry);
    // Count back to 0; the saved flag is left as it is.
    void Clear();
    // Every row at once, as they were taken or are to be put back; the
    // saved flag is left as it is.
    const std::vector<FoodListEntry>& Entries() const { return entries_; }
    void Assign(std::vector<FoodListEntry> entries);
    // After the table changed (an insert or a delete moves foods), points
    // every row at its food again, found by its four texts; a row whose food
    // is gone keeps its index. The saved flag is left as it is.
    void RelocateEntries(const FoodTable& table);

    // The sums of the nine amounts over rows 1..Count in 32-bit arithmetic;
    // an overflow is a run-time error.
    NutrientValues Totals() const;

    std::int16_t selectedRow = 0;  // the grid row last clicked, 0 for none
    bool listSaved = false;        // unchanged since saved or opened
    // The grid shows an empty row below the last entry once a row has been
    // appended, until the list is cleared.
    bool blankRowBelow = false;

private:
    int CheckRow(int row) const;

    std::vector<FoodListEntry> entries_;
};

// The grid's columns: Qty, Measure, Group, Subgroup, Description, then the
// eight shown nutrients from column 5 on.
inline constexpr int kFirstNutrientColumn = 5;
inline constexpr int kGridColumns = 13;
inline constexpr std::array<const char*, kGridColumns> kColumnCaptions = {
    "Qty", "Measure", "Group", "Subgroup", "Description", "Calories", "Protein",
    "Carbs", "Fats", "Cholest.", "Fiber", "Calcium", "Sodium"};

// The text of cell column (0..12) of a row: the quantity or a food text, or
// a nutrient as its amount with its unit ("240", "12 g", "350 mg") or as its
// frozen percent of DV ("15%DV").
std::string GridCellText(const FoodListEntry& entry, int column, bool byUnits);

// How the analysis shows a total of the list.
enum class IntakeStyle {
    Units,            // "240", "12 g", "350 mg"
    PercentSpaced,    // "12% DV", as rows are written
    PercentUnspaced,  // "12%DV", as a change of view writes them
};

// A total as daily intake: the amount with its unit, or the total as
// percent of the daily value, rounded half to even. Without a daily value
// (0: no valid profile yet) a percent is the empty text. A percent beyond
// 32 bits is an overflow run-time error.
std::string DailyIntakeText(Nutrient nutrient, std::int32_t total, std::int32_t dailyValue, IntakeStyle style);

// The food as the delete question and its answer name it:
// "Group / Subgroup / Description" in double quotes.
std::string ListItemText(const std::string& group, const std::string& subgroup, const std::string& description);
// The five lines asking to delete an item from the list.
std::string DeleteQuestionText(const std::string& itemText);
// The item followed by the line that confirms its removal.
std::string ItemRemovedText(const std::string& itemText);

// Which list commands the list's length allows.
struct ListCommandStates {
    bool clear = false;       // at least one row
    bool save = false;        // at least one row
    bool print = false;       // at least one row: the print menu and its food list
    bool saveAsDish = false;  // at least two rows
};
ListCommandStates ListCommandsFor(int count);

// Re-finds a stored food in table by its four texts: index is kept when it
// names a record with exactly these texts, else it becomes the lowest index
// that does, else -1.
void ItemLocation(const FoodTable& table, const std::string& group, const std::string& subgroup,
                  const std::string& description, const std::string& measure, std::int16_t& index);

}  // namespace pw
