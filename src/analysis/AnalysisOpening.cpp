#include "analysis/AnalysisOpening.h"

#include <cstdio>

#include "analysis/AnalysisTexts.h"
#include "core/RunTimeError.h"
#include "fooddb/FoodRenames.h"
#include "foodlist/Quantity.h"

namespace pw {

std::string ScaledQuantityText(const std::string& quantityText, std::int32_t numerator, std::int32_t denominator)
{
    std::string text = quantityText;
    const float quantity = ParseQuantity(text);
    if (numerator == denominator || quantity <= 0 || denominator <= 0)
        return quantityText;
    char scaled[32];
    std::snprintf(scaled, sizeof scaled, "%.2f", static_cast<double>(quantity) * numerator / denominator);
    std::string out = scaled;
    while (out.back() == '0')
        out.pop_back();
    if (out.back() == '.')
        out.pop_back();
    return out == "0" ? "0.01" : out;
}

AnalysisItem LocateItem(const AnalysisItem& item, const FoodTable& table, std::int16_t& index)
{
    index = item.foodIndex;
    ItemLocation(table, item.group, item.subgroup, item.description, item.measure, index);
    if (index >= 0)
        return item;
    const FoodRename* rename = FindFoodRename(item.group, item.subgroup, item.description, item.measure);
    if (!rename)
        return item;
    AnalysisItem renamed = item;
    renamed.subgroup = rename->newSubgroup;
    renamed.description = rename->newDescription;
    renamed.measure = rename->newMeasure;
    renamed.quantityText = ScaledQuantityText(item.quantityText, rename->quantityNumerator, rename->quantityDenominator);
    // A quantity beyond what the quantity box takes would make the list, once
    // saved again, no list file: such a food is told as gone.
    std::string scaled = renamed.quantityText;
    if (ParseQuantity(scaled) > kMaxQuantity)
        return item;
    index = item.foodIndex;
    ItemLocation(table, renamed.group, renamed.subgroup, renamed.description, renamed.measure, index);
    return index >= 0 ? renamed : item;
}

void OpenItems(const std::vector<AnalysisItem>& items, const FoodTable& table, const DailyValues& dailyValues,
               const std::function<void(FoodListEntry)>& row, const std::function<void(const std::string&)>& missing)
{
    for (const AnalysisItem& item : items) {
        std::int16_t index = -1;
        const AnalysisItem found = LocateItem(item, table, index);
        if (index < 0) {
            missing(MissingFoodText(item));
            continue;
        }
        row(OpenedEntry(table, index, found, dailyValues));
    }
}

OpenedAnalysis OpenAnalysis(const AnalysisFileContent& content, const FoodTable& table, int currentYear)
{
    OpenedAnalysis opened;
    if (content.refused) {
        opened.valid = false;
        return opened;
    }
    ProfileInputs inputs;
    ApplyProfileSettings(content.settings, inputs);
    try {
        ProfileVerdict verdict = ValidateProfile(inputs, currentYear, opened.profile);
        if (verdict.underAge) {
            // The profile tab tells the user and empties the year of birth.
            opened.messages.emplace_back(texts::kInvalidAge, texts::kTitleInvalidAge);
            inputs.yob.clear();
            verdict = ValidateProfile(inputs, currentYear, opened.profile);
        }
        opened.profile.inputs = inputs;
        if (opened.profile.valid)
            opened.dailyValues = ComputeDailyValues(opened.profile.weightPounds, inputs.sex, inputs.lifestyle);
        opened.valid = content.valid;
        OpenItems(content.items, table, opened.dailyValues,
                  [&](FoodListEntry entry) { opened.list.Append(std::move(entry)); },
                  [&](const std::string& text) { opened.messages.emplace_back(text, texts::kTitleOpenList); });
        opened.list.Totals();  // a sum beyond 32 bits is not a list the window keeps
    } catch (const RunTimeError&) {
        opened.valid = false;
    }
    opened.list.listSaved = true;
    return opened;
}

}  // namespace pw
