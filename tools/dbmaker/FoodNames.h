#pragma once
// Text shaping for the delivered database: long USDA descriptions cut into
// comma parts, household amounts written as cooks write them, and measure
// names cleaned of the notes that only matter to a laboratory.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pw::dbmaker {

// Whitespace runs collapsed to one blank, blanks trimmed, a blank put after
// every comma and none before it or inside parentheses: "Beef,  round,x ( a )"
// becomes "Beef, round, x (a)".
std::string NormalizeSpacing(std::string_view text);

// The comma-separated parts of a description, trimmed; commas inside
// parentheses do not separate: "Chickpeas (garbanzo beans, bengal gram), raw"
// gives two parts.
std::vector<std::string> SplitParts(std::string_view text);
std::string JoinParts(const std::vector<std::string>& parts, std::size_t first = 0);

// ASCII case helpers (the USDA texts are ASCII).
std::string Lower(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool ContainsNoCase(std::string_view text, std::string_view what);

// Sentence case: the first letter in upper case, every other word that USDA
// wrote with a capital ("Sausage Griddle Cake Sandwich", "Turkey Pot Pie") in
// lower case, except proper names ("Atlantic", "New Zealand", "Thompson")
// and letters standing alone ("vitamin A").
std::string SentenceCase(std::string_view text);

// One spelling per subgroup among the subgroups of one group: a singular
// beside its plural ("Muffin", "Muffins") takes the spelling more foods use
// (the plural on a tie); "X plain" and "X (note)" beside "X" become "X".
// Returns, for every name that changes, its new name.
std::map<std::string, std::string> MergedSubgroups(const std::map<std::string, int>& foodsPerSubgroup);

// First character in upper case, the rest unchanged.
std::string CapitalizeFirst(std::string_view text);

// A household amount in thousandths as a cook writes it: 1000 -> "1",
// 500 -> "1/2", 333 -> "1/3", 2500 -> "2-1/2", 1250 -> "1-1/4". Fractions
// with a denominator of 2, 3, 4, 6, 8 or 12 are recognised within 4
// thousandths; any other amount (3.527, for 100 g in ounces) has no nice
// form and gives nothing.
std::optional<std::string> FormatAmount(std::int64_t thousandths);

// The unit of a household measure without its laboratory notes:
// "cup (1 NLEA serving)" -> "cup", "oz ( 1 serving )" -> "oz",
// "chop, excluding refuse (yield from 1 raw chop, ...)" -> "chop".
// Nothing when the measure is only a yield of a raw cut ("piece, cooked,
// excluding refuse (yield from 1 lb raw meat ...)", "unit (yield ...)").
std::optional<std::string> CleanMeasureUnit(std::string_view unit);

// Grams in hundredths as a size: 23700 -> "237 g", 190 -> "1.9 g".
std::string GramsText(std::int64_t gramsHundredths);

// The brand names USDA leaves in some household measures ("cup Cheez-its",
// "large McDonald's shake"); a measure never shows them.
bool NamesBrand(std::string_view text);

// The measure text of the table: amount and unit, "1/2 cup". Brand names are
// taken out of the unit, and a note that names brands goes with them. A
// "serving" says its size: "serving (3 oz)" -> "3 oz", "serving 1/2 cup" ->
// "1/2 cup", and a serving whose name gives no plain size, a bare "serving"
// or "serving 9 servings per 24 oz package", is written with its weight,
// "1 serving (81 g)". Nothing when the amount has no nice form, the unit is a
// bare yield, a bare weight ("45 g", "1 ml") or only a note, or the text
// would exceed 75 characters even without its parenthetical notes.
std::optional<std::string> MeasureText(std::int64_t amountThousandths, std::string_view unit,
                                       std::int64_t gramsHundredths);

// A measure taken factor times, as a person counts it: "1 large" x 10 ->
// "10 large", "1 olive" x 10 -> "10 olives", "1/2 cup" x 2 -> "1 cup".
std::optional<std::string> ScaledMeasureText(std::int64_t amountThousandths, std::string_view unit,
                                             std::int64_t gramsHundredths, int factor);

// True for containers and whole items that are rarely one person's serving
// (lb, package, can, jar, whole pie, loaf, ...): such measures come after the
// everyday ones when a food has more than three.
bool IsBulkMeasure(std::string_view measureText);

// Which of a food's measures (in USDA order) to keep, at most count of them:
// the household measures a person reaches for first (medium, fruit, slice,
// cup, tbsp, piece, in that order), the standard one before its variants
// ("1 slice" before "1 slice, large", "1 medium" before "1 Italian tomato"),
// odd sizes ("jumbo", "1 cup, melted") and servings after them and bulk ones
// last; a unit not yet chosen ("oz" after "cup") before a second form of the
// same unit. Returns the chosen indices in order of preference.
std::vector<std::size_t> ChooseMeasures(const std::vector<std::string>& measureTexts, std::size_t count);

}  // namespace pw::dbmaker
