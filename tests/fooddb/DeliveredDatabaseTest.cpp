// The delivered data.dat: it loads, holds sensible foods in the order the
// chooser needs, and is exactly what the maker makes from the USDA files.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "core/LineFile.h"
#include "dbmaker/DatabaseMaker.h"
#include "dbmaker/FoodNames.h"
#include "fooddb/DataFile.h"
#include "analysis/AnalysisOpening.h"
#include "fooddb/FoodGroups.h"
#include "fooddb/FoodRenames.h"
#include "foodlist/Quantity.h"

namespace {

using namespace pw;

const std::string kSourceDir = PLATEWELL_SOURCE_DIR;
const std::string kDataFile = kSourceDir + "/data/data.dat";
const std::string kSources = kSourceDir + "/data/source";
const std::string kRenamesFile = kSourceDir + "/src/fooddb/DeliveredRenames.inc";

const dbmaker::MadeDatabase& Fresh()
{
    static const dbmaker::MadeDatabase made = dbmaker::MakeDatabase(kSources);
    return made;
}

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
        // Sentence case and calories: the rules' test on the same records.
        EXPECT_FALSE(r.subgroup.empty() || r.description.empty() || r.measure.empty());
        for (int n = kProtein; n <= kAlcohol; ++n)
            EXPECT_GE(r.values[n], 0) << "a negative value loses its sign in the file";
    }
    EXPECT_LE(groups.size(), 499u);
    for (const auto* tier : {&subgroups, &descriptions, &measures})
        for (const auto& [key, entries] : *tier)
            EXPECT_LE(entries.size(), 499u) << key;
    for (const auto& [key, entries] : measures)
        EXPECT_LE(entries.size(), static_cast<std::size_t>(dbmaker::kMeasuresPerFood)) << key;
}

TEST(DeliveredDatabase, CommittedFilesEqualAFreshGeneration)
{
    EXPECT_EQ(static_cast<int>(Fresh().selection.records.size()), Table().Count());
    ASSERT_EQ(Fresh().dataFile.size(), Bytes().size());
    EXPECT_TRUE(Fresh().dataFile == Bytes()) << "data/data.dat is stale: build the regenerate_database target";
    EXPECT_TRUE(Fresh().renamesSource == ReadWholeFile(kRenamesFile, std::size_t(1) << 30))
        << "src/fooddb/DeliveredRenames.inc is stale: build the regenerate_database target";
}

// value x grams / 100 with halves to even, worked out here on its own.
std::int32_t Recompute(std::int64_t per100gHundredths, std::int64_t gramsHundredths)
{
    const std::lldiv_t d = std::lldiv(per100gHundredths * gramsHundredths, 1'000'000);
    const bool up = 2 * d.rem > 1'000'000 || (2 * d.rem == 1'000'000 && d.quot % 2 == 1);
    return static_cast<std::int32_t>(d.quot + (up ? 1 : 0));
}

// What a dietitian checks on every record of the delivered file: no brand,
// no measure that says other than its weight, a size on every serving, no
// clutter, no calories the whole grams distort, one spelling per subgroup,
// sentence case; and every value the exact recomputation from USDA.
TEST(DeliveredDatabase, EveryRecordKeepsTheRulesAndRecomputesFromUsda)
{
    const usda::Source source = usda::ReadSource(kSources + "/usda-sr21");
    const dbmaker::Selection& made = Fresh().selection;
    ASSERT_EQ(made.records.size(), made.origins.size());
    std::map<std::string, std::map<std::string, int>> subgroups;
    std::set<std::string> incomplete, spoonfulsOnly, undistorted;
    std::map<std::string, const usda::FoodDescription*> foods;
    for (const auto& f : source.foods)
        foods[f.ndbNo] = &f;
    for (std::size_t i = 0; i < made.records.size(); ++i) {
        const FoodRecord& r = made.records[i];
        const dbmaker::RecordOrigin& o = made.origins[i];
        if (r.group == kFavoritesGroup)
            continue;
        SCOPED_TRACE(r.subgroup + " / " + r.description + " / " + r.measure);
        ++subgroups[r.group][r.subgroup];
        for (const std::string* text : {&r.subgroup, &r.description, &r.measure})
            EXPECT_FALSE(dbmaker::NamesBrand(*text));
        const std::string measure = dbmaker::Lower(r.measure);
        EXPECT_EQ(measure.find("servings per"), std::string::npos);
        if (measure.find("serving") != std::string::npos) {
            EXPECT_TRUE(measure.size() > 3 && measure.compare(measure.size() - 3, 3, " g)") == 0) << measure;
        }
        const std::string unit = measure.substr(measure.find(' ') + 1);
        EXPECT_TRUE(unit != "g" && unit != "ml" && unit != "grams" && unit[0] != '(' && measure.find("size cup") == std::string::npos);
        EXPECT_EQ(dbmaker::SentenceCase(r.subgroup), r.subgroup);
        EXPECT_EQ(dbmaker::SentenceCase(r.description), r.description);

        const usda::Nutrients& n = source.nutrients.at(o.ndbNo);
        if (!n.complete)
            incomplete.insert(o.ndbNo);
        const bool alcoholic = foods.at(o.ndbNo)->longDesc.rfind("Alcoholic beverage", 0) == 0;
        // A distorted measure only as a food's spoonful when it has no other.
        if (dbmaker::CaloriesDistorted(n, o.gramsHundredths, alcoholic)) {
            EXPECT_TRUE(unit.rfind("tbsp", 0) == 0 || unit.rfind("tsp", 0) == 0 || unit.rfind("cup", 0) == 0);
            spoonfulsOnly.insert(o.ndbNo);
        } else {
            undistorted.insert(o.ndbNo);
        }
        const std::pair<Nutrient, std::int64_t> kept[] = {
            {kProtein, n.protein}, {kCarbs, n.carbs},     {kFats, n.fat},       {kCholesterol, n.cholesterol},
            {kFiber, n.fiber},     {kCalcium, n.calcium}, {kSodium, n.sodium},
        };
        for (const auto& [nutrient, per100g] : kept)
            EXPECT_EQ(r.values[nutrient], Recompute(per100g, o.gramsHundredths)) << nutrient;
        EXPECT_EQ(r.values[kCalories],
                  ComputeCalories(r.values[kProtein], r.values[kCarbs], r.values[kFats], r.values[kAlcohol]));
    }
    for (const auto& [group, names] : subgroups)
        EXPECT_TRUE(dbmaker::MergedSubgroups(names).empty()) << group;
    for (const std::string& food : spoonfulsOnly)
        EXPECT_EQ(undistorted.count(food), 0u) << food << " has a distorted spoonful beside a measure that is not";
    EXPECT_LE(spoonfulsOnly.size(), 5u);
    // The manual's page on the data gives their count.
    const std::string manual = ReadWholeFile(kSourceDir + "/data/pw.hlp", kHelpFileLimit);
    EXPECT_NE(manual.find(std::to_string(incomplete.size()) + " of the delivered foods are such foods"), std::string::npos)
        << incomplete.size() << " foods with an unknown value";
}

// The everyday foods a person logs are there with a household measure.
TEST(DeliveredDatabase, EverydayFoodsAreThereWithAHouseholdMeasure)
{
    const std::tuple<const char*, const char*, const char*> foods[] = {
        {"Cheese", "Feta", "1 oz"},
        {"Cheese", "Edam", "1 oz"},
        {"Potatoes", "Baked, flesh and skin, without salt", "1 potato medium"},
        {"Cereals ready-to-eat", "Corn flakes, plain", "1 cup"},
        {"Bread", "Whole-wheat, commercially prepared, toasted", "1 slice"},
        {"Crackers", "Matzo, plain", "1 matzo"},
        {"Pickles", "Cucumber, sour", "1 spear"},
        {"Squash", "Winter, all varieties, baked, without salt", "1 cup, cubes"},
        {"Tomatoes", "Red, ripe, raw, year round average", "1 medium whole (2-3/5\" dia)"},
        {"Onions", "Raw", "1 medium (2-1/2\" dia)"},
        {"Oranges", "Raw, all commercial varieties", "1 fruit (2-5/8\" dia)"},
        {"Bread", "White, commercially prepared (includes soft bread crumbs)", "1 slice"},
    };
    for (const auto& [subgroup, description, measure] : foods) {
        bool found = false;
        for (int i = 0; i < Table().Count() && !found; ++i)
            found = Table().Subgroup(i) == subgroup && Table().Description(i) == description && Table().Measure(i) == measure;
        EXPECT_TRUE(found) << subgroup << " / " << description << " / " << measure;
    }
}

// A list saved with the earlier database's names opens whole: every food of
// it that is still delivered is found, renamed or not, with its quantity
// scaled to the new measure; only the foods no longer delivered, those left
// out for a value USDA does not give, are told.
TEST(DeliveredDatabase, AListWithTheEarlierNamesOpensWhole)
{
    const auto earlier = dbmaker::ParseEarlierNames(ReadWholeFile(kSources + "/earlier-names.txt", std::size_t(1) << 30));
    std::set<std::string> delivered;
    for (const auto& o : Fresh().selection.origins)
        delivered.insert(o.ndbNo);
    std::vector<AnalysisItem> items;
    std::vector<std::string> gone;
    for (const auto& e : earlier) {
        items.push_back(AnalysisItem{0, "3", e.names.group, e.names.subgroup, e.names.description, e.names.measure});
        if (!delivered.count(e.origin.ndbNo))
            gone.push_back(MissingFoodText(items.back()));
    }
    std::vector<FoodListEntry> rows;
    std::vector<std::string> missing;
    for (std::size_t at = 0; at < items.size(); at += 400) {  // a list holds 500 rows
        const std::vector<AnalysisItem> part(items.begin() + static_cast<std::ptrdiff_t>(at),
                                             items.begin() + static_cast<std::ptrdiff_t>(std::min(at + 400, items.size())));
        OpenItems(part, Table(), DailyValues{}, [&](FoodListEntry e) { rows.push_back(std::move(e)); },
                  [&](const std::string& text) { missing.push_back(text); });
    }
    EXPECT_EQ(missing, gone);
    EXPECT_EQ(rows.size() + gone.size(), earlier.size());
    // Only a food whose unknown value a complete one of its kind replaces is gone.
    const usda::Source source = usda::ReadSource(kSources + "/usda-sr21");
    for (const auto& e : earlier)
        if (!delivered.count(e.origin.ndbNo)) {
            EXPECT_FALSE(source.nutrients.at(e.origin.ndbNo).complete) << e.names.subgroup << " / " << e.names.description;
        }
    // A renamed food takes its new texts, and its quantity in the new measure.
    bool scaled = false;
    for (const auto& row : rows) {
        EXPECT_EQ(Table().Subgroup(row.foodIndex), row.subgroup);
        EXPECT_EQ(Table().Measure(row.foodIndex), row.measure);
        if (row.subgroup == "Olives" && row.description == "Ripe, canned (small-extra large)" && row.measure == "2 large") {
            EXPECT_EQ(row.quantityText, "1.5");  // 3 large olives
            scaled = true;
        }
    }
    EXPECT_TRUE(scaled);
}

// An old measure lighter than every new one of its food: a small quantity
// opens scaled up, one that would go beyond what the quantity box takes is
// told as gone instead of making a list that could not be opened again.
TEST(DeliveredDatabase, ARenamedFoodNeverOpensBeyondTheLargestQuantity)
{
    const auto earlier = dbmaker::ParseEarlierNames(ReadWholeFile(kSources + "/earlier-names.txt", std::size_t(1) << 30));
    const FoodRename* grown = nullptr;
    AnalysisItem item;
    for (const auto& e : earlier) {
        const FoodRename* r = FindFoodRename(e.names.group, e.names.subgroup, e.names.description, e.names.measure);
        if (r && r->quantityNumerator > 2 * r->quantityDenominator) {
            grown = r;
            item = AnalysisItem{0, "", e.names.group, e.names.subgroup, e.names.description, e.names.measure};
            break;
        }
    }
    ASSERT_NE(grown, nullptr);
    for (const char* quantity : {"1", "99"}) {
        item.quantityText = quantity;
        std::int16_t index = -1;
        const AnalysisItem found = LocateItem(item, Table(), index);
        std::string text = found.quantityText;
        if (std::string(quantity) == "1") {
            ASSERT_GE(index, 0);
            EXPECT_EQ(found.measure, grown->newMeasure);
            EXPECT_GT(ParseQuantity(text), 2.0f);
        } else {
            EXPECT_EQ(index, -1);
        }
    }
}

TEST(DeliveredDatabase, ScaledQuantitiesReadInTheQuantityBox)
{
    const std::tuple<const char*, int, int, const char*> cases[] = {
        {"3", 1, 2, "1.5"}, {"1", 1, 1, "1"}, {"2-1/2", 2, 1, "5"}, {"1/3", 1, 3, "0.11"},
        {"1", 1420, 24400, "0.06"}, {"1", 1, 1000, "0.01"}, {"abc", 1, 2, "abc"}, {"", 1, 2, ""},
    };
    for (const auto& [text, numerator, denominator, expected] : cases)
        EXPECT_EQ(ScaledQuantityText(text, numerator, denominator), expected) << text;
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

}  // namespace
