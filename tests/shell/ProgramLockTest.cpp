#include <gtest/gtest.h>

#include <filesystem>

#include "TempFolder.h"
#include "core/LineFile.h"
#include "shell/HelpTopics.h"
#include "shell/ProgramLock.h"

namespace pw {
namespace {

namespace fs = std::filesystem;
using Kind = LockOutcome::Kind;

TEST(ProgramLock, OneCopyPerFolderAndNeverUnlocked)
{
    test::TempFolder folder;
    const std::string here = "PLATEWELL LOCK\r\n1\r\n" + ProgramLock::HostName() + "\r\n";
    const std::string elsewhere = "PLATEWELL LOCK\r\n1\r\nkitchen-laptop\r\n";
    const struct {
        const char* name;
        std::string left;  // what an earlier run left in pw.lock; "-" for nothing
        Kind first;
    } cases[] = {
        {"no lock", "-", Kind::Taken},
        {"a copy that crashed here", here, Kind::Taken},
        {"an older program's lock", "4242\nPlatewell\nsomehost\n", Kind::Taken},
        {"a folder copied from another computer", elsewhere, Kind::HeldOnHost},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        fs::remove(folder.File("pw.lock"));
        if (c.left != "-")
            folder.Write("pw.lock", c.left);
        ProgramLock first;
        LockOutcome outcome = first.Take(folder.Path());
        EXPECT_EQ(outcome.kind, c.first);
        if (outcome.kind == Kind::HeldOnHost) {
            EXPECT_EQ(outcome.host, "kitchen-laptop");
            outcome = first.Take(folder.Path(), true);  // the user chose to start anyway
            EXPECT_EQ(outcome.kind, Kind::Taken);
        }
        EXPECT_NE(folder.Read("pw.lock").find(ProgramLock::HostName()), std::string::npos);
        // A second copy is refused, whoever wrote the lock's text.
        ProgramLock second;
        EXPECT_EQ(second.Take(folder.Path()).kind, Kind::HeldHere);
        EXPECT_EQ(second.Take(folder.Path(), true).kind, Kind::HeldHere);
        first.Release();
        EXPECT_FALSE(folder.Exists("pw.lock"));
        EXPECT_EQ(second.Take(folder.Path()).kind, Kind::Taken);
    }
}

// A folder that cannot hold pw.lock is locked in the runtime folder (the
// end-to-end lock_unwritable runs it); the lock there is named after the
// folder, not shared between folders.
TEST(ProgramLock, TheLockElsewhereIsNamedAfterTheFolder)
{
    EXPECT_NE(ProgramLock::FallbackPath("/run/user/1", "/a"), ProgramLock::FallbackPath("/run/user/1", "/b"));
    EXPECT_EQ(ProgramLock::FallbackPath("/run/user/1", "/a").rfind("/run/user/1/platewell-", 0), 0u);
}

TEST(HelpSafety, LinksPicturesAndPagesAreTakenOnlyFromTheHelp)
{
    const std::pair<const char*, HelpLinkKind> links[] = {
        {"", HelpLinkKind::InBook},      {"help", HelpLinkKind::InBook},     {"https", HelpLinkKind::Web},
        {"HTTP", HelpLinkKind::Web},     {"mailto", HelpLinkKind::Refused},  {"file", HelpLinkKind::Refused},
        {"data", HelpLinkKind::Refused}, {"javascript", HelpLinkKind::Refused},
    };
    for (const auto& [scheme, kind] : links)
        EXPECT_EQ(ClassifyHelpLink(scheme), kind) << scheme;

    const std::pair<const char*, const char*> pictures[] = {
        {"help/foodlist.png", "foodlist.png"},
        {"plate_2-b.png", "plate_2-b.png"},
        {"/usr/share/pixmaps/debian-logo.png", ""},
        {"help/../../etc/passwd", ""},
        {"help/.hidden.png", ""},
        {"help/sub/x.png", ""},
        {"zero%00.png", ""},
        {"", ""},
    };
    for (const auto& [source, file] : pictures)
        EXPECT_EQ(HelpPictureFile(source), file) << source;

    std::string tables, lists;
    for (int i = 0; i < 3000; ++i)
        tables += "<table><tr><td>";
    for (int i = 0; i < 20000; ++i)
        lists += "<ul><li>x";
    const std::pair<std::string, int> depths[] = {
        {"<h1><a name=\"x\"></a>Title</h1><p>One<p>Two<br><img src=\"a.png\">", 2},
        {"<ul><li>a<li>b</ul><ul><li><b>c</b></ul>", 2},
        {"<table><tr><td><table><tr><td>x</td></tr></table></td></tr></table>", 2},
        {"<!-- <div><div> --><div/>", 0},
        {tables, 3000},
        {lists, 20000},
    };
    for (const auto& [html, depth] : depths)
        EXPECT_EQ(HtmlNestingDepth(html), depth) << html.substr(0, 60);
    EXPECT_FALSE(HelpPageShownAsHtml(tables));
    EXPECT_FALSE(HelpPageShownAsHtml(std::string(kHelpPageHtmlLimit + 1, 'x')));

    // Every page of the delivered help lays out as the HTML it is.
    const HelpBook book = ReadHelpBook(ReadWholeFile(PLATEWELL_SOURCE_DIR "/data/pw.hlp", kHelpFileLimit));
    ASSERT_FALSE(book.pages.empty());
    for (const HelpPage& page : book.pages)
        EXPECT_TRUE(HelpPageShownAsHtml(page.html)) << page.name;
}

}  // namespace
}  // namespace pw
