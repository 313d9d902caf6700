#pragma once
// The session the shell owns, and the names of the program and its files.
#include "analysis/AnalysisSession.h"
#include "shell/Settings.h"

namespace pw {

inline constexpr const char* kProgramVersionText = "2.04W";
inline constexpr const char* kHelpVersionText = "2.02";
inline constexpr const char* kDataFileName = "data.dat";
// Held by the running program so a second copy does not use the same folder.
inline constexpr const char* kLockFileName = "pw.lock";

// Everything the program shares between its windows: the analysis session
// with the settings that outlive a run.
struct Session : AnalysisSession {
    Settings settings;
    bool tutorialPending = false;
};

}  // namespace pw
