// Any bytes as tips.txt: read, or refused past 100 tips with a run-time
// error; stepping through the tips from any position pw.ini can hold lands
// on a tip of the file (or on 1 when there is none), or raises the 16-bit
// overflow of the tip number.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/RunTimeError.h"
#include "shell/Tips.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::string> tips;
    try {
        tips = pw::ReadTips(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const pw::RunTimeError&) {
        return 0;
    }
    if (tips.size() > static_cast<std::size_t>(pw::kMaxTips))
        std::abort();
    for (const std::string& tip : tips)
        if (tip.find_first_of("\r\n") != std::string::npos)
            std::abort();  // a tip is one line of the file

    const int count = static_cast<int>(tips.size());
    constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
    constexpr std::int16_t kHighest = std::numeric_limits<std::int16_t>::max();
    const std::int16_t starts[] = {kLowest, -1, 0, 1, static_cast<std::int16_t>(count),
                                   static_cast<std::int16_t>(count + 1), kHighest};
    for (const std::int16_t start : starts) {
        std::int16_t tip = start;
        try {
            for (int step = 0; step <= count; ++step) {
                tip = pw::NextTip(tip, count);
                if (tip < 1 || (count > 0 && tip > count) || (count == 0 && tip != 1))
                    std::abort();
            }
        } catch (const pw::RunTimeError&) {
            if (start != kHighest)
                std::abort();  // only the highest number has no successor
        }
    }
    return 0;
}
