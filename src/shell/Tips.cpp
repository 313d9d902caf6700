#include "shell/Tips.h"

#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

std::vector<std::string> ReadTips(std::string_view bytes)
{
    std::vector<std::string> tips = SplitLines(bytes);
    if (tips.size() > static_cast<std::size_t>(kMaxTips))
        throw RunTimeError(ErrorKind::SubscriptRange, "more than 100 tips");
    return tips;
}

std::int16_t NextTip(std::int16_t current, int count)
{
    std::int16_t next = AddInt16(current, 1);
    return next > count || next < 1 ? 1 : next;
}

}  // namespace pw
