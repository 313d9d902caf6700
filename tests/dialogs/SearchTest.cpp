#include <gtest/gtest.h>

#include "Fixtures.h"
#include "dialogs/Search.h"

using namespace pw;
using namespace pw::test;

TEST(Search, MatchesTheJoinedTextsIgnoringCaseAndListsEachFoodOnce)
{
    FoodTable table = SampleTable();                                             // 0..11
    table.Append(Food("Vegetables", "Peas", "green, Frozen", "1 oz", 1, 1, 1));  // 12: differs in case only
    table.Append(Food("Vegetables", "Squash", "Cr\xC8me", "1 cup", 1, 1, 1));    // 13: Latin-1 capital
    const struct {
        const char* term;
        std::vector<int> indices;
    } cases[] = {
        {"salted", {3}},  // two measures of one food: the first
        {"BuTtEr", {3}},
        {"eggsbutter", {3}},  // end of the group, start of the subgroup
        {"ersalt", {3}},      // end of the subgroup, start of the description
        {"green, frozen", {11, 12}},
        {"cr\xE8me", {13}},
        {"bread", {0, 1}},
        {"favorites", {7}},  // the record that keeps the empty group
        {"1 tbsp", {}},      // measures are not searched
        {"white bread", {}},
    };
    for (const auto& c : cases) {
        const SearchOutcome outcome = SearchFoods(table, c.term);
        std::vector<int> indices;
        for (const SearchResult& r : outcome.results) {
            indices.push_back(r.foodIndex);
            EXPECT_EQ(r.description, table.Description(r.foodIndex));
        }
        EXPECT_EQ(indices, c.indices) << c.term;
        EXPECT_FALSE(outcome.overLimit) << c.term;
    }
}

TEST(Search, ListsAtMost199AndWarnsWhenThe200thDistinctMatchIsMet)
{
    const struct {
        int distinct;
        int copies;  // records per food, one per measure
        int rows;
        bool warning;
    } cases[] = {
        {198, 1, 198, false}, {199, 1, 199, false}, {199, 3, 199, false},
        {200, 1, 199, true},  {250, 1, 199, true},  {250, 2, 199, true},
    };
    for (const auto& c : cases) {
        FoodTable table;
        table.Append(Food("Beverages", "Water", "Plain", "1 cup", 0, 0, 0));
        for (int n = 0; n < c.distinct; ++n)
            for (int m = 0; m < c.copies; ++m)
                table.Append(Food("Fruits", "Grapes", "Grape " + std::to_string(1000 + n), std::to_string(m) + " cup",
                                  0, 1, 0));
        const SearchOutcome outcome = SearchFoods(table, "GRAPE");
        ASSERT_EQ(static_cast<int>(outcome.results.size()), c.rows) << c.distinct << " x " << c.copies;
        EXPECT_EQ(outcome.overLimit, c.warning) << c.distinct << " x " << c.copies;
        for (int k = 0; k < c.rows; ++k)  // in table order, each food's first record
            EXPECT_EQ(outcome.results[k].foodIndex, 1 + k * c.copies);
    }
}
