#include <gtest/gtest.h>

#include "Fixtures.h"
#include "TempFolder.h"
#include "core/RunTimeError.h"
#include "shell/Settings.h"
#include "shell/Tips.h"

namespace pw {
namespace {

const char* const kDefaultFile =
    ";\r\n"
    ";DO NOT MODIFY THIS FILE\r\n"
    ";\r\n"
    "FIRST RUN:True\r\n"
    "SHOW TIPS:True\r\n"
    "CURRENT TIP:0\r\n"
    "REMEMBER WINDOW SIZE:False\r\n"
    "WINDOW HEIGHT: 6000 \r\n"
    "WINDOW WIDTH: 7728 \r\n"
    "WINDOW STATE: 0 \r\n"
    "REMEMBER COLUMN WIDTH:False\r\n"
    "COLUMN00:500\r\n"
    "COLUMN01:2000\r\n"
    "COLUMN02:2000\r\n"
    "COLUMN03:2000\r\n"
    "COLUMN04:4000\r\n"
    "COLUMN05:800\r\n"
    "COLUMN06:800\r\n"
    "COLUMN07:800\r\n"
    "COLUMN08:800\r\n"
    "COLUMN09:800\r\n"
    "COLUMN10:800\r\n"
    "COLUMN11:800\r\n"
    "COLUMN12:800\r\n"
    "VIEW UNITS:UNITS\r\n";

Settings Read(const std::string& text)
{
    Settings s;
    ReadSettingsText(text, s);
    return s;
}

TEST(Settings, WriterProducesTheTwentyFiveLines)
{
    EXPECT_EQ(WriteSettingsText(Settings{}), kDefaultFile);

    Settings s;
    s.firstRun = false;
    s.showTips = false;
    s.currentTip = 3;
    s.rememberWindowSize = true;
    s.windowWidth = 9000;
    s.windowHeight = 7000;
    s.windowState = 2;
    s.rememberColumnWidths = true;
    s.columnWidths[4] = 4321;
    s.viewMode = "DV";
    const std::string text = WriteSettingsText(s);
    for (const char* line : {"\r\nFIRST RUN:False\r\n", "\r\nSHOW TIPS:False\r\n", "\r\nCURRENT TIP:3\r\n",
                             "\r\nWINDOW HEIGHT: 7000 \r\n", "\r\nWINDOW WIDTH: 9000 \r\n", "\r\nWINDOW STATE: 2 \r\n",
                             "\r\nREMEMBER COLUMN WIDTH:True\r\n", "\r\nCOLUMN04:4321\r\n", "\r\nVIEW UNITS:DV\r\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line;

    // Widths not remembered are written as the defaults, whatever the grid had.
    s.rememberColumnWidths = false;
    EXPECT_NE(WriteSettingsText(s).find("\r\nCOLUMN04:4000\r\n"), std::string::npos);

    // What is written reads back.
    s.rememberColumnWidths = true;
    EXPECT_EQ(WriteSettingsText(Read(WriteSettingsText(s))), WriteSettingsText(s));
}

// The tip after the one shown last: the first after the last, after a
// number beyond a shortened file, and when none was shown.
TEST(Tips, NextFollowsOnAndWrapsToTheFirst)
{
    const int cases[][3] = {{0, 3, 1}, {1, 3, 2}, {2, 3, 3}, {3, 3, 1}, {9, 3, 1}, {-4, 3, 1}, {5, 0, 1}};
    for (const auto& [current, count, next] : cases)
        EXPECT_EQ(NextTip(std::int16_t(current), count), next) << current << " of " << count;
}

TEST(Settings, ReaderRules)
{
    const struct {
        const char* what;
        const char* text;
        bool (*holds)(const Settings&);
    } cases[] = {
        {"only FALSE turns a flag off", "SHOW TIPS:no\r\nFIRST RUN:false\r\n",
         [](const Settings& s) { return s.showTips && !s.firstRun; }},
        {"an empty value is true", "SHOW TIPS:\r\n", [](const Settings& s) { return s.showTips; }},
        {"keys and values in any case", "view units: dv\r\n", [](const Settings& s) { return s.viewMode == "DV"; }},
        {"other view values are UNITS", "VIEW UNITS:percent\r\n",
         [](const Settings& s) { return s.viewMode == "UNITS"; }},
        {"size ignored without remember", "REMEMBER WINDOW SIZE:False\r\nWINDOW WIDTH:9000\r\n",
         [](const Settings& s) { return s.windowWidth == 7728; }},
        {"size kept with remember", "REMEMBER WINDOW SIZE:True\r\nWINDOW WIDTH: 9000 \r\nWINDOW HEIGHT:8000\r\n",
         [](const Settings& s) { return s.windowWidth == 9000 && s.windowHeight == 8000; }},
        {"remember after the sizes comes too late",
         "WINDOW WIDTH:9000\r\nWINDOW HEIGHT:8000\r\nREMEMBER WINDOW SIZE:True\r\n",
         [](const Settings& s) { return s.windowWidth == 7728 && s.windowHeight == 6000 && s.rememberWindowSize; }},
        {"sizes clamp to the minima", "REMEMBER WINDOW SIZE:True\r\nWINDOW WIDTH:100\r\nWINDOW HEIGHT:abc\r\n",
         [](const Settings& s) { return s.windowWidth == 7728 && s.windowHeight == 6000; }},
        {"state 1 reads as 0", "WINDOW STATE:1\r\n", [](const Settings& s) { return s.windowState == 0; }},
        {"state 2 stays", "WINDOW STATE: 2 \r\n", [](const Settings& s) { return s.windowState == 2; }},
        {"a blank before the colon misses the key", "SHOW TIPS :FALSE\r\n",
         [](const Settings& s) { return s.showTips; }},
        {"leading blanks are stripped", "   SHOW TIPS:FALSE\r\n", [](const Settings& s) { return !s.showTips; }},
        {"unknown keys and colon-less lines are skipped", "COLOUR:RED\r\nSHOW TIPS FALSE\r\n;\r\n",
         [](const Settings& s) { return s.showTips && s.viewMode == "UNITS"; }},
        {"column widths have no minimum", "COLUMN03:-5\r\nCOLUMN12:17\r\nCOLUMN13:99\r\n",
         [](const Settings& s) { return s.columnWidths[3] == -5 && s.columnWidths[12] == 17; }},
        {"numbers read their leading digits", "CURRENT TIP:12abc\r\n",
         [](const Settings& s) { return s.currentTip == 12; }},
        {"a value with a second colon", "CURRENT TIP:4:5\r\n", [](const Settings& s) { return s.currentTip == 4; }},
        {"LF line ends", "SHOW TIPS:FALSE\nFIRST RUN:FALSE\n",
         [](const Settings& s) { return !s.showTips && !s.firstRun; }},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(c.holds(Read(c.text))) << c.what;

    EXPECT_EQ(test::ErrorKindOf([] { Read("CURRENT TIP:40000\r\n"); }), ErrorKind::Overflow);
    EXPECT_EQ(test::ErrorKindOf([] { Read("COLUMN00:3000000000\r\n"); }), ErrorKind::Overflow);
}

}  // namespace
}  // namespace pw
