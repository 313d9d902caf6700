// Any bytes as a .pwl file, opened as File > Open opens one: the profile
// read and validated, every item re-found in a small food table by its four
// texts, its quantity parsed again and the food scaled by it, at most 500
// rows, then the totals and the analysis texts. A fault is a run-time error,
// never anything else; a list saved again opens to the same rows.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "analysis/AnalysisFile.h"
#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "analysis/ProfileFile.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "foodlist/FoodList.h"

#include "FuzzFoods.h"

namespace {

const pw::FoodTable& Table() { return pw::fuzz::SeedFoods(); }

pw::DailyValues ProfileDailyValues(const std::vector<pw::ProfileSetting>& settings, pw::ProfileInputs& inputs)
{
    pw::ApplyProfileSettings(settings, inputs);
    pw::Profile profile;
    try {
        if (pw::ValidateProfile(inputs, 2026, profile).valid)
            return pw::ComputeDailyValues(profile.weightPounds, inputs.sex, inputs.lifestyle);
    } catch (const pw::RunTimeError&) {
    }
    return {};
}

// The rows the items become, as File > Open appends them; an overflow while
// scaling ends the reading as it ends the command.
pw::FoodList Attach(const std::vector<pw::AnalysisItem>& items, const pw::DailyValues& dailyValues)
{
    pw::FoodList list;
    try {
        for (const pw::AnalysisItem& item : items) {
            std::int16_t index = item.foodIndex;
            pw::ItemLocation(Table(), item.group, item.subgroup, item.description, item.measure, index);
            if (index < 0)
                continue;
            if (index > Table().LastIndex() || Table().Measure(index) != item.measure)
                std::abort();
            if (list.IsFull())
                break;
            list.Append(pw::OpenedEntry(Table(), index, item, dailyValues));
        }
    } catch (const pw::RunTimeError&) {
    }
    return list;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const pw::AnalysisFileContent content =
        pw::ParseAnalysisBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    // A refused file gives nothing; no file gives more rows than a list holds.
    if ((content.refused && (content.valid || !content.items.empty() || !content.settings.empty())) ||
        content.items.size() > static_cast<std::size_t>(pw::kFoodListCapacity))
        std::abort();
    // Whatever its texts hold, what reaches a terminal holds no control
    // character but line feeds and tabs.
    for (const pw::AnalysisItem& item : content.items)
        for (const char c : pw::TerminalText(pw::Latin1ToUtf8(pw::MissingFoodText(item))))
            if ((static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t') || c == 0x7f)
                std::abort();
    pw::ProfileInputs inputs;
    const pw::DailyValues dailyValues = ProfileDailyValues(content.settings, inputs);
    const pw::FoodList list = Attach(content.items, dailyValues);

    try {
        const pw::NutrientValues totals = list.Totals();
        for (int n = 0; n < pw::kShownNutrients; ++n)
            for (auto style : {pw::IntakeStyle::Units, pw::IntakeStyle::PercentSpaced, pw::IntakeStyle::PercentUnspaced})
                pw::DailyIntakeText(static_cast<pw::Nutrient>(n), totals[n], dailyValues[n], style);
    } catch (const pw::RunTimeError&) {
    }
    for (int row = 1; row <= list.Count(); ++row)
        for (int column = 0; column < pw::kFirstNutrientColumn + pw::kShownNutrients; ++column)
            for (bool byUnits : {true, false})
                pw::GridCellText(list.Entry(row), column, byUnits);

    // Saved and opened again against the same table and daily values, the
    // list is the same.
    const pw::AnalysisFileContent again = pw::ParseAnalysisBytes(pw::AnalysisFileBytes(inputs, list));
    if (!again.valid)
        std::abort();
    const pw::FoodList reopened = Attach(again.items, dailyValues);
    if (reopened.Count() != list.Count())
        std::abort();
    for (int row = 1; row <= list.Count(); ++row)
        if (!(reopened.Entry(row) == list.Entry(row)))
            std::abort();
    return 0;
}
