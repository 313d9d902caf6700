#include "core/Text.h"

namespace pw {

char UpperLatin1(char c)
{
    auto u = static_cast<unsigned char>(c);
    if (u >= 'a' && u <= 'z')
        return static_cast<char>(u - 32);
    if (u >= 0xE0 && u <= 0xFE && u != 0xF7)
        return static_cast<char>(u - 32);
    return c;
}

static char LowerLatin1Char(char c)
{
    auto u = static_cast<unsigned char>(c);
    if (u >= 'A' && u <= 'Z')
        return static_cast<char>(u + 32);
    if (u >= 0xC0 && u <= 0xDE && u != 0xD7)
        return static_cast<char>(u + 32);
    return c;
}

std::string UpperLatin1(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        c = UpperLatin1(c);
    return out;
}

std::string LowerLatin1(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        c = LowerLatin1Char(c);
    return out;
}

std::string LTrim(std::string_view text)
{
    auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string RTrim(std::string_view text)
{
    auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) { return RTrim(LTrim(text)); }

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0)
            out += kCrLf;
        out += lines[i];
    }
    return out;
}

std::string Latin1ToUtf8(std::string_view latin1)
{
    std::string out;
    out.reserve(latin1.size());
    for (char c : latin1) {
        auto u = static_cast<unsigned char>(c);
        if (u < 0x80) {
            out += c;
        } else {
            out += static_cast<char>(0xC0 | (u >> 6));
            out += static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return out;
}

}  // namespace pw
