#include "shell/ProgramFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "analysis/ProfileFile.h"
#include "shell/HelpTopics.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Tips.h"

#ifndef PLATEWELL_DELIVERED_FROM_BIN
#define PLATEWELL_DELIVERED_FROM_BIN "../share/platewell"
#endif

namespace pw {

namespace fs = std::filesystem;

namespace {

bool CanWrite(const std::string& folder) { return !folder.empty() && ::access(folder.c_str(), W_OK) == 0; }

bool IsFolder(const std::string& path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

bool IsFile(const std::string& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

// Records the first problem only: it is the one the user is told.
void Tell(std::string* problem, const std::string& text)
{
    if (problem && problem->empty())
        *problem = text;
}

// Copies one file over target unless target already holds the same bytes.
// The copy goes through a temporary file, so a reader never meets half a
// file.
bool CopyWhenDifferent(const std::string& source, const std::string& target, std::string* problem)
{
    try {
        const std::string bytes = ReadWholeFile(source, kDataFileLimit);
        if (IsFile(target) && ReadWholeFile(target, kDataFileLimit) == bytes)
            return true;
        WriteFileAtomic(target, bytes);
        return true;
    } catch (const SaveError& error) {
        Tell(problem, error.Path() + kCrLf + kCrLf + error.Reason());
    } catch (const RunTimeError& error) {
        Tell(problem, error.what());
    }
    return false;
}

// Every regular file under source, at the same place under target.
bool CopyFolderWhenDifferent(const std::string& source, const std::string& target, std::string* problem)
{
    bool ok = true;
    std::error_code error;
    fs::recursive_directory_iterator it(source, error), end;
    for (; !error && it != end; it.increment(error)) {
        const fs::path relative = it->path().lexically_relative(source);
        const fs::path to = fs::path(target) / relative;
        std::error_code kind;
        if (it->is_directory(kind)) {
            fs::create_directories(to, kind);
            if (kind)
                Tell(problem, to.string() + kCrLf + kCrLf + kind.message());
            ok = ok && !kind;
        } else if (it->is_regular_file(kind)) {
            fs::create_directories(to.parent_path(), kind);
            if (kind)
                Tell(problem, to.parent_path().string() + kCrLf + kCrLf + kind.message());
            ok = !kind && CopyWhenDifferent(it->path().string(), to.string(), problem) && ok;
        }
    }
    return ok && !error;
}

std::string DataHome()
{
    const char* xdg = std::getenv("XDG_DATA_HOME");
    if (xdg && xdg[0] == '/')
        return xdg;
    const char* home = std::getenv("HOME");
    std::string folder = home && home[0] == '/' ? home : "";
    if (folder.empty())
        if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir && entry->pw_dir[0] == '/')
            folder = entry->pw_dir;
    return folder.empty() ? std::string() : JoinPath(folder, ".local/share");
}

}  // namespace

bool SeedProgramFolder(const std::string& source, const std::string& folder, std::string* problem)
{
    bool ok = true;
    for (const char* name : kSeededOnce) {
        const std::string from = JoinPath(source, name);
        if (IsFile(from) && FindFileNoCase(folder, name).empty())
            ok = CopyWhenDifferent(from, JoinPath(folder, name), problem) && ok;
    }
    for (const char* name : kKeptCurrent) {
        const std::string from = JoinPath(source, name);
        if (IsFile(from))
            ok = CopyWhenDifferent(from, JoinPath(folder, name), problem) && ok;
        else if (IsFolder(from))
            ok = CopyFolderWhenDifferent(from, JoinPath(folder, name), problem) && ok;
    }
    return ok;
}

std::string ChooseProgramFolder(const ProgramFolderPlaces& places, std::string* problem)
{
    const bool installed = !places.deliveredFolder.empty();
    if (!installed && CanWrite(places.executableFolder))
        return places.executableFolder;
    if (places.dataHome.empty()) {
        Tell(problem, std::string("(no home folder is known: HOME and XDG_DATA_HOME are not set)"));
        return places.executableFolder;
    }
    const std::string folder = JoinPath(places.dataHome, kUserFolderName);
    std::error_code error;
    fs::create_directories(folder, error);
    if (error || !IsFolder(folder) || !CanWrite(folder)) {
        const std::string reason =
            error ? error.message() : !IsFolder(folder) ? std::strerror(ENOTDIR) : std::strerror(EACCES);
        Tell(problem, folder + kCrLf + kCrLf + reason);
        return places.executableFolder;
    }
    // The run script's own copy of the program lives in this folder too:
    // never seed a folder from itself.
    const std::string source = installed ? places.deliveredFolder : places.executableFolder;
    // A help page that could not be brought up to date leaves the older one;
    // a database that could not be copied leaves a folder the program
    // cannot start from.
    std::string seedProblem;
    if (!fs::equivalent(source, folder, error) && !SeedProgramFolder(source, folder, &seedProblem) &&
        FindFileNoCase(folder, "data.dat").empty()) {
        Tell(problem, seedProblem);
        return places.executableFolder;
    }
    return folder;
}

ProgramFolderPlaces ProgramFolderPlacesFor(const std::string& executableFolder)
{
    ProgramFolderPlaces places;
    places.executableFolder = executableFolder;
    const fs::path delivered = (fs::path(executableFolder) / PLATEWELL_DELIVERED_FROM_BIN).lexically_normal();
    // The installed layout is recognised by its delivered database.
    if (!executableFolder.empty() && IsFile((delivered / "data.dat").string()))
        places.deliveredFolder = delivered.string();
    places.dataHome = DataHome();
    return places;
}

std::string ProgramFolder(const std::string& executableFolder, std::string* problem)
{
    return ChooseProgramFolder(ProgramFolderPlacesFor(executableFolder), problem);
}

std::string ProgramFolderToRead(const std::string& executableFolder)
{
    const ProgramFolderPlaces places = ProgramFolderPlacesFor(executableFolder);
    const bool installed = !places.deliveredFolder.empty();
    if (!installed && CanWrite(places.executableFolder))
        return places.executableFolder;
    if (!places.dataHome.empty()) {
        const std::string folder = JoinPath(places.dataHome, kUserFolderName);
        if (!FindFileNoCase(folder, "data.dat").empty())
            return folder;
    }
    return installed ? places.deliveredFolder : places.executableFolder;
}

std::vector<OwnFile> ProgramOwnFiles(const std::vector<std::string>& folders)
{
    std::vector<OwnFile> own;
    for (const std::string& folder : folders)
        for (const char* name : {kDataFileName, kSettingsFileName, kDefaultProfileName, kTipsFileName, kHelpFileName,
                                 kLockFileName})
            own.push_back({folder, name});
    return own;
}

}  // namespace pw
