#include "shell/Settings.h"

#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/Text.h"

namespace pw {

namespace {

const char* BoolText(bool value) { return value ? "True" : "False"; }

std::string TwoDigits(int n)
{
    std::string text = std::to_string(n);
    return text.size() < 2 ? "0" + text : text;
}

void ApplyLine(const std::string& rawLine, Settings& s)
{
    const std::string line = LTrim(UpperLatin1(rawLine)) + " ";
    const auto colon = line.find(':');
    if (colon == std::string::npos)
        return;
    const std::string key = line.substr(0, colon);  // not trimmed on the right
    const std::string value = UpperLatin1(Trim(line.substr(colon + 1)));
    const bool flag = value != "FALSE";

    if (key == "FIRST RUN")
        s.firstRun = flag;
    else if (key == "SHOW TIPS")
        s.showTips = flag;
    else if (key == "REMEMBER COLUMN WIDTH")
        s.rememberColumnWidths = flag;
    else if (key == "REMEMBER WINDOW SIZE")
        s.rememberWindowSize = flag;
    else if (key == "CURRENT TIP")
        s.currentTip = ToInt16(Val(value));
    else if (key == "VIEW UNITS")
        s.viewMode = value == kViewDV ? kViewDV : kViewUnits;
    else if (key == "WINDOW WIDTH") {
        std::int32_t w = ToInt32(Val(value));
        if (w < kDefaultWindowWidth || !s.rememberWindowSize)
            w = kDefaultWindowWidth;
        s.windowWidth = w;
    } else if (key == "WINDOW HEIGHT") {
        std::int32_t h = ToInt32(Val(value));
        if (h < kDefaultWindowHeight || !s.rememberWindowSize)
            h = kDefaultWindowHeight;
        s.windowHeight = h;
    } else if (key == "WINDOW STATE") {
        std::int16_t state = ToInt16(Val(value));
        s.windowState = state == 1 ? 0 : state;
    } else if (key.size() == 8 && key.compare(0, 6, "COLUMN") == 0) {
        for (int c = 0; c < kGridColumns; ++c)
            if (key.compare(6, 2, TwoDigits(c)) == 0)
                s.columnWidths[c] = ToInt32(Val(value));
    }
}

}  // namespace

void ReadSettingsText(std::string_view bytes, Settings& settings)
{
    for (const std::string& line : SplitLines(bytes))
        ApplyLine(line, settings);
}

std::string WriteSettingsText(const Settings& s)
{
    std::vector<std::string> lines = {
        ";",
        ";DO NOT MODIFY THIS FILE",
        ";",
        std::string("FIRST RUN:") + BoolText(s.firstRun),
        std::string("SHOW TIPS:") + BoolText(s.showTips),
        "CURRENT TIP:" + std::to_string(s.currentTip),
        std::string("REMEMBER WINDOW SIZE:") + BoolText(s.rememberWindowSize),
        "WINDOW HEIGHT:" + PrintNumber(s.windowHeight),
        "WINDOW WIDTH:" + PrintNumber(s.windowWidth),
        "WINDOW STATE:" + PrintNumber(s.windowState),
        std::string("REMEMBER COLUMN WIDTH:") + BoolText(s.rememberColumnWidths),
    };
    const auto& widths = s.rememberColumnWidths ? s.columnWidths : kDefaultColumnWidths;
    for (int c = 0; c < kGridColumns; ++c)
        lines.push_back("COLUMN" + TwoDigits(c) + ":" + std::to_string(widths[c]));
    lines.push_back("VIEW UNITS:" + std::string(s.viewMode == kViewDV ? kViewDV : kViewUnits));
    return LinesToBytes(lines);
}

void ReadSettings(const std::string& folder, Settings& settings)
{
    const std::string path = FindFileNoCase(folder, kSettingsFileName);
    if (path.empty()) {
        WriteSettings(folder, settings);
        return;
    }
    ReadSettingsText(ReadWholeFile(path, kSettingsFileLimit), settings);
}

void WriteSettings(const std::string& folder, const Settings& settings)
{
    std::string path = FindFileNoCase(folder, kSettingsFileName);
    if (path.empty())
        path = JoinPath(folder, kSettingsFileName);
    WriteFileAtomic(path, WriteSettingsText(settings));
}

}  // namespace pw
