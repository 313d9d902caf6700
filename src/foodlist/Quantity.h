#pragma once
// The quantity the user types in front of a food's unit of measure: a whole
// number, a decimal, a fraction "3/8" or a whole number with a fraction
// "2-1/2".
#include <string>

namespace pw {

// Longest quantity text accepted, after trimming.
inline constexpr std::size_t kMaxQuantityLength = 9;
// Quantities above this are refused with the limit message.
inline constexpr float kMaxQuantity = 99.0f;

// Trims text in place and returns its value: 0 for an empty text, -1 for a
// malformed one. Only digits, "-", "." and "/" are allowed, each of the three
// signs at most once; a fraction takes no decimal point and its whole part
// comes first, before a dash. Without a slash the leading number is the value
// ("2-3" is 2, "-4" is -4). With a dash and a slash, text is shortened to the
// fraction after the dash. "1/" gives its whole part, a zero denominator 0.
float ParseQuantity(std::string& text);

}  // namespace pw
