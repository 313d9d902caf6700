#pragma once
// Lengths are twips (1/1440 inch) in the model and the settings; windows
// convert once, here, with the screen's logical resolution.
namespace pw {

inline constexpr int kTwipsPerInch = 1440;

int TwipsToPx(int twips, int dpi);
int PxToTwips(int px, int dpi);

// A length set in twips and shown in pixels: reading it back gives the same
// twips as long as the pixels were not changed, so remembered sizes do not
// drift by a rounding step on every run.
class TwipsLength {
public:
    int SetTwips(int twips, int dpi);  // returns the pixels
    int Twips(int px, int dpi) const;

private:
    int twips_ = -1;
    int px_ = -1;
};

}  // namespace pw
