#pragma once
// Foods rich in a nutrient: the food table ranked by one nutrient, per
// serving or per 100 calories; the foods that would bring a day short of a
// daily value up to it, with their quantities; and the rows of a day's list
// ranked by what each gave. Plain data for the dialog and the command line.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fooddb/FoodTable.h"
#include "foodlist/FoodList.h"

namespace pw {

// The nutrients by the analysis tab's names, in Nutrient order.
inline constexpr std::array<const char*, kShownNutrients> kRichNutrientNames = {
    "Calories", "Protein", "Carbohydrates", "Fat", "Cholesterol", "Fiber", "Calcium", "Sodium"};
// The units the amounts are given in: calories have none.
inline constexpr std::array<const char*, kShownNutrients> kRichNutrientUnits = {"", "g", "g", "g",
                                                                              "mg", "g", "mg", "mg"};

enum class RichBasis { PerServing, Per100Calories };
enum class RichOrder { Most, Least };

// Most first for what a day should reach; least first for Fat, Cholesterol
// and Sodium, whose daily values are limits.
RichOrder DefaultRichOrder(Nutrient nutrient);

// The nutrient the day lacks most for its daily value, of those ranked most
// first (ties to the first in Nutrient order); Calories without daily values.
Nutrient MostLackingNutrient(const NutrientValues& totals, const DailyValues& dailyValues);

// A nutrient or a group by its name, without regard to case; none for a
// name that is not one. Groups are 0..16, as kGroupNames.
std::optional<Nutrient> RichNutrientByName(std::string_view name);
std::optional<int> RichGroupByName(std::string_view name);

// All groups, or one of the 17.
inline constexpr int kAllGroups = -1;

struct RichQuery {
    Nutrient nutrient = kFiber;
    RichBasis basis = RichBasis::PerServing;
    int group = kAllGroups;
    RichOrder order = RichOrder::Most;
};

struct RichRow {
    std::int16_t foodIndex = 0;
    // The amount as shown: per serving the food's whole number, per 100
    // calories in tenths (amount x 1000 / calories, rounded half to even).
    std::int64_t shown = 0;
};

struct RichRanking {
    std::vector<RichRow> rows;  // sorted by the shown amount, ties in table order
    int withoutCalories = 0;    // per 100 calories: foods of the group left out
};

// Every food of the group (the record that only keeps an empty group aside)
// ranked by the nutrient on the basis; per 100 calories a food without
// calories has no amount and is left out.
RichRanking RankFoods(const FoodTable& table, const RichQuery& query);

// "12", or per 100 calories "3.5" (one decimal).
std::string RichAmountText(std::int64_t shown, RichBasis basis);
// The shown amount with its unit: "12 g", "3.5 mg", "240".
std::string RichAmountWithUnit(std::int64_t shown, RichBasis basis, Nutrient nutrient);
// The shown amount as percent of a daily value, rounded half to even; empty
// without a daily value (0: the profile is not complete yet).
std::string RichPercentText(std::int64_t shown, RichBasis basis, std::int32_t dailyValue);

// ---- Filling the gap -------------------------------------------------------

// Largest quantity the quantity box takes.
inline constexpr int kMaxGapQuantity = 99;
// Quantities are written in eighths of a measure, as the quantity box lists
// its fractions: "3/8", " 2", "2-1/2".
inline constexpr int kGapSteps = 8;

// The quantity of eighths as the chooser writes it: a fraction "3/8" below
// one, a whole number with its leading blank " 2", or whole and fraction
// joined by a dash "2-1/2" (fractions in lowest terms).
std::string GapQuantityText(int eighths);

struct GapRow {
    std::int16_t foodIndex = 0;
    double exactQuantity = 0;  // measures that bring the day exactly to its DV
    int eighths = 0;           // rounded half to even to eighths, 1/8 .. 99
    std::string quantityText;  // as the quantity box takes it
    bool fills = true;         // false when more than 99 measures would be needed
    // What the rounded quantity adds, each rounded half to even as the
    // chooser scales a food.
    std::int32_t nutrientAdded = 0;
    std::int32_t caloriesAdded = 0;
    std::int32_t fatAdded = 0;
    std::int32_t sodiumAdded = 0;
};

enum class GapState { NoDailyValue, Reached, Listed };

struct GapOutcome {
    GapState state = GapState::NoDailyValue;
    std::int32_t dayTotal = 0;
    std::int32_t dailyValue = 0;
    std::int64_t missing = 0;  // dailyValue - dayTotal while listed
    // Foods holding the nutrient, the ones that fill the gap within 99
    // measures first, each part by calories added (least first), ties in
    // table order.
    std::vector<GapRow> rows;
    int beyondLimit = 0;  // rows that would need more than 99 measures
};

// The foods of a group that would bring dayTotal of the nutrient up to the
// daily value. Reached when the day is already at or above it; nothing
// without a daily value.
GapOutcome FillGap(const FoodTable& table, Nutrient nutrient, int group, std::int32_t dayTotal,
                   std::int32_t dailyValue);

// ---- This list's contributors ----------------------------------------------

struct ContributorRow {
    int listRow = 0;  // 1..Count
    std::int32_t amount = 0;
};

// The list's rows of the group ranked by what each gave of the nutrient
// (its stored amount), ties in list order.
std::vector<ContributorRow> RankContributors(const FoodList& list, Nutrient nutrient, int group, RichOrder order);

// A row's share of the day's total as a percent, rounded half to even:
// "25%"; empty when the total is 0.
std::string ShareText(std::int32_t amount, std::int32_t total);

}  // namespace pw
