#include "core/LineFile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {

namespace fs = std::filesystem;

std::string ReadWholeFile(const std::string& path)
{
    std::error_code ec;
    if (!fs::is_regular_file(path, ec))
        throw RunTimeError(ErrorKind::FileNotFound, path);
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw RunTimeError(ErrorKind::FileNotFound, path);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad())
        throw RunTimeError(ErrorKind::PathFileAccess, path);
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

// The file a save replaces: path, or where its chain of links leads.
std::string SaveTarget(const std::string& path)
{
    std::error_code ec;
    fs::path target = path;
    for (int hops = 0; hops < 40 && fs::is_symlink(target, ec); ++hops) {
        const fs::path link = fs::read_symlink(target, ec);
        if (ec)
            break;
        target = link.is_absolute() ? link : target.parent_path() / link;
    }
    return target.string();
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

void WriteFileAtomic(const std::string& path, std::string_view bytes)
{
    const std::string target = SaveTarget(path);
    const std::string temp = TemporaryNameFor(target, ::getpid());
    struct stat old {};
    const bool existed = ::stat(target.c_str(), &old) == 0;

    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
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
