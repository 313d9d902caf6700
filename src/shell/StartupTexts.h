#pragma once
// The messages of a program folder whose data file is missing or broken, as
// the splash shows them and the command line prints them.

namespace pw::texts {

inline constexpr const char* kFilesCorrupt = "Files are corrupt. Please reinstall program";
inline constexpr const char* kDatabaseCorrupted = "Database is corrupted.  Please re-install program.";
inline constexpr const char* kStartupErrorTitle = "Error";

}  // namespace pw::texts
