#pragma once
// What the food chooser has chosen, shared with the food-list grid: the food,
// the parsed quantity and the food's values scaled by it.
#include <array>
#include <cstdint>

#include "fooddb/FoodTable.h"

namespace pw {

// What a quantity as parsed allows.
enum class QuantityVerdict {
    Refused,   // not a quantity: its message, the values disabled
    TooLarge,  // beyond kMaxQuantity: its message, the values disabled
    Zero,      // nothing to add: the values and Accept disabled
    Valid,     // the values shown, Accept offered
};
QuantityVerdict JudgeQuantity(float quantity);

// Which of the chooser's controls take input, and what its state allows.
// The chooser's operations change it through these steps; one routine of
// the page shows it.
struct ChooserStage {
    std::array<bool, 4> tierOpen{};  // the tier lists, the first three with their captions
    bool quantityOpen = false;       // the quantity box, its caption and "of"
    bool valuesShown = false;        // the nutrient panel: a food's values are shown
    bool foodShown = false;          // a food is shown: it can be deleted from the table
    bool measureChosen = false;      // a measure is chosen: it can be copied to Favorites
    bool acceptOffered = false;      // "Add to List" / "Change"
    bool searchOffered = false;
    bool rowLoaded = false;          // a list row is loaded: "Delete from List" applies to it

    bool operator==(const ChooserStage&) const = default;

    // Nothing chosen and nothing open; a loaded row stays loaded.
    void CloseAll();
    // New Item: the group tier and Search open, no row loaded.
    void StartNewItem();
    // A row to change: every tier and the quantity open, no food shown yet.
    void OpenForChange();
    // The group or subgroup tier chose (or cleared) its entry: the next tier
    // opens or closes, everything below it closes.
    void UpperTierChosen(int tier, bool chosen);
    // The measure tier and everything after it closed.
    void MeasureTierClosed();
    // A description chose its measures: the measure tier opens, nothing
    // chosen in it yet.
    void DescriptionChosen();
    // The measure tier chose (or cleared) its entry.
    void MeasureChosen(bool chosen);
    void QuantityJudged(QuantityVerdict verdict);
    // The loaded row is gone, or no row was clicked: nothing chosen.
    void ForgetRow();
    // A row of the list loaded for changing; once its food is in the tiers,
    // its values are shown whatever its quantity.
    void LoadRow();
    void ShowRowValues();
    // A food found by the search: shown without a measure, nothing to accept.
    void ShowFound();
};

struct ChooserState {
    std::int16_t currentFood = 0;     // FoodTable index of the chosen measure
    float currentQuantity = 0.0f;     // last parsed quantity; negative when refused
    NutrientValues currentNutrients{};  // the nine values times the quantity
    NutrientPercents currentPercents{};  // the first eight as percent of DV
    bool addingNewItem = false;       // Accept adds a row (true) or changes one
    int measureCount = 0;             // measures the measure tier lists
    ChooserStage stage;               // what the controls offer
};

struct ScaledNutrients {
    NutrientValues amounts{};
    NutrientPercents percents{};
};

// Each of the nine values times the quantity in double precision, rounded
// half to even into 32 bits; the percents are the rounded amounts over the
// daily values times 100, rounded the same way. An overflow or a daily value
// of 0 is a run-time error.
ScaledNutrients ScaleNutrients(const NutrientValues& perMeasure, float quantity, const DailyValues& dailyValues);

}  // namespace pw
