#pragma once
// The tips of the day: one tip a line of tips.txt, shown one per start in
// file order, the position kept in the settings.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pw {

inline constexpr const char* kTipsFileName = "tips.txt";
inline constexpr int kMaxTips = 100;

// The lines of a tips file, each as it stands; a 101st line is a subscript
// run-time error.
std::vector<std::string> ReadTips(std::string_view bytes);

// The number of the tip after current, wrapping from the last to the first
// (an empty list, or a number below 1, gives 1).
std::int16_t NextTip(std::int16_t current, int count);

}  // namespace pw
