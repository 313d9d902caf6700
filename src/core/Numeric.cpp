#include "core/Numeric.h"

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/RunTimeError.h"

namespace pw {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the number at the start of text (after the blanks at pos), or 0.
std::size_t ScanNumber(std::string_view text, std::size_t pos, bool allowSign)
{
    std::size_t start = pos;
    if (allowSign && pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
        ++pos;
    std::size_t digits = 0;
    while (pos < text.size() && IsDigit(text[pos])) {
        ++pos;
        ++digits;
    }
    if (pos < text.size() && text[pos] == '.') {
        ++pos;
        while (pos < text.size() && IsDigit(text[pos])) {
            ++pos;
            ++digits;
        }
    }
    if (digits == 0)
        return 0;
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E' || text[pos] == 'd' || text[pos] == 'D')) {
        std::size_t e = pos + 1;
        if (e < text.size() && (text[e] == '+' || text[e] == '-'))
            ++e;
        std::size_t expDigits = 0;
        while (e < text.size() && IsDigit(text[e])) {
            ++e;
            ++expDigits;
        }
        if (expDigits > 0)
            pos = e;
    }
    return pos - start;
}

}  // namespace

double Val(std::string_view text)
{
    std::size_t pos = 0;
    while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\t'))
        ++pos;
    std::size_t len = ScanNumber(text, pos, true);
    if (len == 0)
        return 0.0;
    std::string number(text.substr(pos, len));
    for (char& c : number)
        if (c == 'd' || c == 'D')
            c = 'E';
    double value = std::strtod(number.c_str(), nullptr);
    if (!std::isfinite(value))
        throw RunTimeError(ErrorKind::Overflow, "number too large: " + number);
    return value;
}

double RoundHalfEven(double value)
{
    // nearbyint honours the current rounding mode, which is round-to-nearest,
    // ties-to-even unless someone changed it; do not depend on that.
    const int saved = std::fegetround();
    if (saved != FE_TONEAREST)
        std::fesetround(FE_TONEAREST);
    double r = std::nearbyint(value);
    if (saved != FE_TONEAREST)
        std::fesetround(saved);
    return r;
}

std::int16_t ToInt16(double value)
{
    double r = RoundHalfEven(value);
    if (!(r >= std::numeric_limits<std::int16_t>::min() && r <= std::numeric_limits<std::int16_t>::max()))
        throw RunTimeError(ErrorKind::Overflow, "value out of 16-bit range");
    return static_cast<std::int16_t>(r);
}

std::int32_t ToInt32(double value)
{
    double r = RoundHalfEven(value);
    if (!(r >= std::numeric_limits<std::int32_t>::min() && r <= std::numeric_limits<std::int32_t>::max()))
        throw RunTimeError(ErrorKind::Overflow, "value out of 32-bit range");
    return static_cast<std::int32_t>(r);
}

std::int16_t AddInt16(std::int16_t a, std::int16_t b)
{
    int sum = int(a) + int(b);
    if (sum < std::numeric_limits<std::int16_t>::min() || sum > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(ErrorKind::Overflow, "16-bit sum");
    return static_cast<std::int16_t>(sum);
}

static std::int32_t CheckedInt32(std::int64_t value, const char* what)
{
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        throw RunTimeError(ErrorKind::Overflow, what);
    return static_cast<std::int32_t>(value);
}

std::int32_t AddInt32(std::int32_t a, std::int32_t b) { return CheckedInt32(std::int64_t(a) + b, "32-bit sum"); }
std::int32_t SubInt32(std::int32_t a, std::int32_t b) { return CheckedInt32(std::int64_t(a) - b, "32-bit difference"); }
std::int32_t MulInt32(std::int32_t a, std::int32_t b) { return CheckedInt32(std::int64_t(a) * b, "32-bit product"); }

std::string StrNumber(std::int64_t value)
{
    std::string text = value < 0 ? std::string() : std::string(1, ' ');
    text += std::to_string(value);
    return text;
}

std::string PrintNumber(std::int64_t value) { return StrNumber(value) + " "; }

std::string NumberText(double value)
{
    if (value == 0)
        return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15g", value);
    return buf;
}

bool IsNumeric(std::string_view text)
{
    std::size_t pos = 0;
    while (pos < text.size() && text[pos] == ' ')
        ++pos;
    std::size_t len = ScanNumber(text, pos, true);
    if (len == 0)
        return false;
    pos += len;
    while (pos < text.size() && text[pos] == ' ')
        ++pos;
    return pos == text.size();
}

}  // namespace pw
