#include <gtest/gtest.h>

#include <string>

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "core/RunTimeError.h"

namespace pw {
namespace {

TEST(DailyValues, FollowWeightSexAndLifestyle)
{
    struct Case {
        float pounds;
        int sex;
        int lifestyle;
        // Calories, Protein, Carbs, Fats, Cholesterol, Fiber, Calcium, Sodium
        DailyValues expected;
    };
    const Case cases[] = {
        // 2100 - 70 x 9 - 63 x 4 = 1218 carbohydrate kcal, 304.5 g -> 304.
        {150.0f, kSexFemale, kLifestyleSedentary, {2100, 63, 304, 70, 315, 26, 840, 2494}},
        // 180 x 16.883 = 3038.94; 1826 / 4 = 456.5 -> 456.
        {180.0f, kSexMale, kLifestyleLight, {3039, 76, 456, 101, 456, 38, 1216, 3609}},
        // Fiber 32.5 -> 32 and sodium 3087.5 -> 3088: halves go to the even side.
        {100.0f, kSexMale, kLifestyleActive, {2600, 42, 412, 87, 390, 32, 1040, 3088}},
        {120.0f, kSexFemale, kLifestyleModerate, {2160, 50, 328, 72, 324, 27, 864, 2565}},
        {160.0f, kSexFemale, kLifestyleLight, {2500, 67, 371, 83, 375, 31, 1000, 2969}},
        {200.0f, kSexMale, kLifestyleSedentary, {3200, 84, 475, 107, 480, 40, 1280, 3800}},
        {130.0f, kSexFemale, kLifestyleActive, {2860, 55, 446, 95, 429, 36, 1144, 3396}},
        {130.0f, kSexMale, kLifestyleModerate, {2730, 55, 423, 91, 410, 34, 1092, 3242}},
        // The lightest valid profile still has a daily value of every nutrient.
        {50.0f, kSexFemale, kLifestyleSedentary, {700, 21, 102, 23, 105, 9, 280, 831}},
    };
    for (const Case& c : cases) {
        const DailyValues dv = ComputeDailyValues(c.pounds, c.sex, c.lifestyle);
        for (int n = 0; n < kShownNutrients; ++n)
            EXPECT_EQ(dv[n], c.expected[n]) << c.pounds << " lb, sex " << c.sex << ", lifestyle " << c.lifestyle
                                            << ", nutrient " << n;
    }
}

TEST(DailyValues, NoSelectionCountsAsFemaleAndSedentary)
{
    const float pounds = 143.0f;
    const DailyValues femaleSedentary = ComputeDailyValues(pounds, kSexFemale, kLifestyleSedentary);
    EXPECT_EQ(ComputeDailyValues(pounds, kNoOption, kLifestyleSedentary), femaleSedentary);
    EXPECT_EQ(ComputeDailyValues(pounds, kSexFemale, kNoOption), femaleSedentary);
    EXPECT_EQ(ComputeDailyValues(pounds, kNoOption, kNoOption), femaleSedentary);
    EXPECT_EQ(ComputeDailyValues(pounds, kSexMale, kNoOption)[kCalories], 143 * 16);
    EXPECT_EQ(ComputeDailyValues(pounds, kNoOption, kLifestyleActive)[kCalories], 143 * 22);
}

TEST(DailyValues, ProductsBeyond32BitsAreOverflows)
{
    // 70,000 lb x 14 = 980,000 kcal; x 2375 for sodium passes 2^31.
    EXPECT_THROW(ComputeDailyValues(70000.0f, kSexFemale, kLifestyleSedentary), RunTimeError);
    // Calories themselves beyond 32 bits.
    EXPECT_THROW(ComputeDailyValues(1e9f, kSexMale, kLifestyleActive), RunTimeError);
    // Just below: 60,000 lb x 14 x 2375 = 1,995,000,000.
    EXPECT_EQ(ComputeDailyValues(60000.0f, kSexFemale, kLifestyleSedentary)[kSodium], 997500);
}

TEST(DailyValues, CaptionsCarryTheNutrientsUnit)
{
    const std::pair<Nutrient, const char*> cases[] = {
        {kCalories, "2100"}, {kProtein, "2100 g"},     {kCarbs, "2100 g"},   {kFats, "2100 g"},
        {kCholesterol, "2100 mg"}, {kFiber, "2100 g"}, {kCalcium, "2100 mg"}, {kSodium, "2100 mg"},
    };
    for (const auto& [nutrient, text] : cases)
        EXPECT_EQ(DailyValueText(nutrient, 2100), text) << nutrient;
    EXPECT_EQ(DailyValueText(kSodium, 12345), "12345 mg");  // no thousands separator
}

TEST(BodyMassIndex, RoundsHalfToEvenAndInterprets)
{
    struct Case {
        float kilograms;
        float centimeters;
        std::int32_t rounded;
        const char* reading;
    };
    const Case cases[] = {
        {82.0f, 200.0f, 20, "Underweight"},     // 20.5
        {98.0f, 200.0f, 24, "Normal"},          // 24.5
        {158.0f, 200.0f, 40, "Morbidly obese"}, // 39.5
        {70.0f, 175.0f, 23, "Normal"},          // 22.86
        {50.0f, 180.0f, 15, "Severely undernourished"},
        {100.0f, 180.0f, 31, "Obese"},
        {85.0f, 175.0f, 28, "Overweight"},
        {31.75f, 91.44f, 38, "Obese"},
    };
    for (const Case& c : cases) {
        const BodyMassIndex bmi = ComputeBodyMassIndex(c.kilograms, c.centimeters);
        EXPECT_EQ(bmi.rounded, c.rounded) << c.kilograms << " kg, " << c.centimeters << " cm";
        EXPECT_STREQ(InterpretBodyMassIndex(bmi.rounded), c.reading) << c.kilograms << " kg";
    }
    EXPECT_NEAR(ComputeBodyMassIndex(70.0f, 175.0f).value, 22.857f, 1e-3);
}

TEST(BodyMassIndex, InterpretationBands)
{
    const std::pair<std::int32_t, const char*> cases[] = {
        {-3, "Severely undernourished"}, {15, "Severely undernourished"}, {16, "Underweight"},
        {20, "Underweight"},             {21, "Normal"},                  {24, "Normal"},
        {25, "Overweight"},              {29, "Overweight"},              {30, "Obese"},
        {39, "Obese"},                   {40, "Morbidly obese"},          {400, "Morbidly obese"},
    };
    for (const auto& [bmi, reading] : cases)
        EXPECT_STREQ(InterpretBodyMassIndex(bmi), reading) << bmi;
}

TEST(BodyMassIndex, BeyondTheSingleRangeIsAnOverflow)
{
    EXPECT_THROW(ComputeBodyMassIndex(3e38f, 100.0f * 0.5f), RunTimeError);
}

}  // namespace
}  // namespace pw
