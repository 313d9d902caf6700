#pragma once
// The list files of a period on disk: a folder stands for every list file
// directly in it, each file is read whole with the system's reason when it
// cannot be, and dated by the first date in its name or else by the day it
// was last modified.
#include <string>
#include <vector>

#include "days/Period.h"

namespace pw {

// Every regular file directly in folder whose name ends in ".pwl" (in any
// case), in name order; nothing when folder cannot be listed.
std::vector<std::string> ListFilesInFolder(const std::string& folder);

// Each path that is a folder replaced by its list files; the others kept.
std::vector<std::string> ExpandDayPaths(const std::vector<std::string>& paths);

// Why path cannot be read as a file, in the system's words ("No such file or
// directory", "Is a directory", "Permission denied"); empty when it can.
std::string UnreadableReason(const std::string& path);

// The file's name, date and bytes, or the system's reason it could not be
// read. Without a date in its name, the local date of its modification.
DayFileInput ReadDayFile(const std::string& path);

// ReadDayFile of every expanded path, then BuildPeriod.
Period ReadPeriod(const std::vector<std::string>& paths, const FoodTable& table, int currentYear);

}  // namespace pw
