// Any bytes as a .pwp file, loaded as the profile tab loads one: parsed into
// settings or refused, then validated and turned into the daily values, the
// body-mass index and the texts of a unit switch. A number out of range is a
// run-time error, never anything else; the profile written again reads back
// as a valid file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "analysis/ProfileFile.h"
#include "core/RunTimeError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const pw::ProfileFileContent content =
        pw::ParseProfileBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    pw::ProfileInputs inputs;
    pw::ApplyProfileSettings(content.settings, inputs);
    try {
        pw::Profile profile;
        if (pw::ValidateProfile(inputs, 2026, profile).valid) {
            pw::ComputeDailyValues(profile.weightPounds, inputs.sex, inputs.lifestyle);
            const pw::BodyMassIndex bmi = pw::ComputeBodyMassIndex(profile.weightKilograms, profile.heightCentimeters);
            pw::InterpretBodyMassIndex(bmi.rounded);
        }
        for (float value : {profile.weightPounds, profile.heightInches, profile.weightKilograms, profile.heightCentimeters})
            pw::UnitSwitchText(value);
    } catch (const pw::RunTimeError&) {
    }
    if (!pw::ParseProfileBytes(pw::ProfileFileBytes(inputs)).valid)
        std::abort();
    return 0;
}
