// The maker's rules on small USDA extracts written here: each case is a few
// foods in the three USDA files, and what the maker makes of them.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "dbmaker/DatabaseMaker.h"
#include "dbmaker/FoodNames.h"

namespace {

using namespace pw;

struct Weight {
    const char* amount;
    const char* unit;
    const char* grams;
};

struct UsdaFood {
    const char* ndbNo;
    const char* groupCode;
    const char* longDesc;
    // per 100 g: energy, protein, fat, carbohydrate, fiber, calcium, sodium,
    // cholesterol; "" is a value USDA leaves empty
    std::vector<const char*> values;
    std::vector<Weight> weights;
};

// Writes FOOD_DES.txt, ABBREV.txt and WEIGHT.txt for foods and reads them back.
usda::Source Extract(const test::TempFolder& folder, const std::vector<UsdaFood>& foods)
{
    std::string des, abbrev, weight;
    for (const auto& f : foods) {
        des += std::string("~") + f.ndbNo + "~^~" + f.groupCode + "~^~" + f.longDesc + "~^~X~^~~^~~^~Y~^~~^0^~~^6.25^4^9^4\r\n";
        // ABBREV.txt: 51 fields; the kept ones at 4, 5, 6, 8, 9, 11, 16, 46 (1-based).
        std::vector<std::string> fields(51, "0");
        fields[0] = std::string("~") + f.ndbNo + "~";
        fields[1] = "~X~";
        const int at[] = {3, 4, 5, 7, 8, 10, 15, 45};
        for (int i = 0; i < 8; ++i)
            fields[at[i]] = f.values[i];
        for (std::size_t i = 0; i < fields.size(); ++i)
            abbrev += (i ? "^" : "") + fields[i];
        abbrev += "\r\n";
        int seq = 0;
        for (const auto& w : f.weights)
            weight += std::string("~") + f.ndbNo + "~^" + std::to_string(++seq) + "^" + w.amount + "^~" + w.unit + "~^" +
                      w.grams + "^^\r\n";
    }
    folder.Write("FOOD_DES.txt", des);
    folder.Write("ABBREV.txt", abbrev);
    folder.Write("WEIGHT.txt", weight);
    return usda::ReadSource(folder.Path());
}

// "subgroup / description / measure" of every record of group, in table order.
std::vector<std::string> Names(const dbmaker::Selection& s, const std::string& group)
{
    std::vector<std::string> out;
    for (const auto& r : s.records)
        if (r.group == group)
            out.push_back(r.subgroup + " / " + r.description + " / " + r.measure);
    return out;
}

const std::vector<const char*> kOlive = {"115", "0.84", "10.68", "6.26", "3.2", "88", "735", "0"};
const std::vector<const char*> kTomato = {"18", "0.88", "0.20", "3.92", "1.2", "10", "5", "0"};

TEST(DatabaseMakerRules, MakeFoodsFromUsdaExtractsAsADietitianWouldRead)
{
    struct Case {
        const char* rule;
        std::vector<UsdaFood> foods;
        const char* group;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"brand names leave measures; a measure that is only a brand goes",
         {{"25001", "2500", "Snacks, cheese crackers", {"500", "10", "25", "58", "2", "150", "990", "10"},
           {{"1", "cup Cheez-its", "62"}, {"10", "Triscuit Bits", "10"}, {"1", "large McDonald's shake (22 fl oz)", "30"},
            {"1", "envelope Swiss Miss (.53 oz)", "15"}}}},
         "Snacks",
         {"Cheese crackers / Cheese crackers / 1 cup", "Cheese crackers / Cheese crackers / 1 envelope (0.53 oz)",
          "Cheese crackers / Cheese crackers / 1 large shake (22 fl oz)"}},
        {"N servings per package is one serving, and says its weight; a bare serving too",
         {{"21224", "2100", "Fast foods, pizza, cheese topping", {"270", "12", "10", "33", "2", "200", "600", "20"},
           {{"1", "serving 9 servings per 24 oz package", "81"}, {"1", "serving", "237"}, {"1", "serving (3 oz)", "85"}}}},
         "Fast Foods",
         {"Pizza / Cheese topping / 1 serving (237 g)", "Pizza / Cheese topping / 1 serving (81 g)",
          "Pizza / Cheese topping / 3 oz"}},
        {"weights, notes and size cups alone are no household measure",
         {{"14001", "1400", "Beverages, lemonade, frozen concentrate", {"50", "0.1", "0.1", "13", "0.1", "4", "5", "0"},
           {{"45", "g", "45"}, {"1", "ml", "1"}, {"1", "(.75 oz)", "21"}, {"1", "child cup 12 fl oz size cup", "360"}}}},
         "Beverages",
         {"Lemonade / Frozen concentrate / 1 child cup (12 fl oz)"}},
        {"the medium, the cup and the slice before varieties and thick or thin slices",
         {{"11529", "1100", "Tomatoes, red, ripe, raw", kTomato,
           {{"1", "cup cherry tomatoes", "149"}, {"1", "cup, chopped or sliced", "180"}, {"1", "Italian tomato", "62"},
            {"1", "cherry", "17"}, {"1", "large whole (3\" dia)", "182"}, {"1", "medium whole (2-3/5\" dia)", "123"},
            {"1", "slice, thick/large (1/2\" thick)", "27"}, {"1", "slice, medium (1/4\" thick)", "20"}}}},
         "Vegetables",
         {"Tomatoes / Red, ripe, raw / 1 cup, chopped or sliced", "Tomatoes / Red, ripe, raw / 1 medium whole (2-3/5\" dia)",
          "Tomatoes / Red, ripe, raw / 1 slice, medium (1/4\" thick)"}},
        {"a measure whose calories the whole grams distort is counted out larger",
         {{"09193", "0900", "Olives, ripe, canned", kOlive, {{"1", "large", "4.4"}, {"1", "olive", "3.2"}}}},
         "Fruits",
         {"Olives / Ripe, canned / 2 large", "Olives / Ripe, canned / 2 olives"}},
        {"singular and plural are one subgroup; capitals of a product name go, proper names stay",
         {{"18001", "1800", "Muffin, blueberry", {"300", "5", "10", "45", "2", "60", "400", "20"}, {{"1", "medium", "60"}}},
          {"18002", "1800", "Muffins, corn, Atlantic Style", {"300", "5", "10", "45", "2", "60", "400", "20"}, {{"1", "medium", "60"}}},
          {"18003", "1800", "Muffins, plain, Home Baked", {"300", "5", "10", "45", "2", "60", "400", "20"}, {{"1", "medium", "60"}}}},
         "Bakery and Grains",
         {"Muffins / Blueberry / 1 medium", "Muffins / Corn, Atlantic style / 1 medium", "Muffins / Plain, home baked / 1 medium"}},
        {"a food with an empty value goes where a complete one of its kind is there, and stays where none is",
         {{"21001", "2100", "Fast foods, taco, beef", {"220", "10", "12", "15", "", "100", "400", "30"}, {{"1", "small", "100"}}},
          {"21002", "2100", "Fast foods, taco, chicken", {"210", "11", "10", "15", "2", "100", "400", "30"}, {{"1", "small", "100"}}},
          {"21003", "2100", "Fast foods, nachos, cheese", {"300", "8", "17", "30", "", "200", "700", "20"}, {{"1", "portion", "100"}}}},
         "Fast Foods",
         {"Nachos / Cheese / 1 portion", "Taco / Chicken / 1 small"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rule);
        test::TempFolder folder;
        const dbmaker::Selection made = dbmaker::SelectFoods(Extract(folder, c.foods));
        EXPECT_EQ(Names(made, c.group), c.expected);
    }
}

TEST(DatabaseMakerRules, SubgroupsMergeIntoOneSpelling)
{
    struct Case {
        std::map<std::string, int> foods;
        std::map<std::string, std::string> merged;
    };
    const Case cases[] = {
        {{{"Muffin", 1}, {"Muffins", 5}}, {{"Muffin", "Muffins"}}},
        {{{"Carrot", 3}, {"Carrots", 3}}, {{"Carrot", "Carrots"}}},  // a tie: the plural
        {{{"Pepper", 4}, {"Peppers", 1}}, {{"Peppers", "Pepper"}}},
        {{{"Pancakes", 2}, {"Pancakes plain", 2}}, {{"Pancakes plain", "Pancakes"}}},
        {{{"Chicken broth", 1}, {"Chicken broth or bouillon", 2}}, {{"Chicken broth or bouillon", "Chicken broth"}}},
        {{{"Fruit cocktail", 1}, {"Fruit cocktail (peach and pear)", 3}}, {{"Fruit cocktail (peach and pear)", "Fruit cocktail"}}},
        {{{"Berry", 1}, {"Berries", 2}}, {{"Berry", "Berries"}}},
        {{{"Bread", 9}, {"Breadsticks", 2}, {"Rolls", 3}}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dbmaker::MergedSubgroups(c.foods), c.merged) << c.foods.begin()->first;
}

TEST(DatabaseMakerRules, SentenceCaseKeepsProperNamesAndLoneLetters)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Sausage Griddle Cake Sandwich", "Sausage griddle cake sandwich"},
        {"New Zealand, imported, frozen", "New Zealand, imported, frozen"},
        {"Nonfat, with added vitamin A", "Nonfat, with added vitamin A"},
        {"14\" Pizza, cheese", "14\" pizza, cheese"},
        {"with egg, cheese, and canadian bacon", "With egg, cheese, and Canadian bacon"},
        {"Red (European type, such as Thompson seedless)", "Red (European type, such as Thompson seedless)"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(dbmaker::SentenceCase(text), expected);
}

}  // namespace
