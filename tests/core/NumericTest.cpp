#include <gtest/gtest.h>

#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {
namespace {

TEST(Numeric, ValReadsTheLeadingNumberOnly)
{
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"", 0},          {"abc", 0},       {"42", 42},       {"  7", 7},        {"\t3", 3},
        {"2.5", 2.5},     {"2-1/2", 2},     {"3-", 3},        {"-4", -4},        {"+6", 6},
        {".5", 0.5},      {"5.", 5},        {"1e3", 1000},    {"1E", 1},         {"2D2", 200},
        {"6000 ", 6000},  {"12abc", 12},    {"1.2.3", 1.2},   {"-", 0},          {"- 5", 0},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(Val(c.text), c.value) << '"' << c.text << '"';
    EXPECT_THROW(Val("1e999"), RunTimeError);
}

TEST(Numeric, RoundingIsHalfToEvenAndRangeChecked)
{
    const struct {
        double in;
        double out;
    } cases[] = {{2.5, 2}, {3.5, 4}, {-2.5, -2}, {0.5, 0}, {1.5, 2}, {304.5, 304}, {26.25, 26}, {2493.75, 2494}};
    for (const auto& c : cases)
        EXPECT_EQ(RoundHalfEven(c.in), c.out) << c.in;

    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_THROW(ToInt16(32767.5), RunTimeError);  // rounds to 32768
    EXPECT_THROW(ToInt16(-32769), RunTimeError);
    EXPECT_EQ(ToInt32(2147483647.0), 2147483647);
    EXPECT_THROW(ToInt32(2147483648.0), RunTimeError);

    EXPECT_THROW(AddInt16(32000, 768), RunTimeError);
    EXPECT_EQ(AddInt16(32000, 767), 32767);
    EXPECT_THROW(MulInt32(65536, 32768), RunTimeError);
    EXPECT_THROW(AddInt32(2147483647, 1), RunTimeError);
    EXPECT_THROW(SubInt32(-2147483647 - 1, 1), RunTimeError);
}

TEST(Numeric, PrintFormsKeepTheSignPosition)
{
    EXPECT_EQ(StrNumber(125) + '|' + StrNumber(-5), " 125|-5");
    EXPECT_EQ(PrintNumber(6000) + '|' + PrintNumber(0) + '|' + PrintNumber(-1), " 6000 | 0 |-1 ");
    EXPECT_EQ(NumberText(5) + '|' + NumberText(0.5) + '|' + NumberText(-1.25), "5|0.5|-1.25");
}

TEST(Numeric, IsNumericAcceptsWholeNumbersOnly)
{
    for (const char* yes : {"1", " 12 ", "-3", "+4", "2.5", ".5", "5.", "1e5", "1E-2", "7d1"})
        EXPECT_TRUE(IsNumeric(yes)) << yes;
    for (const char* no : {"", " ", "a", "1a", "1.2.3", "--1", ".", "-", "1e", "1 2", "2-1/2"})
        EXPECT_FALSE(IsNumeric(no)) << no;
}

}  // namespace
}  // namespace pw
