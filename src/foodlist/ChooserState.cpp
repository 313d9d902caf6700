#include "foodlist/ChooserState.h"

#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

ScaledNutrients ScaleNutrients(const NutrientValues& perMeasure, float quantity, const DailyValues& dailyValues)
{
    ScaledNutrients scaled;
    for (int i = 0; i < kNutrientValues; ++i)
        scaled.amounts[i] = ToInt32(static_cast<double>(quantity) * static_cast<double>(perMeasure[i]));
    for (int i = 0; i < kShownNutrients; ++i) {
        if (dailyValues[i] == 0)
            throw RunTimeError(ErrorKind::DivisionByZero, "daily value " + std::to_string(i));
        scaled.percents[i] =
            ToInt32(static_cast<double>(scaled.amounts[i]) / static_cast<double>(dailyValues[i]) * 100.0);
    }
    return scaled;
}

}  // namespace pw
