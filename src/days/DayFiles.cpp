#include "days/DayFiles.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
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

constexpr const char* kNotARegularFile = "not a regular file";

bool IsListFileName(const std::string& name)
{
    return name.size() > 4 && LowerLatin1(name.substr(name.size() - 4)) == ".pwl";
}

DaySerial ModifiedDate(const std::string& path)
{
    std::error_code ec;
    const fs::file_time_type written = fs::last_write_time(path, ec);
    if (ec)
        return 0;
    const auto system = std::chrono::file_clock::to_sys(written);
    const std::time_t seconds = std::chrono::system_clock::to_time_t(
        std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
    std::tm local{};
    if (localtime_r(&seconds, &local) == nullptr)
        return 0;
    const std::chrono::year_month_day date{std::chrono::year(local.tm_year + 1900),
                                           std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                                           std::chrono::day(static_cast<unsigned>(local.tm_mday))};
    return static_cast<DaySerial>(std::chrono::sys_days(date).time_since_epoch().count());
}

}  // namespace

std::vector<std::string> ListFilesInFolder(const std::string& folder)
{
    std::vector<std::string> files;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError) && IsListFileName(it->path().filename().string()))
            files.push_back(it->path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> ExpandDayPaths(const std::vector<std::string>& paths)
{
    std::vector<std::string> expanded;
    for (const std::string& path : paths) {
        std::error_code ec;
        if (fs::is_directory(path, ec)) {
            const std::vector<std::string> files = ListFilesInFolder(path);
            expanded.insert(expanded.end(), files.begin(), files.end());
        } else {
            expanded.push_back(path);
        }
    }
    return expanded;
}

std::string UnreadableReason(const std::string& path)
{
    // Opened without waiting, so a pipe given by mistake does not hold the
    // reading up.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return std::strerror(errno);
    struct stat status {};
    const bool stated = ::fstat(fd, &status) == 0;
    const int error = errno;
    ::close(fd);
    if (!stated)
        return std::strerror(error);
    if (S_ISDIR(status.st_mode))
        return std::strerror(EISDIR);
    if (!S_ISREG(status.st_mode))
        return kNotARegularFile;
    return {};
}

DayFileInput ReadDayFile(const std::string& path)
{
    DayFileInput input;
    input.path = path;
    input.name = fs::path(path).filename().string();
    if (const auto date = DateFromName(input.name)) {
        input.date = *date;
    } else {
        input.date = ModifiedDate(path);
        input.dateFromModified = true;
    }
    input.failure = UnreadableReason(path);
    if (input.failure.empty()) {
        try {
            input.bytes = ReadWholeFile(path, kListFileLimit);
        } catch (const RunTimeError& error) {
            input.failure = error.Name();
        }
    }
    return input;
}

Period ReadPeriod(const std::vector<std::string>& paths, const FoodTable& table, int currentYear)
{
    std::vector<DayFileInput> inputs;
    for (const std::string& path : ExpandDayPaths(paths))
        inputs.push_back(ReadDayFile(path));
    return BuildPeriod(std::move(inputs), table, currentYear);
}

}  // namespace pw
