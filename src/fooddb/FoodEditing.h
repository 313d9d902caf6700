#pragma once
// The only changes of the food table after loading: a food inserted at its
// sorted place, a description deleted with all its measures; and the pure
// parts of the dialogs that add foods (the custom food's values from what
// was typed, and every message those commands show).
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fooddb/FoodTable.h"

namespace pw {


// InsertFood's results below 0. Callers treat every other result as
// success.
inline constexpr std::int16_t kInsertDuplicate = -1;  // the four texts exist already
inline constexpr std::int16_t kInsertNoRoom = -2;     // the table holds 4,000 foods

// Inserts foods in table order. The insert position of one call is kept for
// the next: when a food's place is not found by the scans (its group does
// not exist yet), a carried-over position of -1 puts it in front of the
// table, any other position after the last food. Keep one inserter per
// table for the program's life.
class FoodInserter {
public:
    // Inserts a food with the nine values (calories first, the unshown
    // alcohol last). Subgroup, description and measure are trimmed of blanks
    // in place; the group is taken as it is. Texts compare byte by byte, so
    // every lower-case letter sorts after every upper-case one.
    // Returns kInsertDuplicate when a food with the four texts exists, with
    // the table untouched; kInsertNoRoom when the table is full, with the
    // table and the carried-over position untouched; else a position >= 0:
    // the index before the new food when its place was found, else the new
    // food's own index. A successful insert sets DatabaseDirty. The group
    // and the values are copies, so they may be taken from the table itself.
    std::int16_t InsertFood(FoodTable& table, std::string group, std::string& subgroup,
                            std::string& description, std::string& measure, NutrientValues values);

    // The position the last call left behind (0 before the first call).
    std::int16_t InsertPosition() const { return insertPosition_; }

private:
    std::int16_t insertPosition_ = 0;
};

// Deletes the n foods first..first + n - 1 (one description with all its
// measures): the foods above move down by n, or, when the run ends the
// table, the last index becomes first - 1. Sets DatabaseDirty. A run outside
// the table is a subscript error.
void DeleteFoods(FoodTable& table, int first, int n);

// The text with its first character in upper case; a text shorter than two
// characters wholly in upper case.
std::string CapitalizeFirst(std::string_view text);

// ---- the custom food dialog ------------------------------------------------

inline constexpr int kCustomNutrients = 7;  // protein .. sodium, the dialog's rows

// The fixed daily values a %DV entry is taken of, and the unit of each row.
inline constexpr std::array<std::int16_t, kCustomNutrients> kCustomDailyValues = {50, 292, 64, 300, 25, 800, 2375};
inline constexpr std::array<const char*, kCustomNutrients> kCustomUnitTexts = {"g", "g", "g", "mg", "g", "mg", "mg"};

// Fields-filled mask: bit 0 description, bit 1 measure, bits 2..8 the
// nutrient boxes; Add is offered at exactly this value.
inline constexpr std::int32_t kAllFieldsFilled = 511;
inline constexpr int kDescriptionField = 0;
inline constexpr int kMeasureField = 1;
inline constexpr int kFirstNutrientField = 2;

// Which of the add dialog's fields are filled, and whether Add is offered.
struct FieldsFilled {
    std::int32_t mask = 0;
    // field: kDescriptionField, kMeasureField or kFirstNutrientField + row.
    void Set(int field, bool filled);
    bool AddOffered() const { return mask == kAllFieldsFilled; }
};

// The value of one row: the number at the start of the text (none gives 0)
// rounded half to even; as %DV that number times the row's daily value over
// 100, rounded again. A value beyond 32 bits is an overflow.
std::int32_t CustomNutrientValue(int row, std::string_view text, bool percentOfDV);

// The food's nine values from the rows' converted values: calories
// 4 x protein + 4 x carbohydrates + 9 x fats (checked 32-bit), the seven
// rows, and no alcohol.
NutrientValues CustomFoodValues(const std::array<std::int32_t, kCustomNutrients>& rows);

// ---- texts -------------------------------------------------------------------

namespace texts {

inline constexpr const char* kTitleNoRoom = "No room in database";
inline constexpr const char* kDatabaseMaxedOut =
    "The database has reached its maximum size (4,000 items).\r\n"
    "If you need to add additional items, you will need to\r\n"
    "delete unwanted items.\r\n";

inline constexpr const char* kTitleDeleteFromDatabase = "Delete from Database";
inline constexpr const char* kDeleteFoodInUse =
    "You are using this food in your list\r\n"
    "of foods, as displayed in the grid.\r\n"
    "\r\n"
    "You cannot delete this food from the\r\n"
    "database until you remove it from the\r\n"
    "grid.";
inline constexpr const char* kDeletionCanceled = "Deletion has been canceled.";
inline constexpr const char* kItemDeleted = "Item has been deleted.";

inline constexpr const char* kTitleAddToDatabase = "Add to database";
inline constexpr const char* kOperationCancelled = "Operation cancelled.";
inline constexpr const char* kTitleNotAdded = "Not added to database";
inline constexpr const char* kTitleAdded = "Added to database";

inline constexpr const char* kTitleUnableToAdd = "Unable to add to database";
inline constexpr const char* kTitleCopied = "Copied to Favorites";
inline constexpr const char* kTitleUnableToCopy = "Unable to copy to Favorites";

}  // namespace texts

// The delete question: the chosen group, subgroup and description in double
// quotes between its fixed lines.
std::string DeleteFoodQuestion(const std::string& group, const std::string& subgroup,
                               const std::string& description);

// The custom food dialog: "Add "sub / desc / measure"" and "to the
// database?"; the same quoted food followed by the line saying it exists
// already, or that it was added.
std::string AddFoodQuestion(const std::string& subgroup, const std::string& description, const std::string& measure);
std::string AddFoodExists(const std::string& subgroup, const std::string& description, const std::string& measure);
std::string AddFoodAdded(const std::string& subgroup, const std::string& description, const std::string& measure);

// The dish and copy dialogs name the food "Favorites / sub / desc / measure".
std::string DishExists(const std::string& subgroup, const std::string& description, const std::string& measure);
// That the dish was added, and whether to clear the grid.
std::string DishAddedQuestion(const std::string& subgroup, const std::string& description,
                              const std::string& measure);
std::string CopiedToFavorites(const std::string& subgroup, const std::string& description,
                              const std::string& measure);
std::string CopyExists(const std::string& subgroup, const std::string& description, const std::string& measure);

}  // namespace pw
