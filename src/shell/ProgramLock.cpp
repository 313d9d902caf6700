#include "shell/ProgramLock.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/LineFile.h"
#include "core/Text.h"
#include "shell/Session.h"

namespace pw {

namespace {

constexpr const char* kMarker = "PLATEWELL LOCK";

std::string ReadSmall(int fd)
{
    std::string bytes(512, '\0');
    const ssize_t n = ::pread(fd, bytes.data(), bytes.size(), 0);
    bytes.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    return bytes;
}

// The computer a lock file names, or "" for a file that is not one of ours
// (empty, or left by an older program).
std::string HostOfLock(const std::string& bytes)
{
    const std::vector<std::string> lines = SplitLines(bytes);
    if (lines.size() < 3 || lines[0] != kMarker)
        return {};
    return lines[2];
}

bool SameInode(int fd, const std::string& path)
{
    struct stat open {}, named {};
    return ::fstat(fd, &open) == 0 && ::stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

std::string RuntimeFolder()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    std::error_code ec;
    if (runtime && runtime[0] == '/' && std::filesystem::is_directory(runtime, ec))
        return runtime;
    return "/tmp";
}

}  // namespace

ProgramLock::~ProgramLock() { Release(); }

std::string ProgramLock::HostName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return "localhost";
    return name;
}

std::string ProgramLock::FallbackPath(const std::string& runtimeFolder, const std::string& folder)
{
    std::error_code ec;
    std::string key = std::filesystem::weakly_canonical(folder, ec).string();
    if (ec || key.empty())
        key = folder;
    std::uint64_t hash = 1469598103934665603ull;  // FNV-1a
    for (unsigned char c : key)
        hash = (hash ^ c) * 1099511628211ull;
    static const char* const kHex = "0123456789abcdef";
    std::string hex;
    for (int shift = 60; shift >= 0; shift -= 4)
        hex += kHex[(hash >> shift) & 0xF];
    return JoinPath(runtimeFolder, "platewell-" + std::to_string(::geteuid()) + "-" + hex + ".lock");
}

LockOutcome ProgramLock::TakeAt(const std::string& path, bool takeForeign)
{
    LockOutcome outcome;
    outcome.path = path;
    // A holder that is ending removes the file it locked: lock again until
    // the file locked is the one by that name.
    for (int attempt = 0; attempt < 20; ++attempt) {
        const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY, 0644);
        if (fd < 0) {
            outcome.reason = std::strerror(errno);
            return outcome;
        }
        struct stat info {};
        if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
            ::close(fd);
            outcome.reason = "it is not a regular file";
            return outcome;
        }
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(fd);
            if (error == EWOULDBLOCK) {
                outcome.kind = LockOutcome::Kind::HeldHere;
                return outcome;
            }
            outcome.reason = std::strerror(error);
            return outcome;
        }
        if (!SameInode(fd, path)) {
            ::close(fd);
            continue;
        }
        const std::string host = HostOfLock(ReadSmall(fd));
        if (!host.empty() && host != HostName() && !takeForeign) {
            ::close(fd);
            outcome.kind = LockOutcome::Kind::HeldOnHost;
            outcome.host = host;
            return outcome;
        }
        // Who holds it, for a later start on this or another computer. The
        // lock holds even when this cannot be written (a full disk).
        const std::string record =
            std::string(kMarker) + kCrLf + std::to_string(::getpid()) + kCrLf + HostName() + kCrLf;
        if (::ftruncate(fd, 0) == 0 && ::pwrite(fd, record.data(), record.size(), 0) > 0)
            ::fsync(fd);
        fd_ = fd;
        path_ = path;
        outcome.kind = LockOutcome::Kind::Taken;
        return outcome;
    }
    outcome.reason = "the lock file keeps changing";
    return outcome;
}

LockOutcome ProgramLock::Take(const std::string& folder, bool takeForeign)
{
    Release();
    const LockOutcome own = TakeAt(JoinPath(folder, kLockFileName), takeForeign);
    if (own.kind != LockOutcome::Kind::Failed)
        return own;
    // A folder that cannot hold pw.lock is still locked, where the user can
    // always write.
    LockOutcome fallback = TakeAt(FallbackPath(RuntimeFolder(), folder), takeForeign);
    if (fallback.kind == LockOutcome::Kind::Failed)
        return own;
    return fallback;
}

void ProgramLock::Release()
{
    if (fd_ < 0)
        return;
    ::unlink(path_.c_str());
    ::close(fd_);
    fd_ = -1;
    path_.clear();
}

}  // namespace pw
