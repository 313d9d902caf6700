#include "core/LineFile.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {

namespace fs = std::filesystem;

FileTooLarge::FileTooLarge(const std::string& path, std::size_t limit)
    : RunTimeError(ErrorKind::PathFileAccess,
                   path + " is larger than " + std::to_string(limit / 1024) + " KB, more than the file can be")
{
}

std::string ReadWholeFile(const std::string& path, std::size_t limit)
{
    // Opened without waiting for a writer (a pipe), then refused unless it is
    // a regular file, so a device or a pipe is never read.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0)
        throw RunTimeError(ErrorKind::FileNotFound, path);
    struct Closer {
        int fd;
        ~Closer() { ::close(fd); }
    } closer{fd};
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))
        throw RunTimeError(ErrorKind::FileNotFound, path);
    if (info.st_size < 0 || static_cast<unsigned long long>(info.st_size) > limit)
        throw FileTooLarge(path, limit);
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags >= 0)
        ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);
    // The file may grow while it is read: never more than limit + 1 bytes.
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t got = 0;
    for (;;) {
        if (got == bytes.size()) {
            if (bytes.size() > limit)
                throw FileTooLarge(path, limit);
            bytes.resize(std::min(limit + 1, bytes.size() + 4096));
        }
        const ssize_t n = ::read(fd, bytes.data() + got, bytes.size() - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            throw RunTimeError(ErrorKind::PathFileAccess, path);
        if (n == 0)
            break;
        got += static_cast<std::size_t>(n);
    }
    if (got > limit)
        throw FileTooLarge(path, limit);
    bytes.resize(got);
    return bytes;
}

std::vector<std::string> SplitLines(std::string_view bytes)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    std::size_t i = 0;
    while (i < bytes.size()) {
        char c = bytes[i];
        if (c == '\r' || c == '\n') {
            lines.emplace_back(bytes.substr(start, i - start));
            if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
                ++i;
            ++i;
            start = i;
        } else {
            ++i;
        }
    }
    if (start < bytes.size())
        lines.emplace_back(bytes.substr(start));
    return lines;
}

std::string LinesToBytes(const std::vector<std::string>& lines)
{
    std::string out;
    std::size_t size = 0;
    for (const auto& line : lines)
        size += line.size() + 2;
    out.reserve(size);
    for (const auto& line : lines) {
        out += line;
        out += kCrLf;
    }
    return out;
}

std::string TemporaryNameFor(const std::string& path, long pid) { return path + ".tmp" + std::to_string(pid); }

namespace {

// The file a save replaces: path, or where its chain of links leads. A link
// the system would not follow for this user is refused with the reason.
std::string SaveTarget(const std::string& path)
{
    std::error_code ec;
    fs::path target = path;
    for (int hops = 0; hops < 40 && fs::is_symlink(target, ec); ++hops) {
        std::string folder = target.parent_path().string();
        if (folder.empty())
            folder = ".";
        struct stat link {}, holder {};
        if (::lstat(target.c_str(), &link) == 0 && ::stat(folder.c_str(), &holder) == 0 &&
            !LinkMayBeFollowed({link.st_uid, holder.st_uid, holder.st_mode}, ::geteuid()))
            throw SaveError(path, "it is a link that another user made in the shared folder " + folder);
        const fs::path next = fs::read_symlink(target, ec);
        if (ec)
            break;
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

bool ProcessGone(long pid)
{
    return pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

// The temporaries that earlier saves of target left behind (target.tmpPID)
// whose writer has ended: an interrupted save's remains.
void RemoveTemporariesOfGoneWriters(const std::string& target)
{
    const fs::path file(target);
    const std::string stem = file.filename().string() + ".tmp";
    fs::path folder = file.parent_path();
    if (folder.empty())
        folder = ".";
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() <= stem.size() || name.compare(0, stem.size(), stem) != 0 || name.size() - stem.size() > 9 ||
            name.find_first_not_of("0123456789", stem.size()) != std::string::npos)
            continue;
        std::error_code kind;
        if (it->is_regular_file(kind) && ProcessGone(std::stol(name.substr(stem.size()))))
            fs::remove(it->path(), kind);
    }
}

void FlushFolder(const std::string& file)
{
    std::string folder = fs::path(file).parent_path().string();
    if (folder.empty())
        folder = ".";
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

}  // namespace

bool LinkMayBeFollowed(const LinkOwnership& link, unsigned saver)
{
    const bool shared = (link.folderMode & S_ISVTX) && (link.folderMode & S_IWOTH);
    return !shared || link.linkOwner == saver || link.linkOwner == link.folderOwner;
}

void WriteInPlace(int fd, const std::string& name, std::string_view bytes)
{
    const char* data = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, left);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            throw SaveError(name, std::strerror(errno));
        if (n == 0)
            throw SaveError(name, std::strerror(ENOSPC));
        data += n;
        left -= static_cast<std::size_t>(n);
    }
}

void WriteFileAtomic(const std::string& path, std::string_view bytes)
{
    const std::string target = SaveTarget(path);
    RemoveTemporariesOfGoneWriters(target);
    const std::string temp = TemporaryNameFor(target, ::getpid());
    struct stat old {};
    const bool existed = ::stat(target.c_str(), &old) == 0;

    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (fd < 0)
        throw SaveError(path, std::strerror(errno));
    int failure = 0;
    if (existed && ::fchmod(fd, old.st_mode & 07777) != 0)
        failure = errno;
    const char* data = bytes.data();
    std::size_t left = bytes.size();
    while (!failure && left > 0) {
        const ssize_t n = ::write(fd, data, left);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            failure = errno;
        } else {
            data += n;
            left -= static_cast<std::size_t>(n);
        }
    }
    if (!failure && ::fsync(fd) != 0)
        failure = errno;
    if (::close(fd) != 0 && !failure)
        failure = errno;
    if (!failure && std::rename(temp.c_str(), target.c_str()) != 0)
        failure = errno;
    if (failure) {
        ::unlink(temp.c_str());
        throw SaveError(path, std::strerror(failure));
    }
    FlushFolder(target);
}

int RemoveStaleTemporaries(const std::string& folder, const std::vector<std::string>& names)
{
    std::error_code ec;
    int removed = 0;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string file = LowerLatin1(it->path().filename().string());
        for (const auto& name : names) {
            const std::string stem = LowerLatin1(name) + ".tmp";
            if (file.size() > stem.size() && file.compare(0, stem.size(), stem) == 0 &&
                file.find_first_not_of("0123456789", stem.size()) == std::string::npos) {
                std::error_code removeError;
                if (fs::remove(it->path(), removeError))
                    ++removed;
                break;
            }
        }
    }
    return removed;
}

std::string FindFileNoCase(const std::string& folder, const std::string& name)
{
    std::error_code ec;
    const fs::path exact = fs::path(folder) / name;
    if (fs::is_regular_file(exact, ec))
        return exact.string();
    const std::string wanted = LowerLatin1(name);
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (LowerLatin1(it->path().filename().string()) == wanted && it->is_regular_file(ec))
            return it->path().string();
    }
    return {};
}

std::string JoinPath(const std::string& folder, const std::string& name)
{
    return (fs::path(folder) / name).string();
}

void DeleteFileIfExists(const std::string& path)
{
    std::error_code ec;
    fs::remove(path, ec);
}

}  // namespace pw
