#include <gtest/gtest.h>

#include <filesystem>

#include "TempFolder.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"

namespace pw {
namespace {

using Lines = std::vector<std::string>;

TEST(LineFile, SplitLinesEndsLinesAtCrLfCrOrLf)
{
    const struct {
        std::string bytes;
        Lines lines;
    } cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\n", {"a"}},
        {"a\r\nb", {"a", "b"}},
        {"a\r\n\r\nb\r\n", {"a", "", "b"}},
        {"a\rb\nc", {"a", "b", "c"}},
        {"\r\n", {""}},
        {std::string("x\0y\r\n", 5), {std::string("x\0y", 3)}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SplitLines(c.bytes), c.lines);
    EXPECT_EQ(LinesToBytes({"a", "", "b"}), "a\r\n\r\nb\r\n");
}

TEST(LineFile, AtomicWriteReplacesWholeOrNotAtAllAndKeepsWhatTheFileWas)
{
    namespace fs = std::filesystem;
    test::TempFolder folder;
    const std::string path = folder.File("x.txt");
    WriteFileAtomic(path, "first");
    WriteFileAtomic(path, "second\r\n");
    EXPECT_EQ(ReadWholeFile(path, 64), "second\r\n");

    // A failed write (here: the target is a folder) leaves what was there
    // and no temporary file behind.
    fs::create_directory(folder.File("sub"));
    folder.Write("sub/keep", "kept");
    EXPECT_THROW(WriteFileAtomic(folder.File("sub"), "new"), RunTimeError);
    EXPECT_EQ(folder.Read("sub/keep"), "kept");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 2);  // x.txt and sub

    EXPECT_THROW(ReadWholeFile(folder.File("none"), 64), RunTimeError);

    // Permission bits and links kept: the end-to-end saves_keep_file.

    // A failure names the file and the system's reason.
    try {
        WriteFileAtomic(folder.File("missing/x.pwl"), "y");
        ADD_FAILURE();
    } catch (const SaveError& error) {
        EXPECT_EQ(error.Path(), folder.File("missing/x.pwl"));
        EXPECT_EQ(error.Reason(), "No such file or directory");
    }
}

TEST(LineFile, OnlyTheProgramsOwnTemporariesAreRemoved)
{
    test::TempFolder folder;
    const char* left[] = {"data.dat.tmp123", "PW.INI.tmp7", "default.pwp.tmp99999"};
    const char* kept[] = {"data.dat", "data.dat.tmp", "data.dat.tmp12a", "other.pwl.tmp12", "notes.tmp5"};
    for (const char* name : left)
        folder.Write(name, "x");
    for (const char* name : kept)
        folder.Write(name, "x");
    EXPECT_EQ(RemoveStaleTemporaries(folder.Path(), {"data.dat", "pw.ini", "default.pwp"}), 3);
    for (const char* name : left)
        EXPECT_FALSE(std::filesystem::exists(folder.File(name))) << name;
    for (const char* name : kept)
        EXPECT_TRUE(std::filesystem::exists(folder.File(name))) << name;
}

TEST(LineFile, FindsFilesWhateverTheirCase)
{
    test::TempFolder folder;
    EXPECT_EQ(FindFileNoCase(folder.Path(), "pw.ini"), "");
    folder.Write("PW.INI", "x");
    EXPECT_EQ(FindFileNoCase(folder.Path(), "pw.ini"), folder.File("PW.INI"));
    folder.Write("pw.ini", "y");
    EXPECT_EQ(FindFileNoCase(folder.Path(), "pw.ini"), folder.File("pw.ini"));
    std::filesystem::create_directory(folder.File("Data.Dat"));
    EXPECT_EQ(FindFileNoCase(folder.Path(), "data.dat"), "");  // a folder is not the file
}

}  // namespace
}  // namespace pw
