#pragma once
// The profile file (.pwp): seven "KEY:value" lines of Latin-1 text, each
// ended by CR LF. The same lines head a food-list file.
#include <string>
#include <string_view>
#include <vector>

#include "analysis/Profile.h"

namespace pw {

inline constexpr const char* kDefaultProfileName = "default.pwp";
inline constexpr const char* kProfileExtension = ".pwp";

// The seven lines in their fixed order: NAME, YOB, MEASUREMENT, HEIGHT,
// WEIGHT, SEX, LIFESTYLE. Texts are written as typed except the year of
// birth, which is written as its numeric value ("05" -> "5", "" -> "0");
// the option indices take the printed number form (" 0 "), an array with no
// selection -1 ("-1 ").
std::vector<std::string> ProfileFileLines(const ProfileInputs& inputs);
std::string ProfileFileBytes(const ProfileInputs& inputs);

enum class ProfileField { Name, Yob, Measurement, Height, Weight, Sex, Lifestyle };

// One field a line of the file sets. For the option arrays, option is the
// index to select (kNoOption: none of the array).
struct ProfileSetting {
    ProfileField field = ProfileField::Name;
    std::string text;
    int option = kNoOption;

    bool operator==(const ProfileSetting&) const = default;
};

enum class ProfileLineKind {
    Setting,  // a known key: setting holds what it sets
    Skipped,  // no colon, or a key the file does not know
    Bad,      // not a line of a profile file: the file is not one
};

struct ProfileLine {
    ProfileLineKind kind = ProfileLineKind::Skipped;
    ProfileSetting setting;
};

// Reads one line: the key is everything up to and including the first colon,
// matched without regard to case; the value is the rest without blanks
// around it. A year of birth that is not exactly two characters sets an
// empty year. An option value selects the option whose index equals its
// numeric value, or none when no index does.
// A line holding a control character other than a tab (as a binary file
// does), or a number too large to read, is Bad.
ProfileLine ParseProfileLine(std::string_view line);

// The settings of a whole file, in file order, up to its first bad line.
struct ProfileFileContent {
    std::vector<ProfileSetting> settings;
    bool valid = true;  // false: a bad line, or the file could not be read
};

ProfileFileContent ParseProfileBytes(std::string_view bytes);
// Never throws: a missing or unreadable file gives an invalid content.
ProfileFileContent ReadProfileFile(const std::string& path);

// Applies settings to inputs, as loading the file into the controls does.
void ApplyProfileSetting(const ProfileSetting& setting, ProfileInputs& inputs);
void ApplyProfileSettings(const std::vector<ProfileSetting>& settings, ProfileInputs& inputs);

// Writes the profile file over path (temporary file and rename); a failure is
// a PathFileAccess run-time error.
void WriteProfileFile(const std::string& path, const ProfileInputs& inputs);

}  // namespace pw
