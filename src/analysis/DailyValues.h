#pragma once
// The person's daily value (DV) of each shown nutrient, and the body-mass
// index with its interpretation. Every amount is rounded half to even.
#include <array>
#include <cstdint>
#include <string>

#include "fooddb/FoodTable.h"

namespace pw {

// Kilocalories a pound of body weight needs a day, by lifestyle and sex.
// A lifestyle or sex with no option selected counts as sedentary or female.
double CalorieFactor(int sex, int lifestyle);

// Calories = pounds x factor; Protein from the weight (0.42 g a pound);
// Fats, Carbs and the milligram values proportioned to the Calories from the
// 2,000-kcal reference (300 mg cholesterol, 25 g fiber, 800 mg calcium,
// 2,375 mg sodium). Integer products are checked 32-bit ones, divisions are
// in double precision; an overflow is a run-time error.
DailyValues ComputeDailyValues(float weightPounds, int sex, int lifestyle);

struct BodyMassIndex {
    float value = 0.0f;       // kg / m^2, computed in double, stored single
    std::int32_t rounded = 0;  // half to even
};

BodyMassIndex ComputeBodyMassIndex(float weightKilograms, float heightCentimeters);

// The verbal reading of a rounded BMI ("Normal" for 21 to 24, ...).
const char* InterpretBodyMassIndex(std::int32_t roundedBmi);

}  // namespace pw
