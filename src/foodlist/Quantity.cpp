#include "foodlist/Quantity.h"

#include <cstdint>

#include "core/Numeric.h"
#include "core/Text.h"

namespace pw {

namespace {

// 1-based position of c in text, 0 when absent.
std::size_t Position(const std::string& text, char c)
{
    const std::size_t at = text.find(c);
    return at == std::string::npos ? 0 : at + 1;
}

std::int32_t WholeNumber(const std::string& text) { return ToInt32(Val(text)); }

}  // namespace

float ParseQuantity(std::string& text)
{
    text = Trim(text);
    if (text.empty())
        return 0.0f;

    bool valid = text.size() <= kMaxQuantityLength;
    int dashes = 0;
    int points = 0;
    int slashes = 0;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < '-' || code > '9')
            valid = false;
        dashes += c == '-';
        points += c == '.';
        slashes += c == '/';
    }
    if (dashes > 1 || points > 1 || slashes > 1)
        valid = false;

    const std::size_t slash = Position(text, '/');
    const std::size_t dash = Position(text, '-');
    const std::size_t point = Position(text, '.');
    if ((slash != 0 || dash != 0) && point != 0)
        valid = false;  // no decimals in fractions
    if (slash != 0 && slash < dash)
        valid = false;  // the whole number comes first
    if (!valid)
        return -1.0f;

    if (slash == 0)
        return static_cast<float>(Val(text));

    std::int32_t whole = 0;
    if (dash != 0) {
        whole = WholeNumber(text.substr(0, dash - 1));
        text = text.substr(dash);
    }
    const std::size_t at = text.find('/');
    if (at + 1 == text.size())
        return static_cast<float>(whole);
    const std::int32_t numerator = WholeNumber(text.substr(0, at));
    const std::int32_t denominator = WholeNumber(text.substr(at + 1));
    if (denominator == 0)
        return 0.0f;
    const long double value =
        static_cast<long double>(whole) + static_cast<long double>(numerator) / static_cast<long double>(denominator);
    return static_cast<float>(value);
}

}  // namespace pw
