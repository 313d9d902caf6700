#pragma once
// Where a report made from the command line may go. It never replaces the
// file it is made from nor one of the program's own files; a regular file (or
// a new one) is written through a temporary file and a rename, anything else
// the system holds by that name (a terminal, a pipe, a device) is written in
// place, so /dev/stdout works and a device node is never replaced by a file.
#include <string>
#include <string_view>
#include <vector>

namespace pw {

struct OutputTarget {
    enum class Kind { NewOrRegularFile, InPlace, Refused };
    Kind kind = Kind::Refused;
    // Refused: why, as the end of "OUT is not written: it ...".
    std::string reason;
};

// output: the path given; inputs: the files the report is read from;
// ownFiles: the program's own files (each a folder and a name), compared by
// identity when they exist and by folder and name (without regard to case)
// when output does not exist yet.
struct OwnFile {
    std::string folder;
    std::string name;
};
OutputTarget CheckOutputTarget(const std::string& output, const std::vector<std::string>& inputs,
                               const std::vector<OwnFile>& ownFiles);

// Writes bytes to a target CheckOutputTarget accepted; every write checked.
// A failure is a SaveError naming output and the system's reason.
void WriteOutput(const std::string& output, const OutputTarget& target, std::string_view bytes);

}  // namespace pw
