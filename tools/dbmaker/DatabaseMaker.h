#pragma once
// Builds the delivered food database from the USDA SR21 files: chooses the
// foods, names them, converts their household measures and writes data.dat
// through the model's own writer. The rules are listed at the top of
// tools/MakeDatabase.cpp.
#include <array>
#include <cstdint>
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

// The order the table keeps: plain byte order of group name, subgroup,
// description, then measure.
bool RecordLess(const FoodRecord& a, const FoodRecord& b);

// Chooses and converts the foods of source.
Selection SelectFoods(const usda::Source& source);

// A table holding records in order, with the delivered version line, marked
// changed so that saving it writes every record line.
void FillTable(FoodTable& table, const std::vector<FoodRecord>& records);

// The bytes of data.dat made from the USDA files in usdaFolder.
std::string MakeDatabaseBytes(const std::string& usdaFolder, Selection* selection = nullptr);

// One line per record, in table order, CR LF ended: the USDA food id, the
// WEIGHT.txt line number, the grams in hundredths and the four texts,
// separated by "^" as the USDA files separate their fields. The names of a
// release kept this way let a later release say which of its foods were
// renamed.
std::string NamesText(const Selection& selection);

// Makes the database from the USDA files in usdaFolder and saves it to
// outputPath with the model's writer; returns what was chosen.
Selection MakeDatabase(const std::string& usdaFolder, const std::string& outputPath);

}  // namespace pw::dbmaker
