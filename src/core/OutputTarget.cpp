#include "core/OutputTarget.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {

namespace fs = std::filesystem;

namespace {

bool SameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

bool StatOf(const std::string& path, struct stat& info) { return ::stat(path.c_str(), &info) == 0; }

std::string FolderOf(const std::string& path)
{
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? std::string(".") : folder;
}

// Whether path names one of the program's files by its folder and name.
const OwnFile* OwnFileNamed(const std::string& path, const std::vector<OwnFile>& ownFiles)
{
    struct stat folder {};
    if (!StatOf(FolderOf(path), folder))
        return nullptr;
    const std::string name = LowerLatin1(fs::path(path).filename().string());
    for (const OwnFile& own : ownFiles) {
        struct stat ownFolder {};
        if (LowerLatin1(own.name) == name && StatOf(own.folder, ownFolder) && SameFile(folder, ownFolder))
            return &own;
    }
    return nullptr;
}

}  // namespace

OutputTarget CheckOutputTarget(const std::string& output, const std::vector<std::string>& inputs,
                               const std::vector<OwnFile>& ownFiles)
{
    OutputTarget target;
    if (output.empty()) {
        target.reason = "has no name";
        return target;
    }
    if (const OwnFile* own = OwnFileNamed(output, ownFiles)) {
        target.reason = "is Platewell's own file " + own->name;
        return target;
    }
    struct stat info {};
    if (!StatOf(output, info)) {
        target.kind = OutputTarget::Kind::NewOrRegularFile;
        return target;
    }
    for (const std::string& input : inputs) {
        struct stat in {};
        if (StatOf(input, in) && SameFile(info, in)) {
            target.reason = "is the file the report is made from";
            return target;
        }
    }
    for (const OwnFile& own : ownFiles) {
        struct stat ownInfo {};
        const std::string path = FindFileNoCase(own.folder, own.name);
        if (!path.empty() && StatOf(path, ownInfo) && SameFile(info, ownInfo)) {
            target.reason = "is Platewell's own file " + own.name;
            return target;
        }
    }
    if (S_ISDIR(info.st_mode)) {
        target.reason = "is a folder";
        return target;
    }
    target.kind = S_ISREG(info.st_mode) ? OutputTarget::Kind::NewOrRegularFile : OutputTarget::Kind::InPlace;
    return target;
}

void WriteOutput(const std::string& output, const OutputTarget& target, std::string_view bytes)
{
    if (target.kind == OutputTarget::Kind::Refused)
        throw SaveError(output, target.reason);
    if (target.kind == OutputTarget::Kind::NewOrRegularFile) {
        WriteFileAtomic(output, bytes);
        return;
    }
    // Never created here: the thing by that name already exists, and a
    // regular file that appeared meanwhile is not written through.
    const int fd = ::open(output.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        throw SaveError(output, std::strerror(errno));
    struct stat info {};
    if (::fstat(fd, &info) != 0 || S_ISREG(info.st_mode) || S_ISDIR(info.st_mode)) {
        ::close(fd);
        throw SaveError(output, "it changed while the report was made");
    }
    try {
        WriteInPlace(fd, output, bytes);
    } catch (...) {
        ::close(fd);
        throw;
    }
    if (::close(fd) != 0 && errno != EINTR)
        throw SaveError(output, std::strerror(errno));
}

}  // namespace pw
