#include "dbmaker/UsdaFiles.h"

#include <algorithm>

#include "core/LineFile.h"

namespace pw::usda {

namespace {

// ABBREV.txt field numbers (0-based) of the values the food table keeps.
constexpr std::size_t kAbbrevFields = 51;
constexpr std::size_t kEnergy = 3, kProtein = 4, kFat = 5, kCarbs = 7, kFiber = 8, kCalcium = 10, kSodium = 15,
                      kCholesterol = 45;

struct Table {
    std::string name;
    std::vector<std::vector<std::string>> rows;
};

Table ReadTable(const std::string& folder, const std::string& name, std::size_t fieldCount)
{
    Table table{name, {}};
    const std::vector<std::string> lines = SplitLines(ReadWholeFile(JoinPath(folder, name), std::size_t(1) << 30));
    int lineNo = 0;
    for (const auto& line : lines) {
        ++lineNo;
        if (line.empty())
            continue;
        auto fields = SplitFields(line);
        if (fields.size() != fieldCount)
            throw SourceError(name + " line " + std::to_string(lineNo) + ": " + std::to_string(fields.size()) +
                              " fields, expected " + std::to_string(fieldCount));
        table.rows.push_back(std::move(fields));
    }
    return table;
}

std::int64_t Field(const Table& table, std::size_t row, std::size_t field, int decimals)
{
    try {
        return ParseScaled(table.rows[row][field], decimals);
    } catch (const SourceError& e) {
        throw SourceError(table.name + " record " + std::to_string(row + 1) + " field " + std::to_string(field + 1) +
                          ": " + e.what());
    }
}

}  // namespace

std::vector<std::string> SplitFields(std::string_view line)
{
    std::vector<std::string> fields;
    std::size_t start = 0;
    while (true) {
        const std::size_t caret = line.find('^', start);
        std::string_view field = line.substr(start, caret == std::string_view::npos ? line.npos : caret - start);
        if (field.size() >= 2 && field.front() == '~' && field.back() == '~')
            field = field.substr(1, field.size() - 2);
        fields.emplace_back(field);
        if (caret == std::string_view::npos)
            break;
        start = caret + 1;
    }
    return fields;
}

std::int64_t ParseScaled(std::string_view text, int decimals)
{
    std::int64_t whole = 0;
    std::int64_t fraction = 0;
    int fractionDigits = 0;
    bool point = false;
    bool digits = false;
    for (char c : text) {
        if (c == '.' && !point) {
            point = true;
        } else if (c >= '0' && c <= '9') {
            digits = true;
            if (point) {
                if (++fractionDigits > decimals)
                    throw SourceError("\"" + std::string(text) + "\" has more than " + std::to_string(decimals) +
                                      " decimals");
                fraction = fraction * 10 + (c - '0');
            } else {
                whole = whole * 10 + (c - '0');
                if (whole > 1'000'000'000)
                    throw SourceError("\"" + std::string(text) + "\" is too large");
            }
        } else {
            throw SourceError("\"" + std::string(text) + "\" is not a number");
        }
    }
    if (!digits && !text.empty())
        throw SourceError("\"" + std::string(text) + "\" is not a number");
    for (int i = fractionDigits; i < decimals; ++i)
        fraction *= 10;
    std::int64_t scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    return whole * scale + fraction;
}

Source ReadSource(const std::string& folder)
{
    Source source;

    const Table des = ReadTable(folder, "FOOD_DES.txt", 14);
    for (const auto& row : des.rows)
        source.foods.push_back(FoodDescription{row[0], row[1], row[2], row[5], row[6] == "Y"});

    const Table abbrev = ReadTable(folder, "ABBREV.txt", kAbbrevFields);
    for (std::size_t r = 0; r < abbrev.rows.size(); ++r) {
        Nutrients n;
        n.energyKcal = Field(abbrev, r, kEnergy, 2);
        n.protein = Field(abbrev, r, kProtein, 2);
        n.fat = Field(abbrev, r, kFat, 2);
        n.carbs = Field(abbrev, r, kCarbs, 2);
        n.fiber = Field(abbrev, r, kFiber, 2);
        n.calcium = Field(abbrev, r, kCalcium, 2);
        n.sodium = Field(abbrev, r, kSodium, 2);
        n.cholesterol = Field(abbrev, r, kCholesterol, 2);
        for (std::size_t field : {kProtein, kFat, kCarbs, kFiber, kCalcium, kSodium, kCholesterol})
            n.complete = n.complete && !abbrev.rows[r][field].empty();
        source.nutrients[abbrev.rows[r][0]] = n;
    }

    const Table weight = ReadTable(folder, "WEIGHT.txt", 7);
    for (std::size_t r = 0; r < weight.rows.size(); ++r) {
        HouseholdMeasure m;
        m.seq = static_cast<int>(Field(weight, r, 1, 0));
        m.amount = Field(weight, r, 2, 3);
        m.unit = weight.rows[r][3];
        m.grams = Field(weight, r, 4, 2);
        source.measures[weight.rows[r][0]].push_back(std::move(m));
    }
    for (auto& [ndb, list] : source.measures)
        std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) { return a.seq < b.seq; });

    for (const auto& food : source.foods)
        if (!source.nutrients.count(food.ndbNo))
            throw SourceError("FOOD_DES.txt food " + food.ndbNo + " has no line in ABBREV.txt");
    return source;
}

}  // namespace pw::usda
