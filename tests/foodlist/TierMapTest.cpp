#include <gtest/gtest.h>

#include "Fixtures.h"
#include "core/RunTimeError.h"
#include "foodlist/TierMap.h"

namespace pw {
namespace {

using test::Food;
using Entries = std::vector<std::string>;

std::vector<int> Column(const TierMap& map, int tier, int rows)
{
    std::vector<int> column;
    for (int k = 0; k < rows; ++k)
        column.push_back(map.Get(k, tier));
    return column;
}

// Runs with the empty texts the lists skip or keep.
FoodTable RunsTable()
{
    FoodTable table;
    table.Append(Food("A", "S1", "D1", "m1", 1, 0, 0));      // 0
    table.Append(Food("A", "S1", "D1", "m2", 2, 0, 0));      // 1
    table.Append(Food("A", "S1", "", "", 0, 0, 0));          // 2  no description: not listed
    table.Append(Food("A", "S1", "D2", "m1", 3, 0, 0));      // 3
    table.Append(Food("A", "S2", "D3", "", 4, 0, 0));        // 4  no measure: not listed
    table.Append(Food("A", "S2", "D3", "m1", 5, 0, 0));      // 5
    table.Append(Food("B", "", "D4", "m1", 6, 0, 0));        // 6  empty subgroup opens no entry
    table.Append(Food("B", "S3", "D5", "m1", 7, 0, 0));      // 7
    return table;
}

TEST(TierMap, EachTierListsItsRunAndEndsWithTheIndexPastIt)
{
    const FoodTable table = RunsTable();
    TierMap map;
    ASSERT_EQ(RebuildGroupColumn(table, map), (Entries{"A", "B"}));
    EXPECT_EQ(Column(map, 0, 3), (std::vector<int>{0, 6, 8}));

    // Each step: the tier, the list position chosen at the tier above, the
    // list built and the column's rows up to its sentinel.
    const struct {
        int tier;
        int position;
        Entries entries;
        std::vector<int> rows;
    } steps[] = {
        {1, 0, {"S1", "S2"}, {0, 4, 6}},
        {2, 0, {"D1", "D2"}, {0, 3, 4}},
        {3, 0, {"m1", "m2"}, {0, 1, 3}},
        {3, 1, {"m1"}, {3, 4}},
        {2, 1, {"D3"}, {4, 6}},
        {3, 0, {"m1"}, {5, 6}},
        {1, 1, {"S3"}, {7, 8}},
        {2, 0, {"D5"}, {7, 8}},
    };
    for (const auto& step : steps) {
        const std::vector<int> before = Column(map, step.tier - 1, 3);
        EXPECT_EQ(RebuildTierColumn(table, map, step.tier, step.position), step.entries) << step.tier;
        EXPECT_EQ(Column(map, step.tier, static_cast<int>(step.rows.size())), step.rows) << step.tier;
        EXPECT_EQ(Column(map, step.tier - 1, 3), before) << "the tier above is left alone";
    }
}

TEST(TierMap, ATierHoldsAtMost499EntriesAndChecksItsRows)
{
    for (const int count : {499, 500}) {
        FoodTable table;
        for (int i = 0; i < count; ++i)
            table.Append(Food("A", "S", "D" + std::to_string(1000 + i), "m", 0, 0, 0));
        TierMap map;
        RebuildGroupColumn(table, map);
        RebuildTierColumn(table, map, 1, 0);
        if (count == 499) {
            EXPECT_EQ(RebuildTierColumn(table, map, 2, 0).size(), 499u);
            EXPECT_EQ(map.Get(499, 2), 499);
        } else {
            EXPECT_THROW(RebuildTierColumn(table, map, 2, 0), RunTimeError);
        }
    }

    const FoodTable table = RunsTable();
    TierMap map;
    RebuildGroupColumn(table, map);
    for (const auto& [tier, position] : {std::pair{1, -1}, {0, 0}, {4, 0}, {1, 499}})
        EXPECT_THROW(RebuildTierColumn(table, map, tier, position), RunTimeError) << tier << " " << position;
}

}  // namespace
}  // namespace pw
