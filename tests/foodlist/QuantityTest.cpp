#include <gtest/gtest.h>

#include <cstdio>

#include "foodlist/Quantity.h"

namespace pw {
namespace {

TEST(ParseQuantity, ValuesOfEveryFormAndTheTextLeftBehind)
{
    const struct {
        const char* typed;
        float value;
        const char* left;  // the argument after the call
    } cases[] = {
        // whole numbers and decimals: the leading number
        {"10", 10.0f, "10"},
        {" 1.5 ", 1.5f, "1.5"},
        {" 8", 8.0f, "8"},
        {".5", 0.5f, ".5"},
        {"5.", 5.0f, "5."},
        {"2-3", 2.0f, "2-3"},
        {"3-", 3.0f, "3-"},
        {"-4", -4.0f, "-4"},
        {"-", 0.0f, "-"},
        {"123456789", 123456789.0f, "123456789"},
        {"99.01", 99.01f, "99.01"},
        // fractions and whole numbers with a fraction
        {"7/8", 0.875f, "7/8"},
        {"2-1/2", 2.5f, "1/2"},
        {"-1/2", 0.5f, "1/2"},
        {"1/3", 1.0f / 3.0f, "1/3"},
        {"10-3/4", 10.75f, "3/4"},
        {"/4", 0.0f, "/4"},
        // nothing after the slash gives the whole part; a zero denominator 0
        {"1/", 0.0f, "1/"},
        {"2-1/", 2.0f, "1/"},
        {"/", 0.0f, "/"},
        {"1/0", 0.0f, "1/0"},
        {"2-1/0", 0.0f, "1/0"},
        // empty
        {"", 0.0f, ""},
        {"   ", 0.0f, ""},
        // malformed: -1, trimmed only
        {"1 1/2", -1.0f, "1 1/2"},
        {"1/2/3", -1.0f, "1/2/3"},
        {"1.5/2", -1.0f, "1.5/2"},
        {"2-1.5", -1.0f, "2-1.5"},
        {"1/2-1", -1.0f, "1/2-1"},
        {"2..5", -1.0f, "2..5"},
        {"1--2", -1.0f, "1--2"},
        {"abc", -1.0f, "abc"},
        {"+2", -1.0f, "+2"},
        {"1,5", -1.0f, "1,5"},
        {"2:", -1.0f, "2:"},
        {"\xbd", -1.0f, "\xbd"},
        {"0.12345678", -1.0f, "0.12345678"},
        {" 0.12345678 ", -1.0f, "0.12345678"},
    };
    for (const auto& c : cases) {
        std::string text = c.typed;
        EXPECT_EQ(ParseQuantity(text), c.value) << '"' << c.typed << '"';
        EXPECT_EQ(text, c.left) << '"' << c.typed << '"';
    }
}

TEST(ParseQuantity, AThirdReadsAsSevenThreesInSinglePrecision)
{
    std::string text = "1/3";
    char shown[32];
    std::snprintf(shown, sizeof shown, "%.7g", static_cast<double>(ParseQuantity(text)));
    EXPECT_STREQ(shown, "0.3333333");
}

}  // namespace
}  // namespace pw
