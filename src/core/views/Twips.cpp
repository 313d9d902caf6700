#include "core/views/Twips.h"

#include <cmath>

namespace pw {

int TwipsToPx(int twips, int dpi) { return static_cast<int>(std::lround(double(twips) * dpi / kTwipsPerInch)); }

int PxToTwips(int px, int dpi) { return static_cast<int>(std::lround(double(px) * kTwipsPerInch / dpi)); }

int TwipsLength::SetTwips(int twips, int dpi)
{
    twips_ = twips;
    px_ = TwipsToPx(twips, dpi);
    return px_;
}

int TwipsLength::Twips(int px, int dpi) const { return px == px_ ? twips_ : PxToTwips(px, dpi); }

}  // namespace pw
