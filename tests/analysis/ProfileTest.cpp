#include <gtest/gtest.h>


#include "Fixtures.h"
#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "core/RunTimeError.h"

namespace pw {
namespace {

ProfileInputs Inputs(std::string yob, int measurement, std::string height, std::string weight)
{
    ProfileInputs in;
    in.name = "Ann";
    in.yob = std::move(yob);
    in.measurement = measurement;
    in.height = std::move(height);
    in.weight = std::move(weight);
    return in;
}

TEST(ValidateProfile, AgeWeightAndHeightLimitsInBothUnitSystems)
{
    constexpr int E = kMeasurementEnglish;
    constexpr int M = kMeasurementMetric;
    constexpr std::int16_t kEarlierAge = 77;  // what the profile held before
    struct Case {
        const char* what;
        ProfileInputs in;
        int year;
        bool valid;
        bool underAge;
        std::int16_t age;
        const char* guidance;  // Y year, W weight, H height still wanted
    };
    const Case cases[] = {
        {"13 years old is old enough", Inputs("88", E, "64", "130"), 2001, true, false, 13, ""},
        {"12 years old is refused", Inputs("89", E, "64", "130"), 2001, false, true, 12, "Y"},
        {"two-digit years are 19xx", Inputs("05", E, "64", "130"), 2026, true, false, 121, ""},
        {"a trailing point still makes two characters", Inputs("5.", E, "64", "130"), 2026, true, false, 121, ""},
        {"one digit keeps the earlier age", Inputs("5", E, "64", "130"), 2026, false, false, kEarlierAge, "Y"},
        {"no year keeps the earlier age", Inputs("", E, "64", "130"), 2026, false, false, kEarlierAge, "Y"},
        {"three characters are no year", Inputs("198", E, "64", "130"), 2026, false, false, kEarlierAge, "Y"},
        {"50 pounds pass", Inputs("62", E, "64", "50"), 2026, true, false, 64, ""},
        {"49.9 pounds fail", Inputs("62", E, "64", "49.9"), 2026, false, false, 64, "W"},
        {"36 inches pass", Inputs("62", E, "36", "130"), 2026, true, false, 64, ""},
        {"35.99 inches fail", Inputs("62", E, "35.99", "130"), 2026, false, false, 64, "H"},
        {"22.7 kg is 50.008 pounds", Inputs("62", M, "170", "22.7"), 2026, true, false, 64, ""},
        {"22.6 kg is 49.79 pounds", Inputs("62", M, "170", "22.6"), 2026, false, false, 64, "W"},
        {"91.44 cm is 36 inches", Inputs("62", M, "91.44", "60"), 2026, true, false, 64, ""},
        {"91.4 cm is under 36 inches", Inputs("62", M, "91.4", "60"), 2026, false, false, 64, "H"},
        {"no measurement reads metric: 30 is kilograms", Inputs("62", kNoOption, "170", "30"), 2026, true, false, 64, ""},
        {"no measurement reads metric: 60 is centimetres", Inputs("62", kNoOption, "60", "130"), 2026, false, false,
         64, "H"},
        {"text that is no number is 0", Inputs("62", E, "tall", "130"), 2026, false, false, 64, "H"},
        {"an under-age year and a short height", Inputs("95", E, "20", "130"), 2000, false, true, 5, "YH"},
    };
    for (const Case& c : cases) {
        Profile profile;
        profile.age = kEarlierAge;
        const ProfileVerdict verdict = ValidateProfile(c.in, c.year, profile);
        EXPECT_EQ(verdict.valid, c.valid) << c.what;
        EXPECT_EQ(verdict.underAge, c.underAge) << c.what;
        EXPECT_EQ(profile.age, c.age) << c.what;
        EXPECT_EQ(profile.valid, c.valid) << c.what;
        EXPECT_EQ(profile.inputs, c.in) << c.what;
        std::string wanted;
        for (const std::string& line : ProfileGuidance(profile))
            wanted += line.starts_with("Year of birth: two digits") ? 'Y'
                      : line == "Weight: at least 50 pounds (22.7 kg)" ? 'W'
                      : line == "Height: at least 36 inches (91.44 cm)" ? 'H'
                                                                         : '?';
        EXPECT_EQ(wanted, c.guidance) << c.what;
    }
}

TEST(ValidateProfile, KeepsBothUnitPairsInSinglePrecision)
{
    struct Case {
        int measurement;
        const char* height;
        const char* weight;
        float inches, centimeters, pounds, kilograms;
    };
    const Case cases[] = {
        {kMeasurementEnglish, "64", "150", 64.0f, 162.56f, 150.0f, 68.0889f},
        {kMeasurementEnglish, "70.5", "2203", 70.5f, 179.07f, 2203.0f, 1000.0f},
        {kMeasurementMetric, "175", "70", 68.8976f, 175.0f, 154.21f, 70.0f},
        {kMeasurementMetric, "254", "22.7", 100.0f, 254.0f, 50.0081f, 22.7f},
    };
    for (const Case& c : cases) {
        Profile profile;
        ValidateProfile(Inputs("62", c.measurement, c.height, c.weight), 2026, profile);
        EXPECT_NEAR(profile.heightInches, c.inches, 1e-3) << c.height;
        EXPECT_NEAR(profile.heightCentimeters, c.centimeters, 1e-3) << c.height;
        EXPECT_NEAR(profile.weightPounds, c.pounds, 1e-3) << c.weight;
        EXPECT_NEAR(profile.weightKilograms, c.kilograms, 1e-3) << c.weight;
    }
}

TEST(ValidateProfile, NumbersBeyondTheirTypeAreOverflows)
{
    struct Case {
        const char* what;
        ProfileInputs in;
        int year;
    };
    const Case cases[] = {
        {"weight beyond a single", Inputs("62", kMeasurementEnglish, "64", "1e39"), 2026},
        {"metric weight whose pounds pass the single range", Inputs("62", kMeasurementMetric, "170", "3e38"), 2026},
        {"height beyond a double", Inputs("62", kMeasurementEnglish, "1e999", "130"), 2026},
        {"a year beyond 16 bits", Inputs("62", kMeasurementEnglish, "64", "130"), 40000},
    };
    for (const Case& c : cases) {
        Profile profile;
        EXPECT_EQ(test::ErrorKindOf([&] { ValidateProfile(c.in, c.year, profile); }), ErrorKind::Overflow) << c.what;
    }
}

TEST(IsLegalFileName, RefusesTheNineCharactersOnly)
{
    for (char bad : std::string("\\/:*?\"<>|"))
        EXPECT_FALSE(IsLegalFileName(bad + std::string("Ann"))) << bad;
    for (const char* good : {"", "Ann", "Ann Smith-Jones", "J. R. (Bob)", "50% & more", "Zo\xEB", "tab\there"})
        EXPECT_TRUE(IsLegalFileName(good)) << good;
}

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
        // No selection counts as female and sedentary.
        {150.0f, kNoOption, kNoOption, {2100, 63, 304, 70, 315, 26, 840, 2494}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ComputeDailyValues(c.pounds, c.sex, c.lifestyle), c.expected)
            << c.pounds << " lb, sex " << c.sex << ", lifestyle " << c.lifestyle;
    EXPECT_EQ(ComputeDailyValues(143.0f, kSexMale, kNoOption)[kCalories], 143 * 16);
    EXPECT_EQ(ComputeDailyValues(143.0f, kNoOption, kLifestyleActive)[kCalories], 143 * 22);

    // Products beyond 32 bits are overflows: 70,000 lb x 14 = 980,000 kcal,
    // x 2375 for sodium passes 2^31; 60,000 lb stays just below.
    EXPECT_THROW(ComputeDailyValues(70000.0f, kSexFemale, kLifestyleSedentary), RunTimeError);
    EXPECT_THROW(ComputeDailyValues(1e9f, kSexMale, kLifestyleActive), RunTimeError);
    EXPECT_EQ(ComputeDailyValues(60000.0f, kSexFemale, kLifestyleSedentary)[kSodium], 997500);
}

TEST(BodyMassIndex, RoundsHalfToEvenAndInterprets)
{
    const std::tuple<float, float, std::int32_t> cases[] = {
        {82.0f, 200.0f, 20},   // 20.5
        {98.0f, 200.0f, 24},   // 24.5
        {158.0f, 200.0f, 40},  // 39.5
        {70.0f, 175.0f, 23},   // 22.86
        {50.0f, 180.0f, 15}, {100.0f, 180.0f, 31}, {85.0f, 175.0f, 28}, {31.75f, 91.44f, 38},
    };
    for (const auto& [kilograms, centimeters, rounded] : cases)
        EXPECT_EQ(ComputeBodyMassIndex(kilograms, centimeters).rounded, rounded) << kilograms << " kg";
    EXPECT_NEAR(ComputeBodyMassIndex(70.0f, 175.0f).value, 22.857f, 1e-3);
    EXPECT_THROW(ComputeBodyMassIndex(3e38f, 50.0f), RunTimeError);

    const std::pair<std::int32_t, const char*> bands[] = {
        {-3, "Severely undernourished"}, {15, "Severely undernourished"}, {16, "Underweight"},
        {20, "Underweight"},             {21, "Normal"},                  {24, "Normal"},
        {25, "Overweight"},              {29, "Overweight"},              {30, "Obese"},
        {39, "Obese"},                   {40, "Morbidly obese"},          {400, "Morbidly obese"},
    };
    for (const auto& [bmi, reading] : bands)
        EXPECT_STREQ(InterpretBodyMassIndex(bmi), reading) << bmi;
}

}  // namespace
}  // namespace pw
