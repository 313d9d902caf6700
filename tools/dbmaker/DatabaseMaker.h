#pragma once
// Builds the delivered food database from the USDA SR21 files: chooses the
// foods, names them, converts their household measures and writes data.dat
// through the model's own writer. The rules are listed at the top of
// tools/MakeDatabase.cpp.
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <string>
#include <vector>

#include "dbmaker/UsdaFiles.h"
#include "fooddb/FoodGroups.h"
#include "fooddb/FoodTable.h"

namespace pw::dbmaker {

// The first line of the delivered data.dat: the data's origin, with the
// scramble seed (111) after the first ".". The about box shows the text
// after the "v". Seed 111 walks through seven different shifts; many seeds
// settle on one repeated shift, which would scramble no better than a plain
// letter offset.
inline constexpr const char* kDataVersionLine =
    "v21.111 USDA National Nutrient Database for Standard Reference, Release 21";

// The one record of the Favorites group: the chooser shows the group and
// this subgroup and finds no descriptions until the user copies foods there.
inline constexpr const char* kFavoritesSubgroup = "My Favorites";

// At most this many measures of one food.
inline constexpr int kMeasuresPerFood = 3;

// Where a record comes from: the USDA food and the line of WEIGHT.txt whose
// gram weight its values are for.
struct RecordOrigin {
    std::string ndbNo;
    int seq = 0;
    std::int64_t gramsHundredths = 0;

    bool operator==(const RecordOrigin&) const = default;
};

struct Selection {
    std::vector<FoodRecord> records;  // in table order
    std::vector<RecordOrigin> origins;  // one per record; empty for the Favorites entry
    int foodsRead = 0;                // foods in FOOD_DES.txt
    int foodsKept = 0;                // foods with at least one record
    // Per group: foods of the national dietary survey that passed every rule
    // but found no room in their group's share.
    std::map<std::string, int> surveyFoodsLeftForRoom;
};

// value per 100 g x grams / 100, both in hundredths, rounded half to even
// to a whole number. Exact: 81.11 g fat x 14.2 g / 100 = 11.51762 -> 12.
std::int32_t ValuePerMeasure(std::int64_t per100gHundredths, std::int64_t gramsHundredths);

// Alcohol in hundredths of a gram per 100 g of an alcoholic beverage:
// (Energ_Kcal - 4 Protein - 4 Carbohydrt - 9 Lipid_Tot) / 7, never below
// zero, kept as the numerator over 7 so that nothing is rounded early.
// Returns the numerator (hundredths x 7).
std::int64_t AlcoholNumeratorPer100g(const usda::Nutrients& n);

// The nine values of one measure of a food; alcohol only when alcoholic.
NutrientValues MeasureValues(const usda::Nutrients& n, std::int64_t gramsHundredths, bool alcoholic);

// True when the whole-gram values of a measure put its calories more than a
// quarter away from the calorie formula on the unrounded grams, for a
// measure worth at least kDistortionFloorKcal of a food with at least
// kAlmostNoKcalPer100g per 100 g: one large olive shows 0 kcal
// for 5.5, a tablespoon of whole milk 4 for 9.
inline constexpr int kDistortionFloorKcal = 1;
inline constexpr int kAlmostNoKcalPer100g = 10;
bool CaloriesDistorted(const usda::Nutrients& n, std::int64_t gramsHundredths, bool alcoholic);

// The counts a distorted measure is scaled by, smallest first: "10 olives"
// from USDA's one-olive weight. A spoon or a cup is only doubled ("2 tbsp"),
// and only from one.
inline constexpr int kScaleFactors[] = {2, 5, 10};

// The order the table keeps: plain byte order of group name, subgroup,
// description, then measure.
bool RecordLess(const FoodRecord& a, const FoodRecord& b);

// One record of an earlier release, as NamesText wrote it.
struct EarlierRecord {
    RecordOrigin origin;
    FoodRecord names;  // the four texts; no values
};

// The lines of NamesText; a line of other than seven fields, or with a
// number that is none, is a usda::SourceError naming the line.
std::vector<EarlierRecord> ParseEarlierNames(std::string_view text);

// Chooses and converts the foods of source. The foods an earlier release
// delivered (their USDA ids in earlierFoods) are placed before all others
// but the staples, so that the lists saved with it keep opening.
Selection SelectFoods(const usda::Source& source, const std::set<std::string>& earlierFoods = {});

// An earlier record's texts and the record of this release that stands for
// it: the same USDA food, by the same weight line where it is still kept,
// else by the lightest of the food's measures at least as heavy, else by its
// heaviest. A quantity of the old measure is
// quantityNumerator / quantityDenominator times as many of the new one.
struct RenamedRecord {
    FoodRecord from;  // texts only
    FoodRecord to;    // texts only
    std::int64_t quantityNumerator = 1;
    std::int64_t quantityDenominator = 1;
};

// The renames, sorted by the old texts: one for every earlier record whose
// four texts name no record of selection while its food is still there.
std::vector<RenamedRecord> Renames(const Selection& selection, const std::vector<EarlierRecord>& earlier);

// The renames as the C++ table the program compiles in
// (src/fooddb/DeliveredRenames.inc).
std::string RenamesSource(const std::vector<RenamedRecord>& renames);

// A table holding records in order, with the delivered version line, marked
// changed so that saving it writes every record line.
void FillTable(FoodTable& table, const std::vector<FoodRecord>& records);

// The sources of a release: sourceFolder holds usda-sr21/ and, from the
// second release on, earlier-names.txt.
struct MadeDatabase {
    Selection selection;
    std::string dataFile;        // the bytes of data.dat
    std::string renamesSource;   // the bytes of DeliveredRenames.inc
};
MadeDatabase MakeDatabase(const std::string& sourceFolder);

// One line per record, in table order, CR LF ended: the USDA food id, the
// WEIGHT.txt line number, the grams in hundredths and the four texts,
// separated by "^" as the USDA files separate their fields. The names of a
// release kept this way let a later release say which of its foods were
// renamed.
std::string NamesText(const Selection& selection);

}  // namespace pw::dbmaker
