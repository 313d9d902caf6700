#include <gtest/gtest.h>

#include "Fixtures.h"
#include "foodlist/Quantity.h"
#include "richin/RichIn.h"

using namespace pw;
using namespace pw::test;

namespace {

// Eleven records in table order; Calories follow from protein, carbs and fat.
FoodTable RankTable()
{
    FoodTable table;
    table.Append(Food("Bakery and Grains", "Bread", "White", "1 slice", 2, 13, 1, 0, 1, 38, 170));     // 0: 69 kcal
    table.Append(Food("Bakery and Grains", "Bread", "Whole wheat", "1 slice", 4, 12, 1, 0, 2, 30, 146));  // 1: 73
    table.Append(Food("Beverages", "Water", "Tap", "1 cup", 0, 0, 0, 0, 0, 7, 5));                      // 2: 0
    table.Append(Food("Dairy and Eggs", "Cheese", "Cheddar", "1 oz", 7, 0, 9, 30, 0, 204, 176));         // 3: 109
    table.Append(Food("Dairy and Eggs", "Milk", "Whole", "1 cup", 8, 11, 8, 24, 0, 276, 98));            // 4: 148
    table.Append(Food("Favorites", "My Favorites", "", "", 0, 0, 0));                                    // 5: no food
    table.Append(Food("Fruits", "Apples", "Raw", "1 medium", 0, 25, 0, 0, 4, 11, 2));                   // 6: 100
    table.Append(Food("Fruits", "Grapes", "Raw", "1 cup", 0, 20, 0, 0, 1, 10, 2));                      // 7: 80
    table.Append(Food("Fruits", "Pears", "Raw", "1 medium", 0, 27, 0, 0, 6, 15, 2));                    // 8: 108
    table.Append(Food("Vegetables", "Carrots", "Raw", "1 medium", 0, 20, 0, 0, 3, 20, 42));             // 9: 80
    table.Append(Food("Vegetables", "Peas", "Green", "1 cup", 7, 19, 1, 0, 6, 32, 148));                // 10: 113
    return table;
}

constexpr int kFruits = 8;
constexpr int kDairy = 3;
constexpr int kBeverages = 1;
constexpr int kFavorites = 7;

}  // namespace

TEST(RichIn, RanksByBasisOrderAndGroupWithTiesInTableOrder)
{
    const FoodTable table = RankTable();
    using B = RichBasis;
    using O = RichOrder;
    const struct {
        Nutrient nutrient;
        B basis;
        int group;
        O order;
        std::vector<int> indices;
        std::vector<std::int64_t> shown;
        int withoutCalories;
    } cases[] = {
        {kFiber, B::PerServing, kAllGroups, O::Most, {8, 10, 6, 9, 1, 0, 7, 2, 3, 4}, {6, 6, 4, 3, 2, 1, 1, 0, 0, 0}, 0},
        {kFiber, B::PerServing, kAllGroups, O::Least, {2, 3, 4, 0, 7, 1, 9, 6, 8, 10}, {0, 0, 0, 1, 1, 2, 3, 4, 6, 6}, 0},
        // Tenths of amount x 100 / calories: 1000/69 = 14.49, 6000/108 = 55.56,
        // and the halves 1000/80 = 12.5 and 3000/80 = 37.5 go to the even tenth.
        {kFiber, B::Per100Calories, kAllGroups, O::Most, {8, 10, 6, 9, 1, 0, 7, 3, 4}, {56, 53, 40, 38, 27, 14, 12, 0, 0}, 1},
        {kFiber, B::Per100Calories, kFruits, O::Least, {7, 6, 8}, {12, 40, 56}, 0},
        {kSodium, B::Per100Calories, kBeverages, O::Least, {}, {}, 1},
        {kCalcium, B::PerServing, kDairy, O::Most, {4, 3}, {276, 204}, 0},
        {kCalories, B::PerServing, kFavorites, O::Most, {}, {}, 0},  // the empty group's record is no food
        {kCalories, B::Per100Calories, kDairy, O::Most, {3, 4}, {1000, 1000}, 0},
    };
    for (const auto& c : cases) {
        const RichRanking ranking = RankFoods(table, {c.nutrient, c.basis, c.group, c.order});
        std::vector<int> indices;
        std::vector<std::int64_t> shown;
        for (const RichRow& row : ranking.rows) {
            indices.push_back(row.foodIndex);
            shown.push_back(row.shown);
        }
        const std::string label = std::string(kRichNutrientNames[c.nutrient]) + " group " + std::to_string(c.group);
        EXPECT_EQ(indices, c.indices) << label;
        EXPECT_EQ(shown, c.shown) << label;
        EXPECT_EQ(ranking.withoutCalories, c.withoutCalories) << label;
    }
}

TEST(RichIn, NamesDefaultsAndTexts)
{
    for (int i = 0; i < kShownNutrients; ++i)
        EXPECT_EQ(RichNutrientByName(kRichNutrientNames[i]), static_cast<Nutrient>(i));
    // Of the day's totals against DVs 2100, 63, 304, 70, 315, 26, 840, 2494:
    // fiber at 4/26 lacks most; fat, cholesterol and sodium are limits.
    const DailyValues dv = {2100, 63, 304, 70, 315, 26, 840, 2494};
    EXPECT_EQ(MostLackingNutrient({1800, 60, 250, 1, 0, 4, 700, 1, 0}, dv), kFiber);
    EXPECT_EQ(MostLackingNutrient({1800, 60, 250, 1, 0, 26, 120, 1, 0}, dv), kCalcium);
    EXPECT_EQ(MostLackingNutrient({1, 1, 1, 1, 1, 1, 1, 1, 0}, DailyValues{}), kCalories);
    for (int i = 0; i < kShownNutrients; ++i)  // limits least first, the rest most first
        EXPECT_EQ(DefaultRichOrder(Nutrient(i)), i == kFats || i == kCholesterol || i == kSodium ? RichOrder::Least
                                                                                                  : RichOrder::Most);
    EXPECT_EQ(RichNutrientByName("fIbEr"), kFiber);
    EXPECT_EQ(RichNutrientByName("Carbs"), std::nullopt);  // the tab's names only
    EXPECT_EQ(RichNutrientByName(""), std::nullopt);
    EXPECT_EQ(RichGroupByName("nuts, SEEDS, legumes, beans"), 11);
    EXPECT_EQ(RichGroupByName("Fruit"), std::nullopt);

    const struct {
        std::int64_t shown;
        RichBasis basis;
        Nutrient nutrient;
        std::int32_t dailyValue;
        const char* amount;
        const char* percent;
    } texts[] = {
        {6, RichBasis::PerServing, kFiber, 25, "6 g", "24%"},
        {5, RichBasis::PerServing, kFiber, 40, "5 g", "12%"},     // 12.5 to the even 12
        {7, RichBasis::PerServing, kFiber, 40, "7 g", "18%"},     // 17.5 to the even 18
        {5, RichBasis::Per100Calories, kSodium, 2494, "0.5 mg", "0%"},
        {1000, RichBasis::Per100Calories, kCalories, 2100, "100.0", "5%"},
        {148, RichBasis::PerServing, kCalories, 0, "148", ""},   // no profile yet
        {-15, RichBasis::Per100Calories, kFats, 70, "-1.5 g", "-2%"},
    };
    for (const auto& t : texts) {
        EXPECT_EQ(RichAmountWithUnit(t.shown, t.basis, t.nutrient), t.amount);
        EXPECT_EQ(RichPercentText(t.shown, t.basis, t.dailyValue), t.percent) << t.amount;
    }
    EXPECT_EQ(ShareText(1, 8), "12%");  // 12.5 to the even 12
    EXPECT_EQ(ShareText(3, 8), "38%");  // 37.5 to the even 38
    EXPECT_EQ(ShareText(0, 0), "");
}

TEST(RichIn, GapQuantitiesAreTheChoosersOwnTextsInEighths)
{
    const struct {
        int eighths;
        const char* text;
    } cases[] = {{1, "1/8"}, {2, "1/4"}, {3, "3/8"}, {4, "1/2"}, {8, " 1"}, {13, "1-5/8"}, {20, "2-1/2"}, {792, " 99"}};
    for (const auto& c : cases)
        EXPECT_EQ(GapQuantityText(c.eighths), c.text);
    // Every text the gap may show is taken by the quantity box as exactly
    // its number of eighths.
    for (int eighths = 1; eighths <= kMaxGapQuantity * kGapSteps; ++eighths) {
        std::string text = GapQuantityText(eighths);
        ASSERT_EQ(ParseQuantity(text), static_cast<float>(eighths) / kGapSteps) << text;
    }
}

TEST(RichIn, FillsTheGapWithRoundedQuantitiesByCaloriesAdded)
{
    const FoodTable table = RankTable();
    // 14 g of a 25 g daily value: 11 g missing.
    const GapOutcome outcome = FillGap(table, kFiber, kAllGroups, 14, 25);
    ASSERT_EQ(outcome.state, GapState::Listed);
    EXPECT_EQ(outcome.missing, 11);
    const struct {
        int index;
        const char* quantity;
        std::int32_t fiber, calories, fat, sodium;
    } expected[] = {
        {8, "1-7/8", 11, 202, 0, 4},     // 11/6 = 1.83 -> 15/8; 202.5 kcal to the even 202
        {10, "1-7/8", 11, 212, 2, 278},  // 277.5 mg to the even 278
        {6, "2-3/4", 11, 275, 0, 6},     // 5.5 mg to the even 6
        {9, "3-5/8", 11, 290, 0, 152},   // 11/3 = 3.67 -> 29/8
        {1, "5-1/2", 11, 402, 6, 803},   // 401.5 kcal to the even 402
        {0, " 11", 11, 759, 11, 1870},
        {7, " 11", 11, 880, 0, 22},
    };
    ASSERT_EQ(outcome.rows.size(), std::size(expected));
    for (std::size_t k = 0; k < outcome.rows.size(); ++k) {
        const GapRow& row = outcome.rows[k];
        EXPECT_EQ(row.foodIndex, expected[k].index) << k;
        EXPECT_EQ(row.quantityText, expected[k].quantity) << k;
        EXPECT_EQ(row.nutrientAdded, expected[k].fiber) << k;
        EXPECT_EQ(row.caloriesAdded, expected[k].calories) << k;
        EXPECT_EQ(row.fatAdded, expected[k].fat) << k;
        EXPECT_EQ(row.sodiumAdded, expected[k].sodium) << k;
        EXPECT_TRUE(row.fills);
    }
    EXPECT_EQ(FillGap(table, kFiber, kAllGroups, 25, 25).state, GapState::Reached);
    EXPECT_EQ(FillGap(table, kFiber, kAllGroups, 40, 25).state, GapState::Reached);
    EXPECT_EQ(FillGap(table, kFiber, kAllGroups, 0, 0).state, GapState::NoDailyValue);
}

TEST(RichIn, GapQuantitiesRoundHalfToEvenEighthsAndStopAt99)
{
    FoodTable table;
    table.Append(Food("Beverages", "Water", "Mineral", "1 cup", 0, 0, 0, 0, 0, 1, 0));    // 1 mg, no calories
    table.Append(Food("Dairy and Eggs", "Milk", "Skim", "1 cup", 1, 1, 0, 0, 0, 16, 0));  // 16 mg calcium
    table.Append(Food("Fruits", "Apples", "Raw", "1 medium", 0, 25, 0, 0, 4, 0, 2));      // none: not listed
    const struct {
        std::int32_t missing;
        int eighths;
        const char* text;
        bool fills;
    } cases[] = {
        {1, 1, "1/8", true},   // 1/16 of a cup: the least the box offers
        {3, 2, "1/4", true},   // 1.5 eighths to the even 2
        {5, 2, "1/4", true},   // 2.5 eighths to the even 2
        {7, 4, "1/2", true},   // 3.5 eighths to the even 4
        {1584, 792, " 99", true},  // exactly 99 cups
        {1585, 792, " 99", false},
        {30000, 792, " 99", false},
    };
    for (const auto& c : cases) {
        // The water, with no calories, comes first while it fills the gap
        // within 99 cups, and after the milk that does when it cannot.
        const GapOutcome outcome = FillGap(table, kCalcium, kAllGroups, 40000 - c.missing, 40000);
        ASSERT_EQ(outcome.rows.size(), 2u) << c.missing;
        const GapRow& milk = outcome.rows[c.missing <= 99 || !c.fills ? 1 : 0];
        EXPECT_EQ(milk.foodIndex, 1) << c.missing;
        EXPECT_EQ(milk.eighths, c.eighths) << c.missing;
        EXPECT_EQ(milk.quantityText, c.text) << c.missing;
        EXPECT_EQ(milk.fills, c.fills) << c.missing;
        EXPECT_EQ(outcome.beyondLimit, (c.fills ? 0 : 1) + (c.missing > 99)) << c.missing;
    }
}
