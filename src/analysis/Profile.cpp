#include "analysis/Profile.h"

#include <cmath>
#include <limits>

#include "analysis/AnalysisTexts.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

namespace {

std::int16_t CheckedInt16(int value, const char* what)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(ErrorKind::Overflow, what);
    return static_cast<std::int16_t>(value);
}

}  // namespace

float ToSingle(double value)
{
    if (std::isnan(value) || std::fabs(value) > double(std::numeric_limits<float>::max()))
        throw RunTimeError(ErrorKind::Overflow, "value out of single-precision range");
    return static_cast<float>(value);
}

std::int16_t AgeFromYob(std::string_view yob, int currentYear)
{
    const std::int16_t birthYear = ToInt16(Val(yob) + kBirthCentury);
    const std::int16_t year = CheckedInt16(currentYear, "current year");
    return CheckedInt16(int(year) - int(birthYear), "age");
}

ProfileVerdict ValidateProfile(const ProfileInputs& inputs, int currentYear, Profile& profile)
{
    ProfileVerdict verdict;
    bool valid = true;

    if (inputs.yob.size() == 2) {
        profile.age = AgeFromYob(inputs.yob, currentYear);
        if (profile.age < kMinimumAge) {
            verdict.underAge = true;
            valid = false;
        }
    } else {
        valid = false;
    }

    // A single-precision value times or over a double factor is computed in
    // double and stored back in single precision.
    const bool english = inputs.measurement == kMeasurementEnglish;
    if (english) {
        profile.weightPounds = ToSingle(Val(inputs.weight));
        profile.weightKilograms = ToSingle(double(profile.weightPounds) / kPoundsPerKilogram);
    } else {
        profile.weightKilograms = ToSingle(Val(inputs.weight));
        profile.weightPounds = ToSingle(double(profile.weightKilograms) * kPoundsPerKilogram);
    }
    if (profile.weightPounds < kMinimumPounds)
        valid = false;

    if (english) {
        profile.heightInches = ToSingle(Val(inputs.height));
        profile.heightCentimeters = ToSingle(double(profile.heightInches) * kCentimetersPerInch);
    } else {
        profile.heightCentimeters = ToSingle(Val(inputs.height));
        profile.heightInches = ToSingle(double(profile.heightCentimeters) / kCentimetersPerInch);
    }
    if (profile.heightInches < kMinimumInches)
        valid = false;

    profile.inputs = inputs;
    profile.valid = valid;
    verdict.valid = valid;
    return verdict;
}

std::vector<std::string> ProfileGuidance(const Profile& profile)
{
    std::vector<std::string> missing;
    if (profile.valid)
        return missing;
    if (profile.inputs.yob.size() != 2 || profile.age < kMinimumAge)
        missing.emplace_back(texts::kGuideYearOfBirth);
    if (profile.weightPounds < kMinimumPounds)
        missing.emplace_back(texts::kGuideWeight);
    if (profile.heightInches < kMinimumInches)
        missing.emplace_back(texts::kGuideHeight);
    return missing;
}

std::string UnitSwitchText(float value) { return NumberText(RoundHalfEven(double(value))); }

bool IsLegalFileName(std::string_view text)
{
    for (char c : text) {
        switch (c) {
        case '\\':
        case '/':
        case ':':
        case '*':
        case '?':
        case '"':
        case '<':
        case '>':
        case '|':
            return false;
        default:
            break;
        }
    }
    return true;
}

}  // namespace pw
