#pragma once
// The foods rich in a nutrient printed from a shell, without a window or a
// display, from the data file of the program's folder (only read):
//   platewell --rich-in NUTRIENT [--per-100-calories] [--group NAME]
//             [--most | --least] [--top N]
#include <optional>

namespace pw {

// Nothing when the command line does not ask for the ranking; else the exit
// status after printing it (0), or after a message on standard error: 1 for
// an unknown nutrient or group, or a data file that cannot be read, 2 for a
// malformed command line.
std::optional<int> RunRichInCommandLine(int& argc, char** argv);

}  // namespace pw
