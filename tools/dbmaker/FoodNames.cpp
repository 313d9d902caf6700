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
    return rest;
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
        {"tablespoons", "tbsp"}, {"tablespoon", "tbsp"}, {"teaspoons", "tsp"},
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

std::optional<std::string> MeasureText(std::int64_t amountThousandths, std::string_view unit)
{
    if (amountThousandths == 1000) {
        if (auto size = ServingSize(NormalizeSpacing(unit))) {
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
                if (amount && !sizeUnit.empty()) {
                    std::string text = *amount + " " + std::string(sizeUnit);
                    if (text.size() <= static_cast<std::size_t>(kMaxTextField))
                        return text;
                }
            }
        }
    }
    const auto amount = FormatAmount(amountThousandths);
    const auto cleaned = CleanMeasureUnit(unit);
    if (!amount || !cleaned)
        return std::nullopt;
    std::string text = *amount + " " + *cleaned;
    if (text.size() > static_cast<std::size_t>(kMaxTextField))
        text = *amount + " " + RemoveNotes(*cleaned, [](std::string_view) { return true; });
    if (text.size() > static_cast<std::size_t>(kMaxTextField))
        return std::nullopt;
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
        "melted", "crumbs", "crushed", "cubic inch", "sifted", "serving",
    };
    auto rankOf = [](const std::string& text) {
        if (IsBulkMeasure(text))
            return 2;
        const std::string lower = Lower(text);
        for (std::string_view word : oddWords)
            if (lower.find(word) != std::string::npos)
                return 1;
        return 0;
    };
    auto unitOf = [](const std::string& text) {
        const std::size_t blank = text.find(' ');
        const std::string rest = blank == std::string::npos ? std::string() : Lower(text.substr(blank + 1));
        return rest.substr(0, rest.find_first_of(" ,("));
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
