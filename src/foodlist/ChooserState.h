#pragma once
// What the food chooser has chosen, shared with the food-list grid: the food,
// the parsed quantity and the food's values scaled by it.
#include <array>
#include <cstdint>

#include "fooddb/FoodTable.h"

namespace pw {


struct ChooserState {
    std::int16_t currentFood = 0;     // FoodTable index of the chosen measure
    float currentQuantity = 0.0f;     // last parsed quantity; negative when refused
    NutrientValues currentNutrients{};  // the nine values times the quantity
    NutrientPercents currentPercents{};  // the first eight as percent of DV
    bool addingNewItem = false;       // Accept adds a row (true) or changes one
    int measureCount = 0;             // measures the measure tier lists
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
