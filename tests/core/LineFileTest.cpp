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

TEST(LineFile, AtomicWriteReplacesWholeOrNotAtAll)
{
    test::TempFolder folder;
    const std::string path = folder.File("x.txt");
    WriteFileAtomic(path, "first");
    WriteFileAtomic(path, "second\r\n");
    EXPECT_EQ(ReadWholeFile(path), "second\r\n");

    // A failed write (here: the target is a folder) leaves what was there
    // and no temporary file behind.
    std::filesystem::create_directory(folder.File("sub"));
    folder.Write("sub/keep", "kept");
    EXPECT_THROW(WriteFileAtomic(folder.File("sub"), "new"), RunTimeError);
    EXPECT_EQ(folder.Read("sub/keep"), "kept");
    using std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(directory_iterator(folder.Path()), directory_iterator()), 2);  // x.txt and sub

    EXPECT_THROW(WriteFileAtomic(folder.File("missing/x"), "y"), RunTimeError);
    EXPECT_THROW(ReadWholeFile(folder.File("none")), RunTimeError);
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
