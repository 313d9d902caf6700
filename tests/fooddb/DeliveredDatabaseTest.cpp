// The delivered data.dat: it loads, holds sensible foods in the order the
// chooser needs, and is exactly what the maker makes from the USDA files.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "core/LineFile.h"
#include "dbmaker/DatabaseMaker.h"
#include "dbmaker/FoodNames.h"
#include "fooddb/DataFile.h"
#include "fooddb/FoodGroups.h"

namespace {

using namespace pw;

const std::string kSourceDir = PLATEWELL_SOURCE_DIR;
const std::string kDataFile = kSourceDir + "/data/data.dat";
const std::string kUsdaFolder = kSourceDir + "/data/source/usda-sr21";

const std::string& Bytes()
{
    static const std::string bytes = ReadWholeFile(kDataFile, kDataFileLimit);
    return bytes;
}

const FoodTable& Table()
{
    static const FoodTable table = [] {
        FoodTable t;
        EXPECT_EQ(LoadDatabaseHeader(Bytes(), t), HeaderResult::Ok);
        LoadDatabaseRecords(t);
        return t;
    }();
    return table;
}

TEST(DeliveredDatabase, LoadsWithItsVersionAndLeavesRoomForTheUsersFoods)
{
    EXPECT_EQ(Table().DataVersionLine, dbmaker::kDataVersionLine);
    EXPECT_EQ(Table().ScrambleSeed, SeedFromVersionLine(dbmaker::kDataVersionLine));
    EXPECT_NE(Table().ScrambleSeed, 0) << "the delivered file is scrambled";
    EXPECT_GE(Table().Count(), 3300);
    EXPECT_LE(Table().Count(), 3700);
    EXPECT_GE(kFoodCapacity - Table().Count(), 300);
    // Nothing follows the last record line.
    EXPECT_EQ(SplitLines(Bytes()).size(), static_cast<std::size_t>(3 + Table().Count()));
}

TEST(DeliveredDatabase, EveryGroupHasFoodsAndFavoritesHoldsOneEmptyEntry)
{
    std::map<std::string, int> perGroup;
    for (int i = 0; i < Table().Count(); ++i) {
        const FoodRecord r = Table().Record(i);
        ++perGroup[r.group];
        if (r.group == kFavoritesGroup) {
            EXPECT_FALSE(r.subgroup.empty());
            EXPECT_EQ(r.description + r.measure, "");
            EXPECT_EQ(r.values, NutrientValues{});
        }
    }
    for (std::string_view name : kGroupNames) {
        const int count = perGroup[std::string(name)];
        if (name == kFavoritesGroup)
            EXPECT_EQ(count, 1);
        else
            EXPECT_GE(count, 20) << name;
    }
    EXPECT_EQ(perGroup.size(), kGroupNames.size()) << "a record with a group outside the 17";
}

// Values worked out by hand from ABBREV.txt (per 100 g) and WEIGHT.txt
// (grams of the measure): value x grams / 100, halves to even.
TEST(DeliveredDatabase, SpotChecksMatchTheUsdaFigures)
{
    struct Case {
        const char* group;
        const char* subgroup;
        const char* description;
        const char* measure;
        // calories, protein, carbs, fats, cholesterol, fiber, calcium, sodium, alcohol
        NutrientValues expected;
    };
    const Case cases[] = {
        // Butter, salted, 14.2 g: fat 81.11 -> 11.52, cholesterol 215 -> 30.53,
        // sodium 576 -> 81.79, calcium 24 -> 3.41, protein 0.85 -> 0.12.
        {"Dairy and Eggs", "Butter", "Salted", "1 tbsp", {108, 0, 0, 12, 31, 0, 3, 82, 0}},
        // Milk, whole, 244 g: protein 3.22 -> 7.86, carbs 4.52 -> 11.03, fat 3.25 -> 7.93,
        // cholesterol 10 -> 24.4, calcium 113 -> 275.72, sodium 40 -> 97.6.
        {"Dairy and Eggs", "Milk", "Whole, 3.25% milkfat", "1 cup", {148, 8, 11, 8, 24, 0, 276, 98, 0}},
        // Beer, 356 g: alcohol (43 - 4 x 0.46 - 4 x 3.55 - 0) / 7 = 3.851 g per 100 g -> 13.71;
        // calories 4 x (13 + 2) + 7 x 14 = 158.
        {"Beverages", "Beer", "Regular, all", "1 can", {158, 2, 13, 0, 0, 0, 14, 14, 14}},
        // Bananas, 118 g: protein 1.09 -> 1.29, carbs 22.84 -> 26.95, fat 0.33 -> 0.39,
        // fiber 2.6 -> 3.07, calcium 5 -> 5.9, sodium 1 -> 1.18.
        {"Fruits", "Bananas", "Raw", "1 medium (7\" to 7-7/8\" long)", {112, 1, 27, 0, 0, 3, 6, 1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.subgroup) + " / " + c.description + " / " + c.measure);
        int found = 0;
        for (int i = 0; i < Table().Count(); ++i) {
            const FoodRecord r = Table().Record(i);
            if (r.group == c.group && r.subgroup == c.subgroup && r.description == c.description &&
                r.measure == c.measure) {
                EXPECT_EQ(r.values, c.expected);
                ++found;
            }
        }
        EXPECT_EQ(found, 1);
    }
}

// Every record: text fields the file and the chooser can hold, foods that
// are generic and eaten cooked, in insert order without duplicates, and no
// chooser list longer than 499.
TEST(DeliveredDatabase, EveryRecordIsAPlainGenericFoodInInsertOrder)
{
    static const std::set<std::string> cookedOnly = {"Beef", "Pork", "Lamb", "Veal", "Chicken", "Turkey"};
    std::set<std::string> groups;
    std::map<std::string, std::set<std::string>> subgroups, descriptions, measures;
    int lastGroupIndex = 0;
    for (int i = 0; i < Table().Count(); ++i) {
        const FoodRecord r = Table().Record(i);
        groups.insert(r.group);
        subgroups[r.group].insert(r.subgroup);
        descriptions[r.group + '\t' + r.subgroup].insert(r.description);
        measures[r.group + '\t' + r.subgroup + '\t' + r.description].insert(r.measure);
        SCOPED_TRACE("record " + std::to_string(i) + ": " + r.subgroup + " / " + r.description);
        if (i > 0) {
            const FoodRecord a = Table().Record(i - 1);
            EXPECT_LT(std::tie(a.group, a.subgroup, a.description, a.measure),
                      std::tie(r.group, r.subgroup, r.description, r.measure));
            // Groups follow the order of their letters.
            const int groupIndex = *GroupLetterFromName(r.group) - 'A';
            EXPECT_GE(groupIndex, lastGroupIndex);
            lastGroupIndex = groupIndex;
        }
        for (const std::string* text : {&r.subgroup, &r.description, &r.measure}) {
            EXPECT_LE(text->size(), static_cast<std::size_t>(kMaxTextField));
            for (unsigned char c : *text)
                EXPECT_GE(c, 32) << "control character in a text field";
            EXPECT_EQ(dbmaker::NormalizeSpacing(*text), *text) << "stray blanks";
        }
        // Brand names are written in capitals ("KRAFT", "McDONALD'S").
        for (const std::string* text : {&r.subgroup, &r.description}) {
            int run = 0;
            for (char c : *text) {
                run = (c >= 'A' && c <= 'Z') ? run + 1 : 0;
                EXPECT_LT(run, 3) << *text;
            }
        }
        // Fresh meats and poultry are offered cooked only.
        if ((r.group == "Meats" || r.group == "Poultry") && cookedOnly.count(r.subgroup)) {
            for (const auto& part : dbmaker::SplitParts(r.description))
                EXPECT_NE(dbmaker::Lower(part), "raw");
        }
        if (r.group == kFavoritesGroup)
            continue;
        EXPECT_FALSE(r.subgroup.empty() || r.description.empty() || r.measure.empty());
        EXPECT_EQ(dbmaker::CapitalizeFirst(r.subgroup), r.subgroup);
        EXPECT_EQ(dbmaker::CapitalizeFirst(r.description), r.description);
        for (int n = kProtein; n <= kAlcohol; ++n)
            EXPECT_GE(r.values[n], 0) << "a negative value loses its sign in the file";
        EXPECT_EQ(r.values[kCalories],
                  ComputeCalories(r.values[kProtein], r.values[kCarbs], r.values[kFats], r.values[kAlcohol]));
    }
    EXPECT_LE(groups.size(), 499u);
    for (const auto* tier : {&subgroups, &descriptions, &measures})
        for (const auto& [key, entries] : *tier)
            EXPECT_LE(entries.size(), 499u) << key;
    for (const auto& [key, entries] : measures)
        EXPECT_LE(entries.size(), static_cast<std::size_t>(dbmaker::kMeasuresPerFood)) << key;
}

TEST(DeliveredDatabase, CommittedFileEqualsAFreshGeneration)
{
    dbmaker::Selection selection;
    const std::string fresh = dbmaker::MakeDatabaseBytes(kUsdaFolder, &selection);
    EXPECT_EQ(static_cast<int>(selection.records.size()), Table().Count());
    ASSERT_EQ(fresh.size(), Bytes().size());
    EXPECT_TRUE(fresh == Bytes()) << "data/data.dat is stale: build the regenerate_database target";
}

TEST(DatabaseMaker, ValuesPerMeasureRoundHalfToEven)
{
    struct Case {
        std::int64_t per100g;  // hundredths
        std::int64_t grams;    // hundredths
        std::int32_t expected;
    };
    const Case cases[] = {
        {8111, 1420, 12},     // 81.11 x 14.2 / 100 = 11.518
        {85, 1420, 0},        // 0.85 x 14.2 / 100 = 0.121
        {250, 10000, 2},      // 2.5 exactly: down to even
        {350, 10000, 4},      // 3.5 exactly: up to even
        {125, 20000, 2},      // 1.25 x 200 / 100 = 2.5
        {50000, 97600, 4880}, // 500 x 976 / 100
        {0, 25000, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dbmaker::ValuePerMeasure(c.per100g, c.grams), c.expected) << c.per100g << " x " << c.grams;
}

TEST(DatabaseMaker, AlcoholOnlyForAlcoholicBeveragesAndNeverNegative)
{
    usda::Nutrients beer;
    beer.energyKcal = 4300;
    beer.protein = 46;
    beer.carbs = 355;
    beer.fat = 0;
    EXPECT_EQ(dbmaker::MeasureValues(beer, 35600, true)[kAlcohol], 14);
    EXPECT_EQ(dbmaker::MeasureValues(beer, 35600, false)[kAlcohol], 0);

    usda::Nutrients rootBeer;  // energy slightly below 4 x carbs
    rootBeer.energyKcal = 4100;
    rootBeer.carbs = 1060;
    EXPECT_EQ(dbmaker::AlcoholNumeratorPer100g(rootBeer), 0);
    EXPECT_EQ(dbmaker::MeasureValues(rootBeer, 37000, true)[kAlcohol], 0);
}

TEST(DatabaseMaker, HouseholdMeasuresReadAsCooksWriteThem)
{
    struct Case {
        std::int64_t amount;  // thousandths
        const char* unit;
        std::optional<std::string> expected;
    };
    const Case cases[] = {
        {1000, "cup", "1 cup"}, {500, "cup", "1/2 cup"}, {333, "cup", "1/3 cup"}, {667, "cup", "2/3 cup"},
        {670, "cup", "2/3 cup"}, {250, "tsp", "1/4 tsp"}, {750, "cup", "3/4 cup"}, {125, "cup", "1/8 cup"},
        {83, "package", "1/12 package"}, {2500, "cups", "2-1/2 cups"}, {1250, "cup", "1-1/4 cup"},
        {3000, "oz", "3 oz"},
        {3527, "oz", std::nullopt},  // 100 g in ounces: no household amount
        {1000, "cup (1 NLEA serving)", "1 cup"}, {1000, "oz ( 1 serving )", "1 oz"}, {1000, "serving (3 oz)", "3 oz"},
        {1000, "serving ( 3 oz )", "3 oz"}, {1000, "serving 1/2 cup", "1/2 cup"},
        {2000, "links 1 NLEA serving", "2 links"}, {1000, "NLEA serving", std::nullopt},
        {1000, "chop, excluding refuse (yield from 1 raw chop, with refuse, weighing 151 g)", "1 chop"},
        {1000, "patty ( yield from 1/4 lb raw meat )", "1 patty"},
        {1000, "piece, cooked, excluding refuse (yield from 1 lb raw meat with refuse)", std::nullopt},
        {1000, "unit (yield from 1 lb ready-to-cook chicken)", std::nullopt},
        {500, "breast, bone removed", "1/2 breast, bone removed"},
        {1000, "pat (1\" sq, 1/3\" high)", "1 pat (1\" sq, 1/3\" high)"}, {1000, "tablespoon", "1 tbsp"},
        {4000, "teaspoon", "4 tsp"}, {1000, "fluid ounce", "1 fl oz"}, {1000, "tablespoonful", "1 tablespoonful"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dbmaker::MeasureText(c.amount, c.unit), c.expected) << c.amount << " " << c.unit;
}

TEST(DatabaseMaker, ChoosesEverydayMeasuresOfDifferentUnitsFirst)
{
    struct Case {
        std::vector<std::string> measures;
        std::vector<std::size_t> expected;
    };
    const Case cases[] = {
        // cheese: one cup form, then ounces and slices before more cups
        {{"1 cup, diced", "1 cup, melted", "1 cup, shredded", "1 oz", "1 cubic inch", "1 slice (1 oz)"}, {0, 3, 5}},
        // eggs: the odd sizes after large and medium
        {{"1 cup (4.86 large eggs)", "1 extra large", "1 jumbo", "1 large", "1 medium"}, {0, 3, 4}},
        // bulk measures last, but still taken when nothing else is there
        {{"1 lb", "1 package (10 oz)", "1 cup"}, {2, 0, 1}},
        {{"1 cup", "1 tbsp"}, {0, 1}},
        {{}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dbmaker::ChooseMeasures(c.measures, 3), c.expected);
}

TEST(DatabaseMaker, DescriptionsSplitIntoPartsOutsideParentheses)
{
    struct Case {
        const char* text;
        std::vector<std::string> parts;
    };
    const Case cases[] = {
        {"Butter, salted", {"Butter", "salted"}},
        {"Chickpeas (garbanzo beans, bengal gram), mature seeds, raw",
         {"Chickpeas (garbanzo beans, bengal gram)", "mature seeds", "raw"}},
        {"Beef,  round,bottom round ,  raw", {"Beef", "round", "bottom round", "raw"}},
        {"Eggnog", {"Eggnog"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dbmaker::SplitParts(c.text), c.parts) << c.text;
}

}  // namespace
