#pragma once
// The food database in memory: parallel arrays of at most 4,000 records,
// kept sorted by group, subgroup, description and measure so that every
// choice in the chooser is one contiguous run.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace pw {

inline constexpr int kFoodCapacity = 4000;
inline constexpr int kMaxTextField = 75;

// The nine values of a food, in this fixed order. The first eight are the
// shown nutrients (NutrientKind order); Alcohol only enters Calories.
enum Nutrient : int {
    kCalories = 0,
    kProtein,
    kCarbs,
    kFats,
    kCholesterol,
    kFiber,
    kCalcium,
    kSodium,
    kAlcohol,
};
inline constexpr int kShownNutrients = 8;
inline constexpr int kNutrientValues = 9;

using NutrientValues = std::array<std::int32_t, kNutrientValues>;
// Per shown nutrient: a person's daily values (Calories in kilocalories;
// Protein, Carbs, Fats and Fiber in grams; Cholesterol, Calcium and Sodium in
// milligrams), and amounts as percent of them.
using DailyValues = std::array<std::int32_t, kShownNutrients>;
using NutrientPercents = std::array<std::int32_t, kShownNutrients>;

// "2100", "63 g", "2494 mg": an amount (or daily value) with the nutrient's unit.
std::string DailyValueText(Nutrient nutrient, std::int32_t value);

struct FoodRecord {
    std::string group;        // the group's name (or an unknown letter as read)
    std::string subgroup;
    std::string description;
    std::string measure;
    NutrientValues values{};  // per one measure

    bool operator==(const FoodRecord&) const = default;
};

// Calories = 4 x (Carbs + Protein) + 9 x Fats + 7 x Alcohol, in checked
// 32-bit arithmetic.
std::int32_t ComputeCalories(std::int32_t protein, std::int32_t carbs, std::int32_t fats, std::int32_t alcohol);

struct ShiftTables {
    std::array<std::int16_t, 76> scramble{};
    std::array<std::int16_t, 76> unscramble{};
};

class FoodTable {
public:
    FoodTable();

    // Index of the last record, count - 1; -1 when empty.
    std::int16_t LastIndex() const { return lastIndex_; }
    int Count() const { return lastIndex_ + 1; }
    bool IsFull() const { return lastIndex_ >= kFoodCapacity - 1; }

    // Record i as one value; i outside 0..LastIndex is a subscript error.
    FoodRecord Record(int i) const;
    const std::string& Group(int i) const { return group_[Check(i)]; }
    const std::string& Subgroup(int i) const { return subgroup_[Check(i)]; }
    const std::string& Description(int i) const { return description_[Check(i)]; }
    const std::string& Measure(int i) const { return measure_[Check(i)]; }
    std::int32_t Value(int i, Nutrient n) const { return values_[Check(i)][n]; }
    const NutrientValues& Values(int i) const { return values_[Check(i)]; }

    // Writes record i (0..capacity-1); does not move the last index.
    void SetRecord(int i, const FoodRecord& record);
    // Appends after the last record; a 4,001st record is a subscript error.
    void Append(const FoodRecord& record);
    // Sets the last index (-1..3999) after the caller filled the slots.
    void SetLastIndex(int lastIndex);
    void Clear();

    // The file side of the table.
    std::vector<std::string>& RawRecordLines() { return rawRecordLines_; }
    const std::vector<std::string>& RawRecordLines() const { return rawRecordLines_; }
    bool DatabaseDirty = false;
    std::string DataVersionLine;
    std::int16_t ScrambleSeed = 0;
    ShiftTables Shifts;
    // The file was scrambled with the digit string of earlier versions: its
    // records are read with those shifts, and written again with today's.
    bool LegacyScramble = false;

private:
    int Check(int i) const;
    int CheckSlot(int i) const;

    std::int16_t lastIndex_ = -1;
    std::vector<std::string> group_, subgroup_, description_, measure_;
    std::vector<NutrientValues> values_;
    std::vector<std::string> rawRecordLines_;
};

}  // namespace pw
