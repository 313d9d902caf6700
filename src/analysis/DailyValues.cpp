#include "analysis/DailyValues.h"

#include "analysis/Profile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

namespace {

// [lifestyle][sex]: female, male.
constexpr double kCalorieFactors[kLifestyleOptions][kSexOptions] = {
    {14.0, 16.0},      // sedentary
    {15.625, 16.883},  // light
    {18.0, 21.0},      // moderate
    {22.0, 26.0},      // active
};

constexpr double kProteinPerPound = 0.42;
constexpr double kFatShareOfCalories = 0.3;
constexpr std::int32_t kCaloriesPerGramFat = 9;
constexpr std::int32_t kCaloriesPerGramProtein = 4;
constexpr std::int32_t kCaloriesPerGramCarbs = 4;

// Reference daily values of a 2,000-kcal diet.
constexpr double kReferenceCalories = 2000.0;
constexpr std::int32_t kReferenceCholesterol = 300;
constexpr std::int32_t kReferenceFiber = 25;
constexpr std::int32_t kReferenceCalcium = 800;
constexpr std::int32_t kReferenceSodium = 2375;

std::int32_t ScaledToCalories(std::int32_t calories, std::int32_t reference)
{
    return ToInt32(double(MulInt32(calories, reference)) / kReferenceCalories);
}

}  // namespace

double CalorieFactor(int sex, int lifestyle)
{
    const int s = sex == kSexMale ? kSexMale : kSexFemale;
    const int l = lifestyle >= 0 && lifestyle < kLifestyleOptions ? lifestyle : kLifestyleSedentary;
    return kCalorieFactors[l][s];
}

DailyValues ComputeDailyValues(float weightPounds, int sex, int lifestyle)
{
    DailyValues dv{};
    const std::int32_t calories = ToInt32(double(weightPounds) * CalorieFactor(sex, lifestyle));
    const std::int32_t protein = ToInt32(double(weightPounds) * kProteinPerPound);
    const std::int32_t fats = ToInt32(double(calories) * kFatShareOfCalories / kCaloriesPerGramFat);
    const std::int32_t carbEnergy = SubInt32(SubInt32(calories, MulInt32(fats, kCaloriesPerGramFat)),
                                             MulInt32(protein, kCaloriesPerGramProtein));
    dv[kCalories] = calories;
    dv[kProtein] = protein;
    dv[kFats] = fats;
    dv[kCarbs] = ToInt32(double(carbEnergy) / kCaloriesPerGramCarbs);
    dv[kCholesterol] = ScaledToCalories(calories, kReferenceCholesterol);
    dv[kFiber] = ScaledToCalories(calories, kReferenceFiber);
    dv[kCalcium] = ScaledToCalories(calories, kReferenceCalcium);
    dv[kSodium] = ScaledToCalories(calories, kReferenceSodium);
    return dv;
}

BodyMassIndex ComputeBodyMassIndex(float weightKilograms, float heightCentimeters)
{
    const double meters = double(heightCentimeters) / 100.0;
    const double squared = meters * meters;
    if (squared == 0.0)
        throw RunTimeError(ErrorKind::DivisionByZero, "body-mass index of a zero height");
    BodyMassIndex bmi;
    bmi.value = ToSingle(double(weightKilograms) / squared);
    bmi.rounded = ToInt32(double(bmi.value));
    return bmi;
}

const char* InterpretBodyMassIndex(std::int32_t roundedBmi)
{
    if (roundedBmi < 16)
        return "Severely undernourished";
    if (roundedBmi <= 20)
        return "Underweight";
    if (roundedBmi <= 24)
        return "Normal";
    if (roundedBmi <= 29)
        return "Overweight";
    if (roundedBmi <= 39)
        return "Obese";
    return "Morbidly obese";
}

}  // namespace pw
