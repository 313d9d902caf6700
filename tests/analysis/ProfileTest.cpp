#include <gtest/gtest.h>

#include <optional>

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
    };
    const Case cases[] = {
        {"13 years old is old enough", Inputs("88", E, "64", "130"), 2001, true, false, 13},
        {"12 years old is refused", Inputs("89", E, "64", "130"), 2001, false, true, 12},
        {"two-digit years are 19xx", Inputs("05", E, "64", "130"), 2026, true, false, 121},
        {"a trailing point still makes two characters", Inputs("5.", E, "64", "130"), 2026, true, false, 121},
        {"one digit keeps the earlier age", Inputs("5", E, "64", "130"), 2026, false, false, kEarlierAge},
        {"no year keeps the earlier age", Inputs("", E, "64", "130"), 2026, false, false, kEarlierAge},
        {"three characters are no year", Inputs("198", E, "64", "130"), 2026, false, false, kEarlierAge},
        {"50 pounds pass", Inputs("62", E, "64", "50"), 2026, true, false, 64},
        {"49.9 pounds fail", Inputs("62", E, "64", "49.9"), 2026, false, false, 64},
        {"36 inches pass", Inputs("62", E, "36", "130"), 2026, true, false, 64},
        {"35.99 inches fail", Inputs("62", E, "35.99", "130"), 2026, false, false, 64},
        {"22.7 kg is 50.008 pounds", Inputs("62", M, "170", "22.7"), 2026, true, false, 64},
        {"22.6 kg is 49.79 pounds", Inputs("62", M, "170", "22.6"), 2026, false, false, 64},
        {"91.44 cm is 36 inches", Inputs("62", M, "91.44", "60"), 2026, true, false, 64},
        {"91.4 cm is under 36 inches", Inputs("62", M, "91.4", "60"), 2026, false, false, 64},
        {"no measurement reads metric: 30 is kilograms", Inputs("62", kNoOption, "170", "30"), 2026, true, false, 64},
        {"no measurement reads metric: 60 is centimetres", Inputs("62", kNoOption, "60", "130"), 2026, false, false,
         64},
        {"text that is no number is 0", Inputs("62", E, "tall", "130"), 2026, false, false, 64},
        {"an under-age year and a short height", Inputs("95", E, "20", "130"), 2000, false, true, 5},
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
        try {
            ValidateProfile(c.in, c.year, profile);
            ADD_FAILURE() << c.what << ": no error";
        } catch (const RunTimeError& e) {
            EXPECT_EQ(e.Kind(), ErrorKind::Overflow) << c.what;
        }
    }
}

TEST(UnitSwitchText, RoundsHalfToEvenWithoutSeparators)
{
    const std::pair<float, const char*> cases[] = {
        {68.0889f, "68"}, {162.56f, "163"}, {2.5f, "2"},     {3.5f, "4"},
        {0.0f, "0"},      {0.4f, "0"},      {12345.6f, "12346"}, {-1.5f, "-2"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(UnitSwitchText(value), text) << value;
}

TEST(IsLegalFileName, RefusesTheNineCharactersAnywhere)
{
    for (char bad : std::string("\\/:*?\"<>|")) {
        for (const std::string& name : {std::string(1, bad), "Ann" + std::string(1, bad), bad + std::string("Ann"),
                                        "A" + std::string(1, bad) + "nn"})
            EXPECT_FALSE(IsLegalFileName(name)) << name;
    }
    for (const char* good : {"", "Ann", "Ann Smith-Jones", "J. R. (Bob)", "50% & more", "Zo\xEB", "tab\there"})
        EXPECT_TRUE(IsLegalFileName(good)) << good;
}

}  // namespace
}  // namespace pw
