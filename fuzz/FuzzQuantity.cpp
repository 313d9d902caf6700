// Any bytes typed into the quantity box: a finite value or -1 for a refused
// text; a value the chooser takes scales any food without undefined
// behaviour (an overflow is a run-time error).
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "analysis/DailyValues.h"
#include "core/RunTimeError.h"
#include "foodlist/ChooserState.h"
#include "foodlist/Quantity.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string text(reinterpret_cast<const char*>(data), size);
    const float quantity = pw::ParseQuantity(text);
    if (!std::isfinite(quantity))
        std::abort();
    if (quantity != -1.0f && text.size() > pw::kMaxQuantityLength)
        std::abort();  // an accepted text is never longer than the box allows
    if (quantity < 0.0f || quantity > pw::kMaxQuantity)
        return 0;

    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const pw::NutrientValues foods[] = {
        {102, 0, 0, 12, 31, 0, 3, 82, 0},
        {kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost},
        {-kMost, -1, 1, 0, 30000000, 21691754, 0, 0, 0},
    };
    const pw::DailyValues dailyValues[] = {
        {2100, 63, 289, 70, 300, 25, 800, 2375},
        {1, 1, 1, 1, 1, 1, 1, 1},
        {kMost, -1, kMost, -kMost, 1, 1, 1, 1},
    };
    for (const pw::NutrientValues& food : foods) {
        for (const pw::DailyValues& dv : dailyValues) {
            try {
                pw::ScaleNutrients(food, quantity, dv);
            } catch (const pw::RunTimeError&) {
            }
        }
    }
    return 0;
}
