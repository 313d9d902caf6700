#pragma once
// Reading the three ASCII files of the USDA National Nutrient Database for
// Standard Reference, Release 21: one record a line (CR LF), fields separated
// by "^", text fields wrapped in "~", an empty field meaning "no value".
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pw::usda {

// A malformed source file: names the file and the line.
class SourceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Numbers are kept as exact scaled integers so that the values per measure
// can be rounded half to even without binary fractions getting in the way.
inline constexpr std::int64_t kValueScale = 100;    // nutrient values and grams: hundredths
inline constexpr std::int64_t kAmountScale = 1000;  // household amounts: thousandths

// One line of FOOD_DES.txt.
struct FoodDescription {
    std::string ndbNo;         // five-digit food id
    std::string groupCode;     // four-digit group code, e.g. "0100"
    std::string longDesc;      // "Butter, whipped, with salt"
    std::string manufacturer;  // empty for generic foods
    bool survey = false;       // used in the national dietary survey: a food people report eating
};

// The nutrients of one food per 100 g edible portion, in hundredths.
struct Nutrients {
    std::int64_t energyKcal = 0;
    std::int64_t protein = 0;
    std::int64_t fat = 0;
    std::int64_t carbs = 0;
    std::int64_t fiber = 0;
    std::int64_t calcium = 0;
    std::int64_t sodium = 0;
    std::int64_t cholesterol = 0;
    // False when USDA leaves one of the seven values the table keeps
    // (protein, fat, carbohydrate, fiber, calcium, sodium, cholesterol)
    // empty: it reads as 0, which the food may well not be.
    bool complete = true;
};

// One line of WEIGHT.txt.
struct HouseholdMeasure {
    int seq = 0;
    std::int64_t amount = 0;  // thousandths: 0.5 -> 500
    std::string unit;         // "cup", "tbsp", "slice (1 oz)"
    std::int64_t grams = 0;   // hundredths: 14.2 -> 1420
};

struct Source {
    std::vector<FoodDescription> foods;  // in file order
    std::map<std::string, Nutrients> nutrients;
    std::map<std::string, std::vector<HouseholdMeasure>> measures;  // by Seq
};

// The fields of one line, "~" wrappers removed.
std::vector<std::string> SplitFields(std::string_view line);

// A decimal text as an integer scaled by 10^decimals: ParseScaled("14.2", 2)
// is 1420, ".5" with 3 decimals is 500, "" is 0. More fractional digits than
// decimals, or anything but digits and one point, is a SourceError.
std::int64_t ParseScaled(std::string_view text, int decimals);

// Reads FOOD_DES.txt, ABBREV.txt and WEIGHT.txt from folder.
Source ReadSource(const std::string& folder);

}  // namespace pw::usda
