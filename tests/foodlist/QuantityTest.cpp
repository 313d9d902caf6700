// The chooser's numbers: the typed quantity and the nutrients it scales.
#include <gtest/gtest.h>

#include "core/RunTimeError.h"
#include "foodlist/ChooserState.h"
#include "foodlist/Quantity.h"

namespace pw {
namespace {

TEST(ParseQuantity, ValuesOfEveryFormAndTheTextLeftBehind)
{
    // The typed text, its value in single precision and the argument after
    // the call.
    const struct {
        const char* typed;
        float value;
        const char* left;
    } cases[] = {
        // whole numbers and decimals: the leading number
        {"10", 10.0f, "10"}, {" 1.5 ", 1.5f, "1.5"}, {" 8", 8.0f, "8"}, {".5", 0.5f, ".5"}, {"5.", 5.0f, "5."},
        {"2-3", 2.0f, "2-3"}, {"3-", 3.0f, "3-"}, {"-4", -4.0f, "-4"}, {"-", 0.0f, "-"},
        {"123456789", 123456789.0f, "123456789"}, {"99.01", 99.01f, "99.01"},
        // fractions and whole numbers with a fraction
        {"7/8", 0.875f, "7/8"}, {"2-1/2", 2.5f, "1/2"}, {"-1/2", 0.5f, "1/2"}, {"1/3", 1.0f / 3.0f, "1/3"},
        {"10-3/4", 10.75f, "3/4"}, {"/4", 0.0f, "/4"},
        // nothing after the slash gives the whole part; a zero denominator 0
        {"1/", 0.0f, "1/"}, {"2-1/", 2.0f, "1/"}, {"/", 0.0f, "/"}, {"1/0", 0.0f, "1/0"}, {"2-1/0", 0.0f, "1/0"},
        // empty
        {"", 0.0f, ""}, {"   ", 0.0f, ""},
        // malformed: -1, trimmed only
        {"1 1/2", -1.0f, "1 1/2"}, {"1/2/3", -1.0f, "1/2/3"}, {"1.5/2", -1.0f, "1.5/2"}, {"2-1.5", -1.0f, "2-1.5"},
        {"1/2-1", -1.0f, "1/2-1"}, {"2..5", -1.0f, "2..5"}, {"1--2", -1.0f, "1--2"}, {"abc", -1.0f, "abc"},
        {"+2", -1.0f, "+2"}, {"1,5", -1.0f, "1,5"}, {"2:", -1.0f, "2:"}, {"\xbd", -1.0f, "\xbd"},
        {"0.12345678", -1.0f, "0.12345678"}, {" 0.12345678 ", -1.0f, "0.12345678"},
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        EXPECT_EQ(ParseQuantity(text), c.value) << '"' << c.typed << '"';
        EXPECT_EQ(text, c.left) << '"' << c.typed << '"';
    }
}

TEST(ScaleNutrients, AmountsAndPercentsRoundHalfToEven)
{
    // One nutrient (protein) per case; the percent is taken of the rounded
    // amount.
    const struct {
        float quantity;
        std::int32_t perMeasure;
        std::int32_t dailyValue;
        std::int32_t amount;
        std::int32_t percent;
    } cases[] = {
        {0.5f, 5, 50, 2, 4},     // 2.5 -> 2
        {1.5f, 5, 50, 8, 16},    // 7.5 -> 8
        {1.0f, 7, 50, 7, 14},
        {0.5f, 5, 10, 2, 20},    // not 25: the amount is rounded first
        {2.5f, 1, 200, 2, 1},    // 2.5 -> 2; 1 % exactly
        {1.0f, 1, 200, 1, 0},    // 0.5 % -> 0
        {3.0f, 1, 200, 3, 2},    // 1.5 % -> 2
        {0.125f, 36, 63, 4, 6},  // 4.5 -> 4; 6.35 % -> 6
    };
    for (const auto& c : cases) {
        NutrientValues values{};
        values[kProtein] = c.perMeasure;
        DailyValues dv;
        dv.fill(1);
        dv[kProtein] = c.dailyValue;
        const ScaledNutrients scaled = ScaleNutrients(values, c.quantity, dv);
        EXPECT_EQ(scaled.amounts[kProtein], c.amount) << c.quantity << " x " << c.perMeasure;
        EXPECT_EQ(scaled.percents[kProtein], c.percent) << c.quantity << " x " << c.perMeasure;
    }
}

TEST(ScaleNutrients, AllNineValuesKeepTheirPlaces)
{
    const NutrientValues perMeasure = {100, 1, 2, 3, 4, 5, 6, 7, 14};
    DailyValues dv = {2000, 50, 300, 65, 300, 25, 800, 2400};
    const ScaledNutrients scaled = ScaleNutrients(perMeasure, 0.5f, dv);
    EXPECT_EQ(scaled.amounts, (NutrientValues{50, 0, 1, 2, 2, 2, 3, 4, 7}));
    EXPECT_EQ(scaled.percents, (NutrientPercents{2, 0, 0, 3, 1, 8, 0, 0}));

    // Amounts and percents must fit 32 bits; a daily value of 0 cannot divide.
    EXPECT_THROW(ScaleNutrients({2000000000}, 2.0f, dv), RunTimeError);
    EXPECT_THROW(ScaleNutrients({0, 2000000000}, 1.0f, dv), RunTimeError);  // 4,000,000,000 %
    dv[kSodium] = 0;
    EXPECT_THROW(ScaleNutrients(perMeasure, 1.0f, dv), RunTimeError);
}

}  // namespace
}  // namespace pw
