#pragma once
// Files are read and written whole. Lines end with CR LF; a reader also ends
// a line at a lone CR or LF, so files edited elsewhere still read.
#include <string>
#include <string_view>
#include <vector>

namespace pw {

// The whole file as bytes. A file that cannot be opened is a FileNotFound
// run-time error; a read failure a PathFileAccess one.
std::string ReadWholeFile(const std::string& path);

// Splits bytes into lines: CR LF, CR or (for files edited elsewhere) LF end a
// line; a last line without an ending still counts; no bytes give no lines.
std::vector<std::string> SplitLines(std::string_view bytes);

// Joins lines, each followed by CR LF.
std::string LinesToBytes(const std::vector<std::string>& lines);

// Writes bytes to a temporary file beside path and renames it over path, so
// a failed write leaves the old file whole. A symbolic link is followed (its
// target is replaced, the link stays), the replaced file's permission bits
// are kept, and the folder is flushed after the rename. A failure is a
// SaveError naming the file and the system's reason.
void WriteFileAtomic(const std::string& path, std::string_view bytes);

// The temporary name WriteFileAtomic writes beside path: path + ".tmp" + pid.
std::string TemporaryNameFor(const std::string& path, long pid);

// Removes from folder the temporary files an interrupted save of one of
// names left behind (name + ".tmp" + digits, names compared without case);
// returns how many were removed.
int RemoveStaleTemporaries(const std::string& folder, const std::vector<std::string>& names);

// The path of the file in folder whose name equals name when both are
// lower-cased (an exact match preferred), or "" when there is none. File names
// were not case-sensitive where the program's files come from.
std::string FindFileNoCase(const std::string& folder, const std::string& name);

// folder + "/" + name.
std::string JoinPath(const std::string& folder, const std::string& name);

// Removes a file; a missing file is not an error.
void DeleteFileIfExists(const std::string& path);

}  // namespace pw
