#pragma once
// Files are read and written whole. Lines end with CR LF; a reader also ends
// a line at a lone CR or LF, so files edited elsewhere still read.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/RunTimeError.h"

namespace pw {

// The largest file each reader takes. Every one is far above what the
// program itself writes (a list of 500 rows of the longest texts is under
// 200 KB, a profile under 1 KB), so only a file nobody wrote with Platewell
// meets them, and it is refused before it is read.
inline constexpr std::size_t kListFileLimit = 1u << 20;      // .pwl
inline constexpr std::size_t kProfileFileLimit = 64u << 10;  // .pwp, default.pwp
inline constexpr std::size_t kSettingsFileLimit = 64u << 10; // pw.ini
inline constexpr std::size_t kTipsFileLimit = 1u << 20;      // tips.txt
inline constexpr std::size_t kHelpFileLimit = 4u << 20;      // pw.hlp
inline constexpr std::size_t kDataFileLimit = 16u << 20;     // data.dat
inline constexpr std::size_t kPictureFileLimit = 8u << 20;   // a picture of the help

// The whole file as bytes. A file that cannot be opened, or is not a
// regular file (a folder, a device, a pipe), is a FileNotFound run-time
// error; a read failure a PathFileAccess one; a file of more than limit bytes
// a FileTooLarge error, found before it is read.
std::string ReadWholeFile(const std::string& path, std::size_t limit);

// A file larger than its reader takes.
class FileTooLarge : public RunTimeError {
public:
    FileTooLarge(const std::string& path, std::size_t limit);
};

// Splits bytes into lines: CR LF, CR or (for files edited elsewhere) LF end a
// line; a last line without an ending still counts; no bytes give no lines.
std::vector<std::string> SplitLines(std::string_view bytes);

// Joins lines, each followed by CR LF.
std::string LinesToBytes(const std::vector<std::string>& lines);

// Writes bytes to a temporary file beside path and renames it over path, so
// a failed write leaves the old file whole. A symbolic link is followed (its
// target is replaced, the link stays) where the system would follow it (see
// LinkMayBeFollowed), the replaced file's permission bits are kept, and the
// folder is flushed after the rename. Temporaries of earlier saves of the
// same file whose writer is gone are removed first. A failure is a SaveError
// naming the file and the system's reason.
void WriteFileAtomic(const std::string& path, std::string_view bytes);

// Whether a save may follow a symbolic link: not a link in a folder that
// everybody may write and that keeps its files to their owners (the sticky
// bit, as /tmp), when the link belongs to neither the saver nor the folder's
// owner: such a link may have been planted by another user.
struct LinkOwnership {
    unsigned linkOwner = 0;
    unsigned folderOwner = 0;
    unsigned folderMode = 0;  // st_mode of the folder holding the link
};
bool LinkMayBeFollowed(const LinkOwnership& link, unsigned saver);

// Writes bytes to an output that is not a regular file (a terminal, a pipe, a
// device) in place, every byte checked: a short or failed write is a
// SaveError naming it and the system's reason.
void WriteInPlace(int fd, const std::string& name, std::string_view bytes);

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
