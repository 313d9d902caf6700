#include "analysis/AnalysisFile.h"

#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "foodlist/ChooserState.h"
#include "foodlist/Quantity.h"

namespace pw {

namespace {

constexpr const char* kItemKey = "ITEM:";
constexpr const char* kYobKey = "YOB:";
constexpr char kTab = '\t';
constexpr std::size_t kYobLine = 1;
constexpr std::size_t kItemFields = 6;

std::vector<std::string> SplitAtTabs(std::string_view value)
{
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (;;) {
        const std::size_t tab = value.find(kTab, start);
        if (tab == std::string_view::npos) {
            fields.emplace_back(value.substr(start));
            return fields;
        }
        fields.emplace_back(value.substr(start, tab - start));
        start = tab + 1;
    }
}

// The item of an "ITEM:" value; false when the value is not one.
bool ParseItem(std::string_view value, AnalysisItem& item)
{
    const std::vector<std::string> fields = SplitAtTabs(value);
    if (fields.size() < kItemFields)
        return false;
    try {
        item.foodIndex = ToInt16(Val(fields[0]));
    } catch (const RunTimeError&) {
        return false;
    }
    item.quantityText = fields[1];
    std::string quantity = item.quantityText;
    const float parsed = ParseQuantity(quantity);
    if (parsed < 0.0f || parsed > kMaxQuantity)
        return false;
    item.group = fields[2];
    item.subgroup = fields[3];
    item.description = fields[4];
    item.measure = fields[5];
    return true;
}

// The key of a line and its value, split as the profile reader splits them;
// false for a line without a colon.
bool SplitKey(std::string_view line, std::string& key, std::string& value)
{
    const std::string padded = std::string(line) + ' ';
    const std::size_t colon = padded.find(':');
    if (colon == std::string::npos)
        return false;
    key = UpperLatin1(std::string_view(padded).substr(0, colon + 1));
    value = Trim(std::string_view(padded).substr(colon + 1));
    return true;
}

}  // namespace

std::vector<std::string> AnalysisFileLines(const ProfileInputs& inputs, const FoodList& list)
{
    std::vector<std::string> lines = ProfileFileLines(inputs);
    if (inputs.yob.size() != 2)
        lines[kYobLine] = kYobKey;
    for (int row = 1; row <= list.Count(); ++row) {
        const FoodListEntry& e = list.Entry(row);
        std::string line = kItemKey + PrintNumber(e.foodIndex);
        for (const std::string* text : {&e.quantityText, &e.group, &e.subgroup, &e.description, &e.measure}) {
            line += kTab;
            line += *text;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string AnalysisFileBytes(const ProfileInputs& inputs, const FoodList& list)
{
    return LinesToBytes(AnalysisFileLines(inputs, list));
}

void WriteAnalysisFile(const std::string& path, const ProfileInputs& inputs, const FoodList& list)
{
    WriteFileAtomic(path, AnalysisFileBytes(inputs, list));
}

AnalysisFileContent ParseAnalysisBytes(std::string_view bytes)
{
    AnalysisFileContent content;
    for (const std::string& line : SplitLines(bytes)) {
        ProfileLine parsed = ParseProfileLine(line);
        if (parsed.kind == ProfileLineKind::Setting) {
            content.settings.push_back(std::move(parsed.setting));
            continue;
        }
        bool bad = parsed.kind == ProfileLineKind::Bad;
        std::string key, value;
        if (!bad && SplitKey(line, key, value) && key == kItemKey) {
            AnalysisItem item;
            bad = !ParseItem(value, item);
            if (!bad && content.items.size() == static_cast<std::size_t>(kFoodListCapacity)) {
                content = {};
                content.valid = false;
                content.refused = true;
                return content;
            }
            if (!bad)
                content.items.push_back(std::move(item));
        }
        if (bad) {
            content.valid = false;
            break;
        }
    }
    return content;
}

AnalysisFileContent ReadAnalysisFile(const std::string& path)
{
    std::string bytes;
    try {
        bytes = ReadWholeFile(path, kListFileLimit);
    } catch (const FileTooLarge&) {
        AnalysisFileContent content;
        content.valid = false;
        content.refused = true;
        return content;
    } catch (const RunTimeError&) {
        AnalysisFileContent content;
        content.valid = false;
        return content;
    }
    return ParseAnalysisBytes(bytes);
}

FoodListEntry OpenedEntry(const FoodTable& table, int index, const AnalysisItem& item,
                          const DailyValues& dailyValues)
{
    FoodListEntry entry;
    entry.foodIndex = ToInt16(index);
    entry.quantityText = item.quantityText;
    entry.group = item.group;
    entry.subgroup = item.subgroup;
    entry.description = item.description;
    entry.measure = item.measure;

    std::string quantityText = item.quantityText;
    const float quantity = ParseQuantity(quantityText);
    bool haveDailyValues = true;
    for (std::int32_t dv : dailyValues)
        haveDailyValues = haveDailyValues && dv != 0;
    if (haveDailyValues) {
        const ScaledNutrients scaled = ScaleNutrients(table.Values(index), quantity, dailyValues);
        entry.amounts = scaled.amounts;
        entry.percents = scaled.percents;
    } else {
        // The amounts as the chooser computes them; no percent without a
        // daily value.
        const NutrientValues& perMeasure = table.Values(index);
        for (int i = 0; i < kNutrientValues; ++i)
            entry.amounts[i] = ToInt32(static_cast<double>(quantity) * static_cast<double>(perMeasure[i]));
    }
    return entry;
}

std::string MissingFoodText(const AnalysisItem& item)
{
    return kQuote + item.group + "/" + item.subgroup + "/" + item.description + "/" + item.measure + kQuote +
           texts::kNoLongerInDatabase;
}

}  // namespace pw
