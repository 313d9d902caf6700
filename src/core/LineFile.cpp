#include "core/LineFile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>
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

void WriteFileAtomic(const std::string& path, std::string_view bytes)
{
    const std::string temp = path + ".tmp" + std::to_string(::getpid());
    std::FILE* f = std::fopen(temp.c_str(), "wb");
    if (!f)
        throw RunTimeError(ErrorKind::PathFileAccess, path);
    bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    ok = std::fflush(f) == 0 && ok;
    ok = ::fsync(::fileno(f)) == 0 && ok;
    ok = std::fclose(f) == 0 && ok;
    if (!ok || std::rename(temp.c_str(), path.c_str()) != 0) {
        std::remove(temp.c_str());
        throw RunTimeError(ErrorKind::PathFileAccess, path);
    }
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
