#pragma once
// The program folder: where the program keeps its files (data.dat, pw.ini,
// default.pwp, tips.txt, pw.hlp). A program run from a folder of its own,
// a build folder or the per-user folder the run script fills, keeps them
// beside the executable. An installed program (its delivered files in
// share/platewell beside bin/) or one whose folder cannot be written keeps
// them in a per-user folder instead, created and seeded on the first start.
#include <string>
#include <vector>

#include "core/OutputTarget.h"

namespace pw {

// Where the choice is made from.
struct ProgramFolderPlaces {
    std::string executableFolder;
    // share/platewell of an installed program; empty when the program is not
    // installed.
    std::string deliveredFolder;
    // $XDG_DATA_HOME, or ~/.local/share; empty when neither is known.
    std::string dataHome;
};

inline constexpr const char* kUserFolderName = "Platewell";

// The delivered files the user owns once copied: never replaced.
inline constexpr const char* kSeededOnce[] = {"data.dat", "tips.txt"};
// The delivered files that belong to the program, brought up to date
// whenever the delivered copy differs: the help file and its pictures.
inline constexpr const char* kKeptCurrent[] = {"pw.hlp", "help"};

// The folder for places: the executable's own folder when it can be written
// and the program is not installed; otherwise dataHome/Platewell, created and
// seeded from the delivered folder (or, for a program that is not installed,
// from the executable's folder). When the per-user folder cannot be made or
// seeded, problem (when given) tells which folder or file and the system's
// reason, and the executable's folder is returned. Never throws.
std::string ChooseProgramFolder(const ProgramFolderPlaces& places, std::string* problem = nullptr);

// Copies the delivered files from source into folder: each of kSeededOnce
// only when folder has no file of that name (in any case), each of
// kKeptCurrent when missing or different. Returns false when a copy failed,
// with the file and the system's reason in problem when given.
bool SeedProgramFolder(const std::string& source, const std::string& folder, std::string* problem = nullptr);

// The places of this process: share/platewell at its installed place
// relative to executableFolder, and the data home from the environment.
ProgramFolderPlaces ProgramFolderPlacesFor(const std::string& executableFolder);

// ChooseProgramFolder(ProgramFolderPlacesFor(executableFolder), problem).
std::string ProgramFolder(const std::string& executableFolder, std::string* problem = nullptr);

// The folder whose data.dat a run that writes nothing (a command-line export)
// reads: the program folder the window would use when it already holds one,
// else the delivered folder. Creates and copies nothing.
std::string ProgramFolderToRead(const std::string& executableFolder);

// The files of the program in each of folders (data.dat, pw.ini,
// default.pwp, tips.txt, pw.hlp, pw.lock) that no report may replace.
std::vector<OwnFile> ProgramOwnFiles(const std::vector<std::string>& folders);

}  // namespace pw
