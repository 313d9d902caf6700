#pragma once
// Number conversions with the fixed-width semantics the files and formulas
// rely on: leading-number parsing, round-half-to-even, 16- and 32-bit
// integers whose overflow is a RunTimeError rather than a wrap-around.
#include <cstdint>
#include <string>
#include <string_view>

namespace pw {

// The numeric value of the leading number of a text: leading blanks and tabs
// skipped, an optional sign, digits with at most one decimal point, an
// optional exponent (E or D). No number gives 0. A value beyond the range of
// a double is an overflow.
double Val(std::string_view text);

// Rounds to a whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double RoundHalfEven(double value);

// Round half to even, then into a 16- or 32-bit signed integer; a value out of
// range (or not a number) is an overflow.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

// Checked arithmetic: overflow is a RunTimeError.
std::int16_t AddInt16(std::int16_t a, std::int16_t b);
std::int32_t AddInt32(std::int32_t a, std::int32_t b);
std::int32_t SubInt32(std::int32_t a, std::int32_t b);
std::int32_t MulInt32(std::int32_t a, std::int32_t b);

// Decimal text of a whole number with its sign position: " 125" or "-5".
std::string StrNumber(std::int64_t value);
// The form a number takes when printed to a sequential file: the sign
// position (a blank or "-"), the digits and one trailing blank: " 6000 ".
std::string PrintNumber(std::int64_t value);
// Shortest text of a double with up to 15 significant digits and no
// exponent for ordinary magnitudes: 5 -> "5", 0.5 -> "0.5", -1.25 -> "-1.25".
std::string NumberText(double value);

// True when the whole text (blanks around allowed) is one number: an optional
// sign, digits with at most one point (at least one digit), an optional
// exponent with digits.
bool IsNumeric(std::string_view text);

}  // namespace pw
