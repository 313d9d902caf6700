#include <gtest/gtest.h>

#include <limits>

#include "Fixtures.h"
#include "core/RunTimeError.h"
#include "fooddb/FoodEditing.h"
#include "foodlist/FoodList.h"

namespace pw {
namespace {

TEST(FoodList, TotalsOverflowIsARunTimeError)
{
    FoodList list;
    FoodListEntry entry;
    entry.amounts = {10, 1, 2, 3, 4, 5, 6, 7, 8};
    list.Append(entry);
    entry.amounts[kAlcohol] = std::numeric_limits<std::int32_t>::max() - 8;
    list.Append(entry);
    EXPECT_EQ(list.Totals()[kAlcohol], std::numeric_limits<std::int32_t>::max());
    list.Append(entry);
    EXPECT_THROW(list.Totals(), RunTimeError);
}

TEST(FoodList, RowsFollowTheirFoodsWhenTheTableChanges)
{
    FoodTable table = test::SampleTable();
    FoodList list;
    const int rows[] = {5, 9, 11};  // Cheddar, Apples 1 medium, Peas
    for (int index : rows) {
        FoodListEntry entry;
        entry.foodIndex = static_cast<std::int16_t>(index);
        const FoodRecord& food = table.Record(index);
        std::tie(entry.group, entry.subgroup, entry.description, entry.measure) =
            std::tie(food.group, food.subgroup, food.description, food.measure);
        list.Append(entry);
    }
    list.listSaved = true;
    const auto expectRowsNameTheirFoods = [&] {
        for (int row = 1; row <= list.Count(); ++row) {
            const FoodListEntry& entry = list.Entry(row);
            const FoodRecord& food = table.Record(entry.foodIndex);
            EXPECT_EQ(food.description + "/" + food.measure, entry.description + "/" + entry.measure) << row;
        }
    };
    // An insert before them moves them up, a delete before them down.
    FoodInserter inserter;
    std::string subgroup = "Bread", description = "Rye", measure = "1 slice";
    ASSERT_GE(inserter.InsertFood(table, "Bakery and Grains", subgroup, description, measure, {}), 0);
    list.RelocateEntries(table);
    expectRowsNameTheirFoods();
    EXPECT_EQ(list.Entry(1).foodIndex, 6);
    DeleteFoods(table, 0, 3);  // the three breads
    list.RelocateEntries(table);
    expectRowsNameTheirFoods();
    EXPECT_EQ(list.Entry(3).foodIndex, 9);
    EXPECT_TRUE(list.listSaved);
}

TEST(FoodList, DailyIntakeTexts)
{
    using S = IntakeStyle;
    const struct {
        Nutrient nutrient;
        std::int32_t total;
        std::int32_t dailyValue;
        IntakeStyle style;
        const char* text;
    } cases[] = {
        {kFiber, 5, 21, S::Units, "5 g"},
        {kCholesterol, 108, 250, S::Units, "108 mg"},
        {kProtein, 5, 200, S::PercentSpaced, "2% DV"},   // 2.5 to even
        {kProtein, 7, 200, S::PercentUnspaced, "4%DV"},  // 3.5 to even
        {kFats, 39, 0, S::PercentSpaced, ""},            // no daily value yet
        {kFats, 39, 0, S::Units, "39 g"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DailyIntakeText(c.nutrient, c.total, c.dailyValue, c.style), c.text)
            << c.nutrient << " " << c.total << "/" << c.dailyValue;
    EXPECT_THROW(DailyIntakeText(kCalories, 30000000, 1, S::PercentSpaced), RunTimeError);
}

TEST(FoodList, ItemLocationPrefersTheHintThenTheLowestMatch)
{
    FoodTable table = test::SampleTable();
    // A copy of record 5 (Cheddar) at the end, and one differing in case.
    table.Append(table.Record(5));
    FoodRecord upper = table.Record(5);
    upper.description = "CHEDDAR";
    table.Append(upper);
    const int copy = table.LastIndex() - 1;
    const FoodRecord cheddar = table.Record(5);
    FoodRecord otherMeasure = cheddar;
    otherMeasure.measure = "1 cup";

    const struct {
        int hint;
        FoodRecord wanted;
        int found;
    } cases[] = {
        {copy, cheddar, copy},  // a matching hint is kept
        {0, cheddar, 5},        // else the lowest match
        {-1, cheddar, 5},
        {table.LastIndex() + 1, cheddar, 5},
        {4000, cheddar, 5},
        {0, upper, table.LastIndex()},
        {5, otherMeasure, -1},
    };
    for (const auto& c : cases) {
        std::int16_t index = static_cast<std::int16_t>(c.hint);
        ItemLocation(table, c.wanted.group, c.wanted.subgroup, c.wanted.description, c.wanted.measure, index);
        EXPECT_EQ(index, c.found) << c.hint << " " << c.wanted.description << " " << c.wanted.measure;
    }
}

}  // namespace
}  // namespace pw
