#pragma once
// Every fixed message the profile and analysis tabs show, with its title.
// Lines are joined with CR LF.

namespace pw::texts {

inline constexpr const char* kTitleError = "Error";

inline constexpr const char* kTitleInvalidAge = "Invalid age";
inline constexpr const char* kInvalidAge =
    "This program is not intended to be used\r\n"
    "by persons less than 13 years of age.";

// The line under the profile's boxes while the profile is not yet valid.
inline constexpr const char* kGuideYearOfBirth = "Year of birth: two digits, for example 62";
inline constexpr const char* kGuideWeight = "Weight: at least 50 pounds (22.7 kg)";
inline constexpr const char* kGuideHeight = "Height: at least 36 inches (91.44 cm)";


inline constexpr const char* kIllegalNameCharacter =
    "You have entered an illegal character in the Name field.\r\n"
    "Do not use any of the following characters:\r\n"
    "      \\  /  :  *  ?  \"  <  >  |";

inline constexpr const char* kTitleSaveProfile = "Save Profile";
inline constexpr const char* kProfileSaved = "Profile saved.";

// Follows the path of the file.
inline constexpr const char* kNotAProfileFile =
    "\r\n"
    "is not a valid Platewell\r\n"
    ".pwp file.";

inline constexpr const char* kProfileFilter = "Platewell profiles (*.pwp)|*.pwp";

}  // namespace pw::texts
