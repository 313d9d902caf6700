#include "analysis/ProfileFile.h"

#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {

namespace {

constexpr const char* kNameKey = "NAME:";
constexpr const char* kYobKey = "YOB:";
constexpr const char* kMeasurementKey = "MEASUREMENT:";
constexpr const char* kHeightKey = "HEIGHT:";
constexpr const char* kWeightKey = "WEIGHT:";
constexpr const char* kSexKey = "SEX:";
constexpr const char* kLifestyleKey = "LIFESTYLE:";

std::string OptionText(int index) { return PrintNumber(index < 0 ? kNoOption : index); }

// Line ends are gone by now; any other control character but the tab means
// the bytes are not text.
bool HoldsControlCharacter(std::string_view line)
{
    for (char c : line) {
        const auto u = static_cast<unsigned char>(c);
        if ((u < 0x20 && u != '\t') || u == 0x7F)
            return true;
    }
    return false;
}

int OptionFromValue(std::string_view value, int optionCount)
{
    const double number = Val(value);
    for (int i = 0; i < optionCount; ++i)
        if (number == double(i))
            return i;
    return kNoOption;
}

}  // namespace

std::vector<std::string> ProfileFileLines(const ProfileInputs& inputs)
{
    return {
        kNameKey + inputs.name,
        kYobKey + NumberText(Val(inputs.yob)),
        kMeasurementKey + OptionText(inputs.measurement),
        kHeightKey + inputs.height,
        kWeightKey + inputs.weight,
        kSexKey + OptionText(inputs.sex),
        kLifestyleKey + OptionText(inputs.lifestyle),
    };
}

std::string ProfileFileBytes(const ProfileInputs& inputs) { return LinesToBytes(ProfileFileLines(inputs)); }

ProfileLine ParseProfileLine(std::string_view line)
{
    ProfileLine result;
    if (HoldsControlCharacter(line)) {
        result.kind = ProfileLineKind::Bad;
        return result;
    }
    const std::string padded = std::string(line) + ' ';
    const std::size_t colon = padded.find(':');
    if (colon == std::string::npos)
        return result;
    const std::string key = UpperLatin1(std::string_view(padded).substr(0, colon + 1));
    const std::string value = Trim(std::string_view(padded).substr(colon + 1));

    ProfileSetting& s = result.setting;
    try {
        if (key == kNameKey) {
            s.field = ProfileField::Name;
            s.text = value;
        } else if (key == kYobKey) {
            s.field = ProfileField::Yob;
            s.text = value.size() == 2 ? value : std::string();
        } else if (key == kHeightKey) {
            s.field = ProfileField::Height;
            s.text = value;
        } else if (key == kWeightKey) {
            s.field = ProfileField::Weight;
            s.text = value;
        } else if (key == kMeasurementKey) {
            s.field = ProfileField::Measurement;
            s.option = OptionFromValue(value, kMeasurementOptions);
        } else if (key == kSexKey) {
            s.field = ProfileField::Sex;
            s.option = OptionFromValue(value, kSexOptions);
        } else if (key == kLifestyleKey) {
            s.field = ProfileField::Lifestyle;
            s.option = OptionFromValue(value, kLifestyleOptions);
        } else {
            return result;
        }
    } catch (const RunTimeError&) {
        result.kind = ProfileLineKind::Bad;
        return result;
    }
    result.kind = ProfileLineKind::Setting;
    return result;
}

ProfileFileContent ParseProfileBytes(std::string_view bytes)
{
    ProfileFileContent content;
    for (const std::string& line : SplitLines(bytes)) {
        ProfileLine parsed = ParseProfileLine(line);
        if (parsed.kind == ProfileLineKind::Bad) {
            content.valid = false;
            break;
        }
        if (parsed.kind == ProfileLineKind::Setting)
            content.settings.push_back(std::move(parsed.setting));
    }
    return content;
}

ProfileFileContent ReadProfileFile(const std::string& path)
{
    std::string bytes;
    try {
        bytes = ReadWholeFile(path, kProfileFileLimit);
    } catch (const RunTimeError&) {
        ProfileFileContent content;
        content.valid = false;
        return content;
    }
    return ParseProfileBytes(bytes);
}

void ApplyProfileSetting(const ProfileSetting& setting, ProfileInputs& inputs)
{
    switch (setting.field) {
    case ProfileField::Name: inputs.name = setting.text; break;
    case ProfileField::Yob: inputs.yob = setting.text; break;
    case ProfileField::Height: inputs.height = setting.text; break;
    case ProfileField::Weight: inputs.weight = setting.text; break;
    case ProfileField::Measurement: inputs.measurement = setting.option; break;
    case ProfileField::Sex: inputs.sex = setting.option; break;
    case ProfileField::Lifestyle: inputs.lifestyle = setting.option; break;
    }
}

void ApplyProfileSettings(const std::vector<ProfileSetting>& settings, ProfileInputs& inputs)
{
    for (const ProfileSetting& s : settings)
        ApplyProfileSetting(s, inputs);
}

void WriteProfileFile(const std::string& path, const ProfileInputs& inputs)
{
    WriteFileAtomic(path, ProfileFileBytes(inputs));
}

}  // namespace pw
