#pragma once
// The person's profile: the entries of the profile tab as typed, and the
// measures derived from them on every edit (the age and the weight and
// height in both unit systems), with the rules that make a profile valid.
#include <cstdint>
#include <string>
#include <vector>
#include <string_view>

namespace pw {

// An option array with nothing selected (a profile file can leave one so).
inline constexpr int kNoOption = -1;

inline constexpr int kMeasurementEnglish = 0;  // inches and pounds
inline constexpr int kMeasurementMetric = 1;   // centimetres and kilograms
inline constexpr int kMeasurementOptions = 2;

inline constexpr int kSexFemale = 0;
inline constexpr int kSexMale = 1;
inline constexpr int kSexOptions = 2;

inline constexpr int kLifestyleSedentary = 0;
inline constexpr int kLifestyleLight = 1;
inline constexpr int kLifestyleModerate = 2;
inline constexpr int kLifestyleActive = 3;
inline constexpr int kLifestyleOptions = 4;

inline constexpr double kPoundsPerKilogram = 2.203;
inline constexpr double kCentimetersPerInch = 2.54;
inline constexpr float kMinimumPounds = 50.0f;
inline constexpr float kMinimumInches = 36.0f;
inline constexpr std::int16_t kMinimumAge = 13;
// Two-digit years of birth always belong to this century: "05" is 1905.
inline constexpr int kBirthCentury = 1900;

// The entries as the controls hold them (Latin-1 text) and the selected
// option of each array (kNoOption when none is selected).
struct ProfileInputs {
    std::string name;
    std::string yob;     // last two digits of the year of birth
    std::string height;  // inches or centimetres, after the measurement
    std::string weight;  // pounds or kilograms, after the measurement
    int measurement = kMeasurementEnglish;
    int sex = kSexFemale;
    int lifestyle = kLifestyleSedentary;

    bool operator==(const ProfileInputs&) const = default;
};

// The profile the rest of the program reads: the measures derived by the
// last validation and the entries they were derived from.
struct Profile {
    std::int16_t age = 0;
    float weightPounds = 0.0f;
    float heightInches = 0.0f;
    float weightKilograms = 0.0f;
    float heightCentimeters = 0.0f;
    ProfileInputs inputs;  // as at the last validation
    bool valid = false;
};

struct ProfileVerdict {
    bool valid = false;
    // The year of birth gives an age under 13: the user is told so and the
    // year box is emptied.
    bool underAge = false;
};

// Recomputes profile from inputs:
// - a year of birth of exactly two characters sets the age (current year
//   minus 1900 + its numeric value); any other length leaves the age as it
//   was and makes the profile invalid;
// - weight and height are read in the units of the measurement and
//   converted to the other pair (2.203 pounds a kilogram, 2.54 cm an inch),
//   each stored in single precision; when no measurement is selected the
//   entries count as metric;
// - under 13 years, under 50 pounds or under 36 inches is invalid, the
//   limits always compared in pounds and inches.
// Sex and lifestyle are not checked (see DailyValues for what none means).
// A number beyond the range of its type is an overflow run-time error.
ProfileVerdict ValidateProfile(const ProfileInputs& inputs, int currentYear, Profile& profile);

// What still keeps a profile from being valid, in words, one entry each for
// the year of birth, the weight and the height, in that order; empty once
// the profile is valid. Reads the measures ValidateProfile has just stored.
std::vector<std::string> ProfileGuidance(const Profile& profile);

// The age for a two-character year of birth in the given year.
std::int16_t AgeFromYob(std::string_view yob, int currentYear);

// A double into a single-precision float; out of the float range is an
// overflow run-time error.
float ToSingle(double value);

// The weight and height to show after switching the measurement: the stored
// value of the new unit, rounded half to even, as text ("68").
std::string UnitSwitchText(float value);

// True when text holds none of the nine characters \ / : * ? " < > | that a
// file name cannot hold (the name proposes the profile's file name).
bool IsLegalFileName(std::string_view text);

}  // namespace pw
