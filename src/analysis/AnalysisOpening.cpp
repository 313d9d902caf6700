#include "analysis/AnalysisOpening.h"

#include "analysis/AnalysisTexts.h"
#include "core/RunTimeError.h"

namespace pw {

void OpenItems(const std::vector<AnalysisItem>& items, const FoodTable& table, const DailyValues& dailyValues,
               const std::function<void(FoodListEntry)>& row, const std::function<void(const std::string&)>& missing)
{
    for (const AnalysisItem& item : items) {
        std::int16_t index = item.foodIndex;
        ItemLocation(table, item.group, item.subgroup, item.description, item.measure, index);
        if (index < 0) {
            missing(MissingFoodText(item));
            continue;
        }
        row(OpenedEntry(table, index, item, dailyValues));
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
