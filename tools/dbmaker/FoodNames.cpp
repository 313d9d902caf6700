#include "dbmaker/FoodNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>

#include "core/Text.h"
#include "dbmaker/UsdaFiles.h"
#include "fooddb/FoodTable.h"

namespace pw::dbmaker {

namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t'; }

char LowerChar(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

bool StartsWithNoCase(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

// Removes every parenthetical note for which drop(note) is true; the note is
// passed without its parentheses.
template <typename Pred>
std::string RemoveNotes(std::string_view text, Pred drop)
{
    std::string out;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text[i] == '(') {
            std::size_t close = text.find(')', i);
            if (close != std::string_view::npos) {
                std::string_view note = text.substr(i + 1, close - i - 1);
                if (drop(note)) {
                    i = close + 1;
                    continue;
                }
            }
        }
        out += text[i++];
    }
    return NormalizeSpacing(out);
}

// "serving 1/2 cup", "serving (3 oz)", "serving 8 oz": the size that follows
// the word serving, when it starts with a number.
std::optional<std::string> ServingSize(std::string_view unit)
{
    if (!StartsWithNoCase(unit, "serving"))
        return std::nullopt;
    std::string rest = NormalizeSpacing(unit.substr(7));
    if (rest.size() >= 2 && rest.front() == '(' && rest.back() == ')' && rest.find('(', 1) == std::string::npos)
        rest = NormalizeSpacing(std::string_view(rest).substr(1, rest.size() - 2));
    if (rest.empty() || !(rest[0] >= '1' && rest[0] <= '9'))
        return std::nullopt;
    if (rest.find_first_of("(),") != std::string::npos)
        return std::nullopt;
    // "9 servings per 24 oz package" is one serving, not nine; "3 T dry
    // cereal plus 1 cup water" is a recipe, not a size.
    if (ContainsNoCase(rest, "serving") || ContainsNoCase(rest, " per ") || ContainsNoCase(rest, "about"))
        return std::nullopt;
    if (std::count(rest.begin(), rest.end(), ' ') > 2)
        return std::nullopt;
    return rest;
}

// Brand names in USDA's household measures, as they are written there.
constexpr std::string_view kBrandNames[] = {
    "Triscuit Bits", "Butterfinger BB's", "BB's",         "Cheez-its",   "Triscuit",   "McDonald's", "Little Debbie",
    "Swiss Miss",    "Alba",              "Chiclets",     "Figaroo",     "Fudge Marshmallow", "Archway", "Keebler",
    "Chips Ahoy!",   "Chips Ahoy",        "Grandma",      "Dannon",      "Sprinkl'ins", "Gerber",     "Heinz",
    "Beech-Nut",     "Beech nut",         "Earth's Best", "Rye Krisp",   "Wasa",       "Butterfinger", "Pop tart",
    "Toaster Strudel", "SUGAR TWIN",      "Crispy Crowns", "Zwieback",
};

bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '\'' || c == '-' || c == '!'; }

// Where what stands in text as whole words, without regard to case.
std::size_t FindWords(std::string_view text, std::string_view what)
{
    const std::string lower = Lower(text);
    const std::string needle = Lower(what);
    for (std::size_t at = lower.find(needle); at != std::string::npos; at = lower.find(needle, at + 1)) {
        const std::size_t end = at + needle.size();
        if ((at == 0 || !IsWordChar(lower[at - 1])) && (end == lower.size() || !IsWordChar(lower[end])))
            return at;
    }
    return std::string::npos;
}

std::string WithoutBrands(std::string_view unit)
{
    // Notes that name brands go whole: "(include Archway brand)".
    std::string text = RemoveNotes(unit, [](std::string_view note) {
        return ContainsNoCase(note, "brand") || NamesBrand(note);
    });
    for (std::string_view brand : kBrandNames)
        for (std::size_t at = FindWords(text, brand); at != std::string::npos; at = FindWords(text, brand))
            text.erase(at, brand.size());
    text = NormalizeSpacing(text);
    while (!text.empty() && (text.front() == ',' || text.front() == ' '))
        text.erase(text.begin());
    while (!text.empty() && (text.back() == ',' || text.back() == ' '))
        text.pop_back();
    for (auto at = text.find(", ("); at != std::string::npos; at = text.find(", ("))
        text.erase(at, 1);
    return NormalizeSpacing(text);
}

// ".75 oz" -> "0.75 oz": a number never starts with its point.
std::string LeadingZeros(std::string text)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '.' && std::isdigit(static_cast<unsigned char>(text[i + 1])) &&
            (i == 0 || !std::isdigit(static_cast<unsigned char>(text[i - 1]))))
            text.insert(i++, "0");
    return text;
}

// A serving-type unit: "serving", "serving 9 servings per 24 oz package",
// "small Serving", "kid's meal Serving", "NLEA serving". Returns the words
// before "serving" ("small", "kid's meal"), lower case; nothing when the
// unit is no serving.
std::optional<std::string> ServingKind(std::string_view unit)
{
    const std::string lower = Lower(NormalizeSpacing(unit));
    const std::size_t at = FindWords(lower, "serving");
    if (at == std::string::npos)
        return std::nullopt;
    std::string before = NormalizeSpacing(std::string_view(lower).substr(0, at));
    if (before == "nlea" || before == "1 nlea")
        before.clear();
    for (std::string_view size : {"", "small", "medium", "large", "kid's meal", "individual", "single"})
        if (before == size)
            return before;
    return std::nullopt;
}

// "child cup 12 fl oz size cup" -> "child cup (12 fl oz)", "cup medium 21 fl
// oz size" -> "medium cup (21 fl oz)", "8 oz container (8 oz)" -> "container
// (8 oz)".
std::string CupSize(std::string text)
{
    if (text.rfind("cup ", 0) == 0 && text.size() > 9 && text.compare(text.size() - 5, 5, " size") == 0) {
        const std::string rest = text.substr(4, text.size() - 9);  // "medium 21 fl oz"
        const std::size_t blank = rest.find(' ');
        if (blank != std::string::npos && blank + 1 < rest.size() &&
            std::isdigit(static_cast<unsigned char>(rest[blank + 1])))
            return rest.substr(0, blank) + " cup (" + rest.substr(blank + 1) + ")";
    }
    if (const std::size_t note = text.find(" ("); note != std::string::npos && !text.empty() &&
                                                  std::isdigit(static_cast<unsigned char>(text[0]))) {
        const std::size_t blank = text.find(' ');
        const std::size_t second = text.find(' ', blank + 1);
        if (second != std::string::npos && second < note && text.substr(blank + 1, second - blank - 1) == "oz" &&
            text.find(text.substr(0, second), note) != std::string::npos)
            return text.substr(second + 1);
    }
    const std::string tail = " size cup";
    if (text.size() > tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0) {
        text.erase(text.size() - tail.size());
        const std::size_t cup = text.find("cup ");
        if (cup != std::string::npos)
            text = text.substr(0, cup + 3) + " (" + text.substr(cup + 4) + ")";
    }
    return text;
}

// "jigger 1.5 fl oz" -> "jigger (1.5 fl oz)", "item 5.923 oz" -> "item
// (5.923 oz)": the size after an item's name is a note on it.
std::string SizeInParentheses(std::string text)
{
    for (std::string_view unit : {" fl oz", " oz"}) {
        if (text.size() <= unit.size() || text.compare(text.size() - unit.size(), unit.size(), unit) != 0)
            continue;
        std::size_t start = text.size() - unit.size();
        while (start > 0 && (std::isdigit(static_cast<unsigned char>(text[start - 1])) || text[start - 1] == '.'))
            --start;
        if (start == text.size() - unit.size() || start < 2 || text[start - 1] != ' ' ||
            !std::isalpha(static_cast<unsigned char>(text[start - 2])))
            return text;
        return text.substr(0, start) + "(" + text.substr(start) + ")";
    }
    return text;
}

bool IsBareWeight(std::string_view unit)
{
    const std::string lower = Lower(NormalizeSpacing(unit));
    for (std::string_view weight : {"g", "gm", "gram", "grams", "ml", "milliliter", "milliliters", "kg"})
        if (lower == weight)
            return true;
    return false;
}

std::string Plural(std::string word)
{
    static constexpr std::string_view kept[] = {"tbsp", "tsp", "oz", "fl", "lb", "large", "medium", "small",
                                                "extra", "jumbo", "whole", "mini", "g", "ml"};
    const std::string lower = Lower(word);
    if (word.empty() || !std::isalpha(static_cast<unsigned char>(word.back())) || lower.back() == 's')
        return word;
    for (std::string_view k : kept)
        if (lower == k)
            return word;
    if (lower == "leaf" || lower == "loaf")
        return word.substr(0, word.size() - 1) + "ves";
    const char last = lower.back();
    const char before = lower.size() > 1 ? lower[lower.size() - 2] : 'a';
    if (last == 'y' && std::string_view("aeiou").find(before) == std::string_view::npos)
        return word.substr(0, word.size() - 1) + "ies";
    if (last == 'x' || (last == 'h' && (before == 'c' || before == 's')))
        return word + "es";
    return word + "s";
}

}  // namespace

std::string NormalizeSpacing(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (IsSpace(c)) {
            if (!out.empty() && out.back() != ' ' && out.back() != '(')
                out += ' ';
            continue;
        }
        if ((c == ',' || c == ')' || c == ';') && !out.empty() && out.back() == ' ')
            out.pop_back();
        out += c;
        if (c == ',' || c == ';')
            out += ' ';
    }
    while (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

std::vector<std::string> SplitParts(std::string_view text)
{
    std::vector<std::string> parts;
    std::string current;
    int depth = 0;
    auto flush = [&] {
        std::string part = NormalizeSpacing(current);
        if (!part.empty())
            parts.push_back(std::move(part));
        current.clear();
    };
    for (char c : text) {
        if (c == '(')
            ++depth;
        else if (c == ')' && depth > 0)
            --depth;
        if (c == ',' && depth == 0)
            flush();
        else
            current += c;
    }
    flush();
    return parts;
}

std::string JoinParts(const std::vector<std::string>& parts, std::size_t first)
{
    std::string out;
    for (std::size_t i = first; i < parts.size(); ++i) {
        if (!out.empty())
            out += ", ";
        out += parts[i];
    }
    return out;
}

std::string Lower(std::string_view text) { return LowerLatin1(text); }

bool EqualsNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (LowerChar(a[i]) != LowerChar(b[i]))
            return false;
    return true;
}

bool ContainsNoCase(std::string_view text, std::string_view what)
{
    return Lower(text).find(Lower(what)) != std::string::npos;
}

namespace {

// Words that keep their capital: places, peoples, varieties and wines.
constexpr std::string_view kProperNames[] = {
    "Alaska", "Alaskan", "American", "Anjou", "Arizona", "Atlantic", "Australian", "Barbera", "Bartlett", "Bavarian",
    "Berliner", "Bosc", "Boston", "Brussels", "Burgundy", "Cabernet", "Cajun", "California", "Canadian", "Carignane",
    "Chenin", "Chinese", "Claret", "Concord", "Danish", "Delicious", "Dijon", "Dutch", "English", "European", "Florida",
    "Franc", "French", "Fuji", "Fume", "Gala", "Gamay", "Genoa", "German", "Gewurztraminer", "Golden", "Granny",
    "Greek", "Greenland", "Grigio", "Gris", "Hawaiian", "Indian", "Irish", "Italian", "Japanese", "Jerusalem",
    "Lemberger", "Lima", "Macintosh", "McIntosh", "Merlot", "Mexican", "Mouvedre", "Muller", "Muscat", "New", "Noir",
    "Northern", "Norwegian", "Pacific", "Petite", "Pinot", "Polish", "Red Delicious", "Riesling", "Romano", "Russian", "Sangiovese",
    "Sauvignon", "Scotch", "Semillon", "Sirah", "Smith", "Southwest", "Spanish", "Swedish", "Swiss", "Syrah", "Thai",
    "Thompson", "Thurgau", "Thuringer", "Valencia", "Vienna", "Wisconsin", "Zealand", "Zinfandel",
};

bool IsProperName(std::string_view word)
{
    return std::find(std::begin(kProperNames), std::end(kProperNames), word) != std::end(kProperNames);
}

// Names of peoples and places that USDA sometimes writes in lower case
// ("canadian bacon", "french fried").
bool IsNationality(std::string_view word)
{
    static constexpr std::string_view names[] = {
        "american", "atlantic", "canadian", "chinese", "danish", "dutch", "english", "european", "french",
        "german",   "greek",    "hawaiian", "irish",   "italian", "japanese", "mexican", "pacific", "polish",
        "russian",  "spanish",  "swedish",  "swiss",   "thai",
    };
    return std::find(std::begin(names), std::end(names), word) != std::end(names);
}

}  // namespace

std::string SentenceCase(std::string_view text)
{
    std::string out(text);
    for (std::size_t i = 0; i < out.size();) {
        if (!std::isalpha(static_cast<unsigned char>(out[i]))) {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < out.size() && (std::isalpha(static_cast<unsigned char>(out[end])) || out[end] == '\''))
            ++end;
        const std::string_view word(out.data() + i, end - i);
        // After a letter or digit ("14\"", "McDONALD'S") a word is no word start.
        const bool inWord = i > 0 && std::isalnum(static_cast<unsigned char>(out[i - 1]));
        bool capitalised = word.size() > 1 && std::isupper(static_cast<unsigned char>(word[0]));
        for (std::size_t k = 1; k < word.size() && capitalised; ++k)
            capitalised = !std::isupper(static_cast<unsigned char>(word[k]));
        if (i > 0 && !inWord && capitalised && !IsProperName(word))
            out[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(out[i])));
        else if (i > 0 && !inWord && IsNationality(word))
            out[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(out[i])));
        i = end;
    }
    return CapitalizeFirst(out);
}

std::map<std::string, std::string> MergedSubgroups(const std::map<std::string, int>& foodsPerSubgroup)
{
    std::map<std::string, std::string> byKey;  // lower case -> name
    for (const auto& [name, count] : foodsPerSubgroup)
        byKey.emplace(Lower(name), name);
    auto count = [&](const std::string& name) { return foodsPerSubgroup.at(name); };
    std::map<std::string, std::string> merged;
    for (const auto& [name, foods] : foodsPerSubgroup) {
        const std::string key = Lower(name);
        // "Pancakes plain" and "Fruit cocktail (peach and ...)" beside the
        // plain name.
        for (std::string_view tail : {" plain", " or bouillon"}) {
            if (key.size() > tail.size() && key.compare(key.size() - tail.size(), tail.size(), tail) == 0)
                if (auto base = byKey.find(key.substr(0, key.size() - tail.size())); base != byKey.end())
                    merged[name] = base->second;
        }
        if (const std::size_t paren = key.find(" ("); paren != std::string::npos)
            if (auto base = byKey.find(key.substr(0, paren)); base != byKey.end())
                merged[name] = base->second;
        // Singular and plural: the one more foods use, the plural on a tie.
        for (const std::string& plural : {key + "s", key + "es",
                                          key.empty() || key.back() != 'y' ? std::string()
                                                                            : key.substr(0, key.size() - 1) + "ies"}) {
            if (plural.empty())
                continue;
            if (auto other = byKey.find(plural); other != byKey.end()) {
                if (count(name) > count(other->second))
                    merged[other->second] = name;
                else
                    merged[name] = other->second;
            }
        }
    }
    // A name merged into one that is merged itself goes all the way.
    for (auto& [from, to] : merged)
        for (auto next = merged.find(to); next != merged.end() && next->first != from; next = merged.find(to))
            to = next->second;
    return merged;
}

std::string CapitalizeFirst(std::string_view text)
{
    std::string out(text);
    if (!out.empty() && out[0] >= 'a' && out[0] <= 'z')
        out[0] = static_cast<char>(out[0] - 'a' + 'A');
    return out;
}

std::optional<std::string> FormatAmount(std::int64_t thousandths)
{
    if (thousandths <= 0)
        return std::nullopt;
    const std::int64_t whole = thousandths / 1000;
    const std::int64_t rest = thousandths % 1000;
    if (rest == 0)
        return std::to_string(whole);
    static constexpr std::array<int, 6> denominators = {2, 3, 4, 6, 8, 12};
    for (int d : denominators) {
        for (int n = 1; n < d; ++n) {
            // n/d in thousandths, compared within 4 thousandths: 0.333 and
            // 0.67 both read as thirds.
            if (std::llabs(rest * d - n * 1000LL) <= 4LL * d) {
                bool reducible = false;
                for (int k = 2; k <= n; ++k)
                    reducible = reducible || (n % k == 0 && d % k == 0);
                if (reducible)
                    continue;
                std::string fraction = std::to_string(n) + "/" + std::to_string(d);
                return whole == 0 ? fraction : std::to_string(whole) + "-" + fraction;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> CleanMeasureUnit(std::string_view unit)
{
    std::string text = NormalizeSpacing(unit);
    const bool yield = ContainsNoCase(text, "yield") || ContainsNoCase(text, "refuse");
    text = RemoveNotes(text, [](std::string_view note) {
        return ContainsNoCase(note, "yield") || ContainsNoCase(note, "refuse") || ContainsNoCase(note, "NLEA") ||
               ContainsNoCase(note, "serving");
    });
    if (yield) {
        // What is left of a yield is a household item ("chop", "patty",
        // "leg, bone removed") unless it is the yield's own bookkeeping unit.
        for (std::string_view tail : {", excluding refuse", " without refuse", " with refuse", ", with refuse"}) {
            auto at = Lower(text).find(tail);
            if (at != std::string::npos)
                text.erase(at, tail.size());
        }
        text = NormalizeSpacing(text);
        const std::string head = Lower(SplitParts(text).empty() ? text : SplitParts(text)[0]);
        for (std::string_view bookkeeping : {"piece", "unit", "portion", "roast", "loaf", "package", "rack"})
            if (head.rfind(bookkeeping, 0) == 0)
                return std::nullopt;
        if (ContainsNoCase(text, "yield") || ContainsNoCase(text, "refuse"))
            return std::nullopt;
    }
    // One spelling per unit: "tablespoon" and "tbsp" are one measure.
    static constexpr std::pair<std::string_view, std::string_view> spellings[] = {
        {"tablespoons", "tbsp"}, {"tablespoon", "tbsp"}, {"teaspoons", "tsp"}, {"tbsp", "tbsp"},
        {"teaspoon", "tsp"},     {"fluid ounce", "fl oz"}, {"fl. oz", "fl oz"},
    };
    for (const auto& [from, to] : spellings) {
        const std::size_t at = Lower(text).find(from);
        const bool wordStart = at == 0 || (at != std::string::npos && text[at - 1] == ' ');
        const std::size_t end = at + from.size();
        if (wordStart && (end == text.size() || !std::isalpha(static_cast<unsigned char>(text[end]))))
            text.replace(at, from.size(), to);
    }
    // "2 links 1 NLEA serving", "3 slices 1 serving": the serving note
    // after a measure says nothing more.
    for (std::string_view tail : {" 1 NLEA serving", " NLEA serving", " 1 serving"}) {
        const std::string lower = Lower(text);
        if (lower.size() > tail.size() && lower.compare(lower.size() - tail.size(), tail.size(), Lower(tail)) == 0)
            text = NormalizeSpacing(std::string_view(text).substr(0, text.size() - tail.size()));
    }
    if (text.empty() || EqualsNoCase(text, "NLEA serving"))
        return std::nullopt;
    return text;
}

std::string GramsText(std::int64_t gramsHundredths)
{
    std::string text = std::to_string(gramsHundredths / 100);
    if (const std::int64_t rest = gramsHundredths % 100; rest != 0) {
        text += '.' + std::to_string(rest / 10);
        if (rest % 10 != 0)
            text += std::to_string(rest % 10);
    }
    return text + " g";
}

bool NamesBrand(std::string_view text)
{
    for (std::string_view brand : kBrandNames)
        if (FindWords(text, brand) != std::string::npos)
            return true;
    return false;
}

std::optional<std::string> MeasureText(std::int64_t amountThousandths, std::string_view rawUnit,
                                       std::int64_t gramsHundredths)
{
    std::string unit = LeadingZeros(WithoutBrands(NormalizeSpacing(rawUnit)));
    // Survey shorthand: "avocado, NS as to Florida or California", "5 in long X 3/4 in dia".
    for (const auto& [from, to] : {std::pair<std::string_view, std::string_view>{"NS as to ", ""}, {" X ", " x "}})
        for (auto at = unit.find(from); at != std::string::npos; at = unit.find(from, at + to.size()))
            unit.replace(at, from.size(), to);
    if (unit.empty() || unit.front() == '(' || IsBareWeight(unit))
        return std::nullopt;
    if (amountThousandths == 1000) {
        if (auto size = ServingSize(unit)) {
            std::string_view rest = *size;
            const std::size_t blank = rest.find(' ');
            if (blank != std::string_view::npos) {
                const std::string number(rest.substr(0, blank));
                const std::string_view sizeUnit = rest.substr(blank + 1);
                // The size's own number: "3", "1/2", "1.5".
                std::optional<std::string> amount;
                if (number.find('/') != std::string::npos) {
                    amount = number;
                } else {
                    try {
                        amount = FormatAmount(usda::ParseScaled(number, 3));
                    } catch (const usda::SourceError&) {
                        amount.reset();
                    }
                }
                if (amount && !sizeUnit.empty() && !EqualsNoCase(sizeUnit, "g") && !EqualsNoCase(sizeUnit, "grams")) {
                    const auto spelled = CleanMeasureUnit(sizeUnit);
                    std::string text = *amount + " " + (spelled ? *spelled : std::string(sizeUnit));
                    if (text.size() <= static_cast<std::size_t>(kMaxTextField))
                        return text;
                }
            }
        }
    }
    const auto amount = FormatAmount(amountThousandths);
    if (!amount)
        return std::nullopt;
    // A serving is only as clear as its weight.
    if (auto kind = ServingKind(unit)) {
        const std::string name = kind->empty() ? "serving" : *kind + " serving";
        return *amount + " " + name + " (" + GramsText(gramsHundredths) + ")";
    }
    auto cleaned = CleanMeasureUnit(unit);
    if (!cleaned)
        return std::nullopt;
    // "box, single serving (.75 oz)" is a box of that size.
    for (std::string_view single : {", single serving", " single serving", ", single-serving"})
        if (auto at = Lower(*cleaned).find(single); at != std::string::npos)
            cleaned->erase(at, single.size());
    // "package 1.4 oz box, 4 servings": how many servings a package holds
    // is no part of its measure.
    if (const auto comma = cleaned->rfind(", "); comma != std::string::npos &&
        std::isdigit(static_cast<unsigned char>((*cleaned)[comma + 2 < cleaned->size() ? comma + 2 : comma])) &&
        EqualsNoCase(std::string_view(*cleaned).substr(cleaned->size() - std::min<std::size_t>(cleaned->size(), 9)), " servings"))
        cleaned->erase(comma);
    *cleaned = SizeInParentheses(CupSize(NormalizeSpacing(*cleaned)));
    if (cleaned->empty() || cleaned->front() == '(' || IsBareWeight(*cleaned))
        return std::nullopt;
    // "Potato medium", "Gherkin": a measure reads in lower case like the rest.
    *cleaned = SentenceCase(*cleaned);
    if (!cleaned->empty() && std::isupper(static_cast<unsigned char>((*cleaned)[0])) &&
        (cleaned->size() < 2 || std::islower(static_cast<unsigned char>((*cleaned)[1]))) &&
        !IsProperName(cleaned->substr(0, cleaned->find_first_of(" ,("))))
        (*cleaned)[0] = static_cast<char>(std::tolower(static_cast<unsigned char>((*cleaned)[0])));
    std::string text = *amount + " " + *cleaned;
    if (text.size() > static_cast<std::size_t>(kMaxTextField))
        text = *amount + " " + RemoveNotes(*cleaned, [](std::string_view) { return true; });
    if (text.size() > static_cast<std::size_t>(kMaxTextField))
        return std::nullopt;
    return text;
}

std::optional<std::string> ScaledMeasureText(std::int64_t amountThousandths, std::string_view unit,
                                             std::int64_t gramsHundredths, int factor)
{
    auto text = MeasureText(amountThousandths * factor, unit, gramsHundredths * factor);
    if (!text || factor == 1)
        return text;
    // Only a unit that counts one thing is scaled: "tsp or 1 packet" would
    // say five packets.
    const std::string plain = RemoveNotes(*text, [](std::string_view) { return true; });
    if (std::any_of(plain.begin() + static_cast<std::ptrdiff_t>(plain.find(' ')), plain.end(),
                    [](char c) { return std::isdigit(static_cast<unsigned char>(c)); }))
        return std::nullopt;
    if (amountThousandths * factor <= 1000)
        return text;
    // The unit's last word before its notes counts the items: "10 olive" ->
    // "10 olives", "2 mini pancake" -> "2 mini pancakes"; "gold fish" and
    // "slice, medium" keep their words.
    const std::size_t start = text->find(' ') + 1;
    const std::size_t stop = std::min(text->find(',', start), text->find(" (", start));
    const std::string head = text->substr(start, stop == std::string::npos ? std::string::npos : stop - start);
    const std::size_t blank = head.rfind(' ');
    if (blank != std::string::npos) {
        static constexpr std::string_view sizes[] = {"mini", "small", "medium", "large", "extra large", "jumbo", "individual"};
        if (std::find(std::begin(sizes), std::end(sizes), Lower(head.substr(0, blank))) == std::end(sizes))
            return text;
    }
    const std::size_t wordStart = blank == std::string::npos ? start : start + blank + 1;
    const std::size_t wordEnd = start + head.size();
    if (std::all_of(text->begin() + static_cast<std::ptrdiff_t>(wordStart), text->begin() + static_cast<std::ptrdiff_t>(wordEnd),
                    [](char c) { return std::isalpha(static_cast<unsigned char>(c)); }))
        text->replace(wordStart, wordEnd - wordStart, Plural(text->substr(wordStart, wordEnd - wordStart)));
    return text;
}

bool IsBulkMeasure(std::string_view measureText)
{
    const std::size_t blank = measureText.find(' ');
    const std::string unit = Lower(blank == std::string_view::npos ? measureText : measureText.substr(blank + 1));
    static constexpr std::string_view bulk[] = {
        "lb",   "package", "pkg",     "can",   "container", "jar",    "quart",   "pint",    "gallon",
        "pie",  "loaf",    "cake",    "bottle", "box",      "bag",    "head",    "whole",   "recipe",
        "batch", "chicken", "turkey", "duck",  "goose",     "roast",  "rack",    "cubic inch", "carton",
        "envelope", "pouch", "tray",  "family", "tub",      "brick",
    };
    for (std::string_view word : bulk) {
        if (unit.rfind(word, 0) == 0) {
            const std::size_t after = word.size();
            if (after == unit.size() || unit[after] == ' ' || unit[after] == ',' || unit[after] == '(' ||
                unit[after] == 's')
                return true;
        }
    }
    return false;
}

std::vector<std::size_t> ChooseMeasures(const std::vector<std::string>& measureTexts, std::size_t count)
{
    static constexpr std::string_view oddWords[] = {
        "jumbo", "extra large", "very large", "extra small", "mini", "snack-size", "snack size", "fun size",
        "melted", "crumbs", "crushed", "cubic inch", "sifted", "serving", "bite size", "king size",
    };
    // Forms of a food that are not the standard one: a bigger or thinner
    // slice, a particular variety.
    static constexpr std::string_view variantWords[] = {
        "large", "small", "thin", "thick", "italian", "cherry", "plum", "wedge", "crust", "cubes", "rings",
        "baby", "cocktail", "grape", "halves", "strip", "nlea",
    };
    // The household measures a person reaches for, most likely first.
    static constexpr std::string_view preferred[] = {"medium", "fruit", "slice", "cup", "tbsp", "piece"};
    auto unitOf = [](const std::string& text) {
        const std::size_t blank = text.find(' ');
        const std::string rest = blank == std::string::npos ? std::string() : Lower(text.substr(blank + 1));
        return rest.substr(0, rest.find_first_of(" ,("));
    };
    auto rankOf = [&](const std::string& text) {
        if (IsBulkMeasure(text))
            return 300;
        // "1 6-8 shrimp": a count inside the unit.
        if (const std::size_t blank = text.find(' ');
            blank != std::string::npos && blank + 1 < text.size() && std::isdigit(static_cast<unsigned char>(text[blank + 1])))
            return 200;
        const std::string lower = Lower(text);
        for (std::string_view word : oddWords)
            if (lower.find(word) != std::string::npos)
                return 200;
        // Variant words count outside the notes only: "1 cup (4.86 large
        // eggs)" is a plain cup.
        const std::string plain = Lower(RemoveNotes(text, [](std::string_view) { return true; }));
        for (std::string_view word : variantWords)
            if (FindWords(plain, word) != std::string::npos || FindWords(plain, std::string(word) + "s") != std::string::npos)
                return 100;
        const std::string unit = unitOf(text);
        for (std::size_t i = 0; i < std::size(preferred); ++i)
            if (unit == preferred[i] || unit == std::string(preferred[i]) + "s")
                return static_cast<int>(i);
        return 50;
    };
    std::vector<std::size_t> order(measureTexts.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return rankOf(measureTexts[a]) < rankOf(measureTexts[b]);
    });

    std::vector<std::size_t> chosen;
    std::vector<std::string> units;
    for (std::size_t i : order) {
        if (chosen.size() >= count)
            break;
        const std::string unit = unitOf(measureTexts[i]);
        if (std::find(units.begin(), units.end(), unit) != units.end())
            continue;
        units.push_back(unit);
        chosen.push_back(i);
    }
    for (std::size_t i : order) {
        if (chosen.size() >= count)
            break;
        if (std::find(chosen.begin(), chosen.end(), i) == chosen.end())
            chosen.push_back(i);
    }
    return chosen;
}

}  // namespace pw::dbmaker
