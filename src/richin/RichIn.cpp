#include "richin/RichIn.h"

#include <algorithm>
#include <cstdlib>

#include "core/Numeric.h"
#include "core/Text.h"
#include "fooddb/FoodGroups.h"

namespace pw {

namespace {

// num / den rounded half to even, den > 0, in exact integer arithmetic.
std::int64_t DivideHalfEven(std::int64_t num, std::int64_t den)
{
    std::int64_t q = num / den;
    std::int64_t r = num % den;
    if (r < 0) {  // towards minus infinity, so that 0 <= r < den
        q -= 1;
        r += den;
    }
    if (2 * r > den || (2 * r == den && q % 2 != 0))
        q += 1;
    return q;
}

bool InGroup(const std::string& foodGroup, int group)
{
    return group == kAllGroups ||
           (group >= 0 && group < kGroupCount && foodGroup == kGroupNames[static_cast<std::size_t>(group)]);
}

// The record that keeps an empty group in the table is no food.
bool IsFood(const FoodTable& table, int i) { return !table.Description(i).empty(); }

}  // namespace

RichOrder DefaultRichOrder(Nutrient nutrient)
{
    switch (nutrient) {
    case kFats:
    case kCholesterol:
    case kSodium: return RichOrder::Least;
    default: return RichOrder::Most;
    }
}

Nutrient MostLackingNutrient(const NutrientValues& totals, const DailyValues& dailyValues)
{
    std::optional<Nutrient> lacking;
    for (int i = 0; i < kShownNutrients; ++i) {
        const auto n = static_cast<Nutrient>(i);
        if (DefaultRichOrder(n) != RichOrder::Most || dailyValues[i] <= 0)
            continue;
        // totals[n] / dv[n] < totals[m] / dv[m], cross-multiplied.
        if (!lacking || static_cast<std::int64_t>(totals[i]) * dailyValues[*lacking] <
                            static_cast<std::int64_t>(totals[*lacking]) * dailyValues[i])
            lacking = n;
    }
    return lacking.value_or(kCalories);
}

std::optional<Nutrient> RichNutrientByName(std::string_view name)
{
    const std::string wanted = LowerLatin1(name);
    for (int i = 0; i < kShownNutrients; ++i)
        if (LowerLatin1(kRichNutrientNames[static_cast<std::size_t>(i)]) == wanted)
            return static_cast<Nutrient>(i);
    return std::nullopt;
}

std::optional<int> RichGroupByName(std::string_view name)
{
    const std::string wanted = LowerLatin1(name);
    for (int g = 0; g < kGroupCount; ++g)
        if (LowerLatin1(kGroupNames[static_cast<std::size_t>(g)]) == wanted)
            return g;
    return std::nullopt;
}

RichRanking RankFoods(const FoodTable& table, const RichQuery& query)
{
    RichRanking ranking;
    ranking.rows.reserve(static_cast<std::size_t>(table.Count()));
    for (int i = 0; i < table.Count(); ++i) {
        if (!IsFood(table, i) || !InGroup(table.Group(i), query.group))
            continue;
        const NutrientValues& values = table.Values(i);
        RichRow row;
        row.foodIndex = static_cast<std::int16_t>(i);
        if (query.basis == RichBasis::PerServing) {
            row.shown = values[query.nutrient];
        } else {
            const std::int32_t calories = values[kCalories];
            if (calories <= 0) {
                ++ranking.withoutCalories;
                continue;
            }
            row.shown = DivideHalfEven(static_cast<std::int64_t>(values[query.nutrient]) * 1000, calories);
        }
        ranking.rows.push_back(row);
    }
    if (query.order == RichOrder::Most)
        std::stable_sort(ranking.rows.begin(), ranking.rows.end(),
                         [](const RichRow& a, const RichRow& b) { return a.shown > b.shown; });
    else
        std::stable_sort(ranking.rows.begin(), ranking.rows.end(),
                         [](const RichRow& a, const RichRow& b) { return a.shown < b.shown; });
    return ranking;
}

std::string RichAmountText(std::int64_t shown, RichBasis basis)
{
    if (basis == RichBasis::PerServing)
        return std::to_string(shown);
    const std::int64_t magnitude = shown < 0 ? -shown : shown;
    return (shown < 0 ? "-" : "") + std::to_string(magnitude / 10) + "." + std::to_string(magnitude % 10);
}

std::string RichAmountWithUnit(std::int64_t shown, RichBasis basis, Nutrient nutrient)
{
    const std::string unit = kRichNutrientUnits[static_cast<std::size_t>(nutrient)];
    return RichAmountText(shown, basis) + (unit.empty() ? "" : " " + unit);
}

std::string RichPercentText(std::int64_t shown, RichBasis basis, std::int32_t dailyValue)
{
    if (dailyValue <= 0)
        return {};
    // Per 100 calories the shown amount is in tenths: tenths x 10 / DV.
    const std::int64_t hundredfold = basis == RichBasis::PerServing ? shown * 100 : shown * 10;
    return std::to_string(DivideHalfEven(hundredfold, dailyValue)) + "%";
}

std::string GapQuantityText(int eighths)
{
    const int whole = eighths / kGapSteps;
    int numerator = eighths % kGapSteps;
    int denominator = kGapSteps;
    while (numerator != 0 && numerator % 2 == 0) {
        numerator /= 2;
        denominator /= 2;
    }
    const std::string fraction = std::to_string(numerator) + "/" + std::to_string(denominator);
    if (numerator == 0)
        return " " + std::to_string(whole);
    if (whole == 0)
        return fraction;
    return std::to_string(whole) + "-" + fraction;
}

GapOutcome FillGap(const FoodTable& table, Nutrient nutrient, int group, std::int32_t dayTotal,
                   std::int32_t dailyValue)
{
    GapOutcome outcome;
    outcome.dayTotal = dayTotal;
    outcome.dailyValue = dailyValue;
    if (dailyValue <= 0)
        return outcome;
    if (dayTotal >= dailyValue) {
        outcome.state = GapState::Reached;
        return outcome;
    }
    outcome.state = GapState::Listed;
    const std::int64_t missing = static_cast<std::int64_t>(dailyValue) - dayTotal;
    outcome.missing = missing;
    for (int i = 0; i < table.Count(); ++i) {
        if (!IsFood(table, i) || !InGroup(table.Group(i), group))
            continue;
        const NutrientValues& values = table.Values(i);
        const std::int32_t perMeasure = values[nutrient];
        if (perMeasure <= 0)
            continue;
        GapRow row;
        row.foodIndex = static_cast<std::int16_t>(i);
        row.exactQuantity = static_cast<double>(missing) / perMeasure;
        const std::int64_t maxEighths = static_cast<std::int64_t>(kMaxGapQuantity) * kGapSteps;
        if (missing > static_cast<std::int64_t>(kMaxGapQuantity) * perMeasure) {
            row.fills = false;
            row.eighths = static_cast<int>(maxEighths);
            ++outcome.beyondLimit;
        } else {
            // The least the quantity box offers is an eighth.
            row.eighths = static_cast<int>(
                std::clamp<std::int64_t>(DivideHalfEven(missing * kGapSteps, perMeasure), 1, maxEighths));
        }
        row.quantityText = GapQuantityText(row.eighths);
        // An eighth is exact in single precision: these are the chooser's
        // own products of quantity and value.
        const double quantity = static_cast<double>(row.eighths) / kGapSteps;
        row.nutrientAdded = ToInt32(quantity * perMeasure);
        row.caloriesAdded = ToInt32(quantity * values[kCalories]);
        row.fatAdded = ToInt32(quantity * values[kFats]);
        row.sodiumAdded = ToInt32(quantity * values[kSodium]);
        outcome.rows.push_back(std::move(row));
    }
    std::stable_sort(outcome.rows.begin(), outcome.rows.end(), [](const GapRow& a, const GapRow& b) {
        if (a.fills != b.fills)
            return a.fills;
        return a.caloriesAdded < b.caloriesAdded;
    });
    return outcome;
}

std::vector<ContributorRow> RankContributors(const FoodList& list, Nutrient nutrient, int group, RichOrder order)
{
    std::vector<ContributorRow> rows;
    for (int row = 1; row <= list.Count(); ++row) {
        const FoodListEntry& entry = list.Entry(row);
        if (InGroup(entry.group, group))
            rows.push_back({row, entry.amounts[nutrient]});
    }
    std::stable_sort(rows.begin(), rows.end(), [order](const ContributorRow& a, const ContributorRow& b) {
        return order == RichOrder::Most ? a.amount > b.amount : a.amount < b.amount;
    });
    return rows;
}

std::string ShareText(std::int32_t amount, std::int32_t total)
{
    if (total <= 0)
        return {};
    return std::to_string(DivideHalfEven(static_cast<std::int64_t>(amount) * 100, total)) + "%";
}

}  // namespace pw
