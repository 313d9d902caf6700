#pragma once
// The values that outlive a run, kept in pw.ini in the program folder: read
// once at start-up, written once at shutdown (and at start-up when missing).
#include <array>
#include <cstdint>
#include <string>

#include "foodlist/FoodList.h"

namespace pw {

inline constexpr std::int32_t kDefaultWindowWidth = 7728;   // twips
inline constexpr std::int32_t kDefaultWindowHeight = 6000;  // twips
inline constexpr std::array<std::int32_t, kGridColumns> kDefaultColumnWidths = {
    500, 2000, 2000, 2000, 4000, 800, 800, 800, 800, 800, 800, 800, 800};

inline constexpr const char* kSettingsFileName = "pw.ini";
inline constexpr const char* kViewUnits = "UNITS";
inline constexpr const char* kViewDV = "DV";

struct Settings {
    bool firstRun = true;
    bool showTips = true;
    std::int16_t currentTip = 0;
    bool rememberWindowSize = false;
    std::int32_t windowHeight = kDefaultWindowHeight;
    std::int32_t windowWidth = kDefaultWindowWidth;
    std::int16_t windowState = 0;  // 0 normal, 2 maximised (1, minimised, is read as 0)
    bool rememberColumnWidths = false;
    std::array<std::int32_t, kGridColumns> columnWidths = kDefaultColumnWidths;
    std::string viewMode = kViewUnits;  // "UNITS" or "DV"
};

// Applies the lines of a pw.ini to settings, line by line in file order (so a
// REMEMBER WINDOW SIZE line must stand before the size lines). A number too
// large for its type is an overflow run-time error.
void ReadSettingsText(std::string_view bytes, Settings& settings);

// The 25 lines of pw.ini, each ended by CR LF. The column widths written are
// the defaults unless column widths are remembered.
std::string WriteSettingsText(const Settings& settings);

// Reads pw.ini from folder; when it is missing, writes one from settings.
void ReadSettings(const std::string& folder, Settings& settings);
void WriteSettings(const std::string& folder, const Settings& settings);

}  // namespace pw
