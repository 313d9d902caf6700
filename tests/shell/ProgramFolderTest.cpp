#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>

#include "TempFolder.h"
#include "shell/ProgramFolder.h"

namespace pw {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

void WriteFiles(const std::string& folder, const Files& files)
{
    for (const auto& [name, bytes] : files) {
        fs::create_directories((fs::path(folder) / name).parent_path());
        WriteFileAtomic(JoinPath(folder, name), bytes);
    }
}

// Every file under folder by its relative path; none when it does not exist.
Files ReadFiles(const std::string& folder)
{
    Files files;
    std::error_code error;
    for (fs::recursive_directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (it->is_regular_file())
            files[it->path().lexically_relative(folder).string()] = ReadWholeFile(it->path().string(), std::size_t(1) << 30);
    return files;
}

const Files kDelivered = {
    {"data.dat", "delivered database"}, {"tips.txt", "tips"}, {"pw.hlp", "help 2"}, {"help/plate.png", "picture 2"}};

TEST(ProgramFolder, ChosenAndSeededByWhereTheProgramRuns)
{
    struct Case {
        const char* name;
        bool installed;
        Files before;  // in the per-user folder
        enum { Executable, User, UnusableHome, NoHome } where;
        Files after;   // in the per-user folder
    };
    const Case cases[] = {
        {"a build folder keeps its files", false, {}, Case::Executable, {}},
        {"the first start seeds every delivered file", true, {}, Case::User, kDelivered},
        {"the user's files stay, the help is brought up to date",
         true,
         {{"data.dat", "my foods"}, {"pw.ini", "settings"}, {"pw.hlp", "help 1"}, {"help/plate.png", "picture 1"},
          {"help/mine.png", "own"}},
         Case::User,
         {{"data.dat", "my foods"}, {"pw.ini", "settings"}, {"tips.txt", "tips"}, {"pw.hlp", "help 2"},
          {"help/plate.png", "picture 2"}, {"help/mine.png", "own"}}},
        {"a database spelt otherwise is the user's database",
         true,
         {{"DATA.DAT", "my foods"}, {"Tips.txt", "my tips"}},
         Case::User,
         {{"DATA.DAT", "my foods"}, {"Tips.txt", "my tips"}, {"pw.hlp", "help 2"}, {"help/plate.png", "picture 2"}}},
        {"a data home that is a file", true, {}, Case::UnusableHome, {}},
        {"no data home", true, {}, Case::NoHome, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        test::TempFolder root;
        const std::string bin = root.File("bin"), delivered = root.File("share/platewell"),
                          home = root.File("home"), user = JoinPath(home, kUserFolderName);
        fs::create_directories(bin);
        WriteFiles(delivered, kDelivered);
        WriteFiles(user, c.before);
        ProgramFolderPlaces places{bin, c.installed ? delivered : "", home};
        if (c.where == Case::UnusableHome) {
            places.dataHome = root.File("file");
            root.Write("file", "");
        } else if (c.where == Case::NoHome) {
            places.dataHome.clear();
        }

        std::string problem;
        const std::string chosen = ChooseProgramFolder(places, &problem);
        EXPECT_EQ(chosen, c.where == Case::User ? user : bin);
        // A per-user folder that cannot be made is named with the reason.
        if (c.where == Case::UnusableHome)
            EXPECT_EQ(problem, JoinPath(places.dataHome, kUserFolderName) + "\r\n\r\nNot a directory");
        else if (c.where == Case::NoHome)
            EXPECT_NE(problem.find("no home folder"), std::string::npos);
        else
            EXPECT_EQ(problem, "");
        EXPECT_EQ(ReadFiles(user), c.after);
        EXPECT_EQ(ReadFiles(delivered), kDelivered);
        EXPECT_TRUE(ReadFiles(bin).empty());
        if (c.where == Case::User) {  // a second start changes nothing
            EXPECT_EQ(ChooseProgramFolder(places), chosen);
            EXPECT_EQ(ReadFiles(user), c.after);
        }
    }
}

TEST(ProgramFolder, PlacesComeFromTheInstalledLayoutAndTheEnvironment)
{
    test::TempFolder root;
    const std::string bin = root.File("usr/bin");
    fs::create_directories(bin);
    const char* saved[] = {std::getenv("XDG_DATA_HOME"), std::getenv("HOME")};
    const std::optional<std::string> xdg = saved[0] ? std::optional<std::string>(saved[0]) : std::nullopt;
    const std::optional<std::string> home = saved[1] ? std::optional<std::string>(saved[1]) : std::nullopt;

    // Not installed: no delivered folder; the data home follows the
    // environment, a relative XDG_DATA_HOME being ignored.
    ::setenv("XDG_DATA_HOME", "/data/home", 1);
    ProgramFolderPlaces places = ProgramFolderPlacesFor(bin);
    EXPECT_EQ(places.executableFolder, bin);
    EXPECT_EQ(places.deliveredFolder, "");
    EXPECT_EQ(places.dataHome, "/data/home");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::setenv("HOME", "/home/ann", 1);
    EXPECT_EQ(ProgramFolderPlacesFor(bin).dataHome, "/home/ann/.local/share");

    // Installed: the delivered database in share/platewell beside bin.
    WriteFiles(root.File("usr/share/platewell"), {{"data.dat", "foods"}});
    EXPECT_EQ(ProgramFolderPlacesFor(bin).deliveredFolder, root.File("usr/share/platewell"));

    xdg ? ::setenv("XDG_DATA_HOME", xdg->c_str(), 1) : ::unsetenv("XDG_DATA_HOME");
    home ? ::setenv("HOME", home->c_str(), 1) : ::unsetenv("HOME");
}

}  // namespace
}  // namespace pw
