// What a file, a name or a link from someone else can do to the program's
// reading and writing: bounded reads, links, outputs, terminal text.
#include <gtest/gtest.h>

#include <filesystem>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "TempFolder.h"
#include "core/LineFile.h"
#include "core/OutputTarget.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {
namespace {

namespace fs = std::filesystem;

enum class Read { Bytes, TooLarge, NotAFile };

TEST(HostileFiles, ReadersTakeRegularFilesUpToTheirLimitOnly)
{
    test::TempFolder folder;
    folder.Write("at-limit", std::string(64, 'x'));
    folder.Write("over-limit", std::string(65, 'x'));
    folder.Write("empty", "");
    fs::create_directory(folder.File("folder"));
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    // A sparse file of 100 MB: refused by its size, never read.
    {
        const int fd = ::open(folder.File("sparse").c_str(), O_WRONLY | O_CREAT, 0600);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(::ftruncate(fd, 100 << 20), 0);
        ::close(fd);
    }
    const struct {
        const char* name;
        Read expected;
    } cases[] = {
        {"at-limit", Read::Bytes}, {"empty", Read::Bytes},    {"over-limit", Read::TooLarge},
        {"sparse", Read::TooLarge}, {"folder", Read::NotAFile}, {"pipe", Read::NotAFile},
        {"missing", Read::NotAFile},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Read got = Read::Bytes;
        try {
            EXPECT_LE(ReadWholeFile(folder.File(c.name), 64).size(), 64u);
        } catch (const FileTooLarge& error) {
            got = Read::TooLarge;
            EXPECT_NE(std::string(error.what()).find(folder.File(c.name)), std::string::npos);
        } catch (const RunTimeError& error) {
            got = error.Kind() == ErrorKind::FileNotFound ? Read::NotAFile : Read::Bytes;
        }
        EXPECT_EQ(got, c.expected);
    }
}

TEST(HostileFiles, LinksAreFollowedAsTheSystemWouldFollowThem)
{
    const unsigned sticky = S_IFDIR | S_ISVTX | 0777, shared = S_IFDIR | 0777, own = S_IFDIR | 0755;
    const struct {
        LinkOwnership link;
        unsigned saver;
        bool followed;
    } cases[] = {
        {{1000, 0, own}, 2000, true},      // an ordinary folder: any link
        {{1000, 0, shared}, 2000, true},   // writable by all but not sticky
        {{1000, 0, sticky}, 2000, false},  // /tmp: another user's link
        {{2000, 0, sticky}, 2000, true},   // /tmp: the saver's own link
        {{1000, 1000, sticky}, 2000, true},  // the folder owner's link
        {{1000, 0, S_IFDIR | S_ISVTX | 0755}, 2000, true},  // sticky, not writable by all
    };
    for (const auto& c : cases)
        EXPECT_EQ(LinkMayBeFollowed(c.link, c.saver), c.followed);

    // The same rule on a real planted link (changing owners takes root).
    if (::geteuid() != 0)
        GTEST_SKIP() << "planting another user's link needs root";
    test::TempFolder folder;
    const std::string shared_folder = folder.File("tmp");
    fs::create_directory(shared_folder);
    ::chmod(shared_folder.c_str(), 01777);
    folder.Write("target", "kept");
    const std::string link = JoinPath(shared_folder, "day.pwl");
    fs::create_symlink(folder.File("target"), link);
    ASSERT_EQ(::lchown(link.c_str(), 4242, 4242), 0);
    try {
        WriteFileAtomic(link, "planted");
        ADD_FAILURE() << "a planted link was followed";
    } catch (const SaveError& error) {
        EXPECT_NE(error.Reason().find("another user"), std::string::npos) << error.Reason();
    }
    EXPECT_EQ(folder.Read("target"), "kept");
    ASSERT_EQ(::lchown(link.c_str(), 0, 0), 0);  // the saver's own link is followed
    WriteFileAtomic(link, "saved");
    EXPECT_EQ(folder.Read("target"), "saved");
}

TEST(HostileFiles, ASaveRemovesTheTemporariesOfWritersThatAreGone)
{
    // A process that has ended: its number names a writer that is gone.
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ASSERT_GT(child, 0);
    ::waitpid(child, nullptr, 0);
    test::TempFolder folder;
    const std::string gone = "day.pwl.tmp" + std::to_string(child);
    const std::string alive = "day.pwl.tmp" + std::to_string(::getppid());
    for (const std::string& name : {gone, alive, std::string("other.pwl.tmp") + std::to_string(child)})
        folder.Write(name, "half");
    WriteFileAtomic(folder.File("day.pwl"), "list");
    EXPECT_FALSE(folder.Exists(gone));
    EXPECT_TRUE(folder.Exists(alive));  // its writer may still be saving
    EXPECT_TRUE(folder.Exists("other.pwl.tmp" + std::to_string(child)));
    EXPECT_EQ(folder.Read("day.pwl"), "list");
}

TEST(HostileFiles, OutputsNeverReplaceTheirInputTheProgramsFilesOrADevice)
{
    test::TempFolder folder;
    const std::string program = folder.File("program");
    fs::create_directory(program);
    folder.Write("day.pwl", "list");
    folder.Write("program/DATA.DAT", "foods");
    fs::create_directory(folder.File("reports"));
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    fs::create_symlink(folder.File("day.pwl"), folder.File("link.pwl"));
    const std::vector<OwnFile> own = {{program, "data.dat"}, {program, "pw.ini"}, {program, "pw.lock"}};
    using K = OutputTarget::Kind;
    const struct {
        std::string output;
        K kind;
        const char* reason;
    } cases[] = {
        {folder.File("day.csv"), K::NewOrRegularFile, ""},
        {folder.File("day.pwl"), K::Refused, "is the file the report is made from"},
        {folder.File("link.pwl"), K::Refused, "is the file the report is made from"},
        {JoinPath(program, "data.dat"), K::Refused, "is Platewell's own file data.dat"},
        {JoinPath(program, "../program/Pw.Ini"), K::Refused, "is Platewell's own file pw.ini"},  // not there yet
        {JoinPath(program, "pw.lock"), K::Refused, "is Platewell's own file pw.lock"},
        {JoinPath(program, "report.pdf"), K::NewOrRegularFile, ""},
        {folder.File("reports"), K::Refused, "is a folder"},
        {folder.File("pipe"), K::InPlace, ""},
        {"", K::Refused, "has no name"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.output);
        const OutputTarget target = CheckOutputTarget(c.output, {folder.File("day.pwl")}, own);
        EXPECT_EQ(target.kind, c.kind);
        EXPECT_EQ(target.reason, c.reason);
    }
    EXPECT_THROW(WriteOutput(folder.File("link.pwl"),
                             CheckOutputTarget(folder.File("link.pwl"), {folder.File("day.pwl")}, own), "x"),
                 SaveError);
    EXPECT_EQ(folder.Read("day.pwl"), "list");
    // Devices and pipes written in place: the command line's process test.
}

TEST(HostileFiles, TerminalTextEscapesEveryControlAndEveryByteThatIsNotText)
{
    const struct {
        std::string bytes;
        std::string shown;
    } cases[] = {
        {"Cr\xc3\xa8me br\xc3\xbbl\xc3\xa9" "e\n", "Cr\xc3\xa8me br\xc3\xbbl\xc3\xa9" "e\n"},
        {"a\r\nb\tc", "a\nb\tc"},
        {"\x1b]0;owned\x07", "\\x1b]0;owned\\x07"},  // a terminal title escape
        {"\xc2\x9b" "31m", "\\xc2\\x9b31m"},          // C1 CSI, as UTF-8
        {"x\x7fy\rz", "x\\x7fy\\x0dz"},
        {"out\xe9.csv", "out\\xe9.csv"},              // a Latin-1 name
        {"\xe2\x82", "\\xe2\\x82"},                   // a sequence cut short
        {"\xc0\xaf\xed\xa0\x80", "\\xc0\\xaf\\xed\\xa0\\x80"},  // overlong, surrogate
        {"\xf0\x9f\x8d\x8e", "\xf0\x9f\x8d\x8e"},     // four bytes stand
    };
    for (const auto& c : cases)
        EXPECT_EQ(TerminalText(c.bytes), c.shown) << c.bytes;
    EXPECT_EQ(TerminalText(Latin1ToUtf8("\x85\x9b")), "\\xc2\\x85\\xc2\\x9b");
}

}  // namespace
}  // namespace pw
