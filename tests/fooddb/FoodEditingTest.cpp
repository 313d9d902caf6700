#include <gtest/gtest.h>

#include <random>

#include "Fixtures.h"
#include "core/RunTimeError.h"
#include "fooddb/FoodEditing.h"
#include "foodlist/TierMap.h"

namespace pw {
namespace {

using test::Food;
using test::Records;

// One cheese with three measures, a subgroup after it, and two groups more.
FoodTable SmallTable()
{
    FoodTable t;
    t.Append(Food("Dairy and Eggs", "Cheese", "Cheddar", "1 oz", 7, 0, 9));
    t.Append(Food("Dairy and Eggs", "Cheese", "Swiss", "1 cup", 30, 6, 34));
    t.Append(Food("Dairy and Eggs", "Cheese", "Swiss", "1 oz", 8, 1, 8));
    t.Append(Food("Dairy and Eggs", "Cheese", "Swiss", "1 slice", 6, 1, 6));
    t.Append(Food("Dairy and Eggs", "Milk", "Whole", "1 cup", 8, 11, 8));
    t.Append(Food("Fruits", "Apples", "Raw", "1 medium", 0, 25, 0));
    t.Append(Food("Vegetables", "Peas", "Green", "1 cup", 7, 19, 1));
    return t;
}

std::int16_t Insert(FoodInserter& inserter, FoodTable& t, FoodRecord food)
{
    return inserter.InsertFood(t, food.group, food.subgroup, food.description, food.measure, food.values);
}

TEST(FoodEditing, InsertFoodPlacesTheFoodAsItsScansCompare)
{
    struct Case {
        const char* what;
        FoodRecord food;
        int result;
        int index;  // where the new food ends up
    };
    const Case cases[] = {
        {"a group without foods goes after the last food", Food("Meats", "Beef", "Ground", "3 oz", 20, 0, 15), 7, 7},
        {"a new measure among its description's measures",
         Food("Dairy and Eggs", "Cheese", "Swiss", "1 piece", 5, 1, 5), 2, 3},
        {"lower case sorts after every upper-case description of the subgroup",
         Food("Dairy and Eggs", "Cheese", "brie", "1 oz", 6, 0, 8), 3, 4},
        {"the description scan runs on past its subgroup while both compare lower",
         Food("Dairy and Eggs", "Milk", "skim", "1 cup", 8, 12, 0), 5, 6},
        {"a subgroup before the first food's", Food("Dairy and Eggs", "Butter", "Salted", "1 pat", 0, 0, 4), 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        FoodTable t = SmallTable();
        const std::vector<FoodRecord> before = Records(t);
        FoodInserter inserter;
        EXPECT_EQ(Insert(inserter, t, c.food), c.result);
        EXPECT_EQ(inserter.InsertPosition(), c.result);
        EXPECT_TRUE(t.DatabaseDirty);
        ASSERT_EQ(t.Count(), 8);
        EXPECT_EQ(t.Record(c.index), c.food);
        std::vector<FoodRecord> others = Records(t);
        others.erase(others.begin() + c.index);
        EXPECT_EQ(others, before);  // every other food kept, in its order
    }
}

TEST(FoodEditing, InsertFoodTrimsTheTextsAndRefusesADuplicate)
{
    FoodTable t = SmallTable();
    FoodInserter inserter;
    std::string subgroup = "  Cheese ", description = "Swiss  ", measure = " 1 piece";
    const NutrientValues values = Food("", "", "", "", 5, 1, 5).values;
    EXPECT_EQ(inserter.InsertFood(t, "Dairy and Eggs", subgroup, description, measure, values), 2);
    EXPECT_EQ(subgroup + description + measure, "CheeseSwiss1 piece");  // the caller's copies too
    EXPECT_EQ(t.Record(3), (FoodRecord{"Dairy and Eggs", "Cheese", "Swiss", "1 piece", values}));

    // The same texts again, blanks around them: nothing changes.
    t.DatabaseDirty = false;
    const std::vector<FoodRecord> before = Records(t);
    subgroup = "Cheese ";
    description = " Swiss";
    measure = "1 piece ";
    EXPECT_EQ(inserter.InsertFood(t, "Dairy and Eggs", subgroup, description, measure, {}), kInsertDuplicate);
    EXPECT_EQ(Records(t), before);
    EXPECT_FALSE(t.DatabaseDirty);

    // The group is compared as it is: with a blank it is another group.
    EXPECT_EQ(inserter.InsertFood(t, " Dairy and Eggs", subgroup, description, measure, values), 0);
    EXPECT_EQ(t.Group(0), " Dairy and Eggs");
}

TEST(FoodEditing, AnUnplacedFoodGoesToTheFrontOnlyAfterADuplicate)
{
    FoodTable t = SmallTable();
    FoodInserter inserter;
    const FoodRecord meat = Food("Meats", "Beef", "Ground", "3 oz", 20, 0, 15);
    const FoodRecord fish = Food("Seafood", "Cod", "Baked", "3 oz", 19, 0, 1);

    EXPECT_EQ(Insert(inserter, t, meat), 7);
    EXPECT_EQ(t.Record(7), meat);
    EXPECT_EQ(Insert(inserter, t, t.Record(2)), kInsertDuplicate);
    // The position the duplicate left, -1, carries over.
    EXPECT_EQ(Insert(inserter, t, fish), 0);
    EXPECT_EQ(t.Record(0), fish);
    EXPECT_EQ(t.Record(8), meat);
}

TEST(FoodEditing, AFullTableRefusesAnInsertUntouched)
{
    FoodTable t;
    for (int i = 0; i < kFoodCapacity; ++i)
        t.Append(Food("Vegetables", "Peas", "Green " + std::to_string(1000 + i), "1 cup", 7, 19, 1));
    FoodInserter inserter;
    const std::vector<FoodRecord> before = Records(t);

    EXPECT_EQ(Insert(inserter, t, Food("Fruits", "Apples", "Raw", "1 medium", 0, 25, 0)), kInsertNoRoom);
    EXPECT_EQ(inserter.InsertPosition(), 0);
    EXPECT_EQ(Insert(inserter, t, before[5]), kInsertDuplicate);  // the duplicate test comes first
    EXPECT_EQ(Records(t), before);
    EXPECT_FALSE(t.DatabaseDirty);
}

// The insert algorithm scan for scan, each scan restarted as written.
int LiteralInsertPosition(const FoodTable& t, const FoodRecord& f, int carried, bool& found)
{
    const int last = t.LastIndex();
    found = false;
    int p = carried;
    for (int i = 0; i <= last && !found; ++i) {
        if (t.Group(i) != f.group)
            continue;
        for (int j = i; j <= last && !found; ++j) {
            if (t.Subgroup(j) != f.subgroup) {
                if (t.Subgroup(j) > f.subgroup || t.Group(j) > f.group)
                    p = j - 1, found = true;
                continue;
            }
            for (int k = j; k <= last && !found; ++k) {
                if (t.Description(k) != f.description) {
                    if (t.Description(k) > f.description || t.Subgroup(k) > f.subgroup)
                        p = k - 1, found = true;
                    continue;
                }
                for (int m = k; m <= last && !found; ++m)
                    if (t.Description(m) > f.description || t.Measure(m) > f.measure)
                        p = m - 1, found = true;
            }
        }
    }
    return p;
}

TEST(FoodEditing, InsertFoodFindsThePlaceTheNestedScansFind)
{
    std::mt19937 random(7);
    const auto pick = [&random](const char* letters) {
        return std::string(1, letters[std::uniform_int_distribution<int>(0, 2)(random)]);
    };
    for (int round = 0; round < 300; ++round) {
        FoodTable t;
        FoodInserter inserter;
        for (int n = 0; n < 12; ++n) {
            const FoodRecord food = Food(pick("ABC"), pick("Bab"), pick("Dcd"), pick("Mmn"), n, 0, 0);
            bool found = false;
            int p = LiteralInsertPosition(t, food, inserter.InsertPosition(), found);
            const int index = !found && p != -1 ? t.Count() : p + 1;
            const int result = Insert(inserter, t, food);
            if (result == kInsertDuplicate)
                continue;
            ASSERT_EQ(t.Record(index), food) << round << "/" << n;
            ASSERT_EQ(result, p == -1 ? 0 : found ? p : index);
        }
    }
}

TEST(FoodEditing, DeleteFoodsRemovesARunOfMeasures)
{
    FoodTable t = SmallTable();
    const std::vector<FoodRecord> before = Records(t);
    DeleteFoods(t, 1, 3);  // Swiss, three measures
    EXPECT_TRUE(t.DatabaseDirty);
    EXPECT_EQ(Records(t), (std::vector<FoodRecord>{before[0], before[4], before[5], before[6]}));

    DeleteFoods(t, 3, 1);  // the last description of the table
    EXPECT_EQ(Records(t), (std::vector<FoodRecord>{before[0], before[4], before[5]}));
    for (auto [first, n] : {std::pair{2, 2}, std::pair{-1, 1}, std::pair{0, 0}})
        EXPECT_THROW(DeleteFoods(t, first, n), RunTimeError) << first << " " << n;
}

TEST(FoodEditing, GroupSubgroupsInTableOrderLeaveTheChoosersMapAlone)
{
    FoodTable t = SmallTable();
    t.SetRecord(4, Food("Dairy and Eggs", "Butter", "Salted", "1 pat", 0, 0, 4));  // out of order on purpose
    TierMap map;
    RebuildGroupColumn(t, map);
    RebuildTierColumn(t, map, 1, 0);
    const int subgroupRow1 = map.Get(1, 1);

    EXPECT_EQ(GroupSubgroups(t, map, "Dairy and Eggs"), (std::vector<std::string>{"Cheese", "Butter"}));
    EXPECT_EQ(GroupSubgroups(t, map, "Vegetables"), (std::vector<std::string>{"Peas"}));
    EXPECT_TRUE(GroupSubgroups(t, map, "Meats").empty());
    EXPECT_EQ(map.Get(1, 1), subgroupRow1);
}

TEST(FoodEditing, CustomFoodValuesFromTheTypedTexts)
{
    struct Case {
        int row;
        const char* text;
        bool percent;
        std::int32_t value;
    };
    const Case cases[] = {
        {6, "10", true, 238},  // 237.5
        {0, "10", true, 5},    {0, "2.5", false, 2}, {0, "3.5", false, 4},
        {3, "12 mg", false, 12}, {1, "", false, 0},  {5, "2.5", true, 16},  // 2 x 800 / 100
    };
    for (const Case& c : cases)
        EXPECT_EQ(CustomNutrientValue(c.row, c.text, c.percent), c.value) << c.row << " " << c.text;
    EXPECT_THROW(CustomNutrientValue(0, "3000000000", false), RunTimeError);

    const NutrientValues v = CustomFoodValues({5, 10, 2, 30, 1, 40, 200});
    EXPECT_EQ(v, (NutrientValues{4 * 5 + 4 * 10 + 9 * 2, 5, 10, 2, 30, 1, 40, 200, 0}));
}

TEST(FoodEditing, CapitalizeFirst)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""}, {"a", "A"}, {"ab", "Ab"}, {"apple pie", "Apple pie"}, {"\xE9" "clair", "\xC9" "clair"},
        {" x", " x"}, {"Ok", "Ok"}};
    for (auto [in, out] : cases)
        EXPECT_EQ(CapitalizeFirst(in), out) << in;
}

// Add is offered exactly while all nine fields are filled, in whatever
// order they were filled and emptied.
TEST(FoodEditing, AddIsOfferedWhileEveryFieldIsFilled)
{
    FieldsFilled fields;
    for (int field = 0; field < kFirstNutrientField + kCustomNutrients; ++field) {
        EXPECT_FALSE(fields.AddOffered()) << field;
        fields.Set(field, true);
    }
    EXPECT_TRUE(fields.AddOffered());
    fields.Set(kMeasureField, true);  // twice filled is filled
    fields.Set(kFirstNutrientField + 3, false);
    EXPECT_FALSE(fields.AddOffered());
    fields.Set(kFirstNutrientField + 3, true);
    EXPECT_TRUE(fields.AddOffered());
    EXPECT_THROW(fields.Set(kFirstNutrientField + kCustomNutrients, true), RunTimeError);
}

}  // namespace
}  // namespace pw
