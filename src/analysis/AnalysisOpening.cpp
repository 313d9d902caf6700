#include "analysis/AnalysisOpening.h"

#include "analysis/AnalysisTexts.h"
#include "core/RunTimeError.h"

namespace pw {

OpenedAnalysis OpenAnalysis(const AnalysisFileContent& content, const FoodTable& table, int currentYear)
{
    OpenedAnalysis opened;
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
        for (const AnalysisItem& item : content.items) {
            std::int16_t index = item.foodIndex;
            ItemLocation(table, item.group, item.subgroup, item.description, item.measure, index);
            if (index < 0) {
                opened.messages.emplace_back(MissingFoodText(item), texts::kTitleOpenList);
                continue;
            }
            if (opened.list.IsFull()) {
                opened.valid = false;  // more rows than a list holds
                break;
            }
            opened.list.Append(OpenedEntry(table, index, item, opened.dailyValues));
        }
        opened.list.Totals();  // a sum beyond 32 bits is not a list the window keeps
    } catch (const RunTimeError&) {
        opened.valid = false;
    }
    opened.list.listSaved = true;
    return opened;
}

}  // namespace pw
