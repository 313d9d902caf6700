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

namespace {

// The length of the valid UTF-8 sequence at the start of bytes (shortest
// form, no surrogates, at most U+10FFFF), or 0.
std::size_t Utf8SequenceLength(std::string_view bytes, char32_t& code)
{
    const auto b0 = static_cast<unsigned char>(bytes[0]);
    std::size_t length = 0;
    if (b0 < 0x80) {
        code = b0;
        return 1;
    }
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        length = 2;
        code = b0 & 0x1F;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        length = 3;
        code = b0 & 0x0F;
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        length = 4;
        code = b0 & 0x07;
    } else {
        return 0;
    }
    if (bytes.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        if ((b & 0xC0) != 0x80)
            return 0;
        code = (code << 6) | (b & 0x3F);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    if (overlong || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return 0;
    return length;
}

void AppendEscaped(std::string& out, unsigned char byte)
{
    static const char* const kHex = "0123456789abcdef";
    out += "\\x";
    out += kHex[byte >> 4];
    out += kHex[byte & 0x0F];
}

}  // namespace

std::string TerminalText(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    std::size_t i = 0;
    while (i < bytes.size()) {
        if (bytes.compare(i, 2, "\r\n") == 0) {
            out += '\n';
            i += 2;
            continue;
        }
        char32_t code = 0;
        const std::size_t length = Utf8SequenceLength(bytes.substr(i), code);
        const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
        if (length == 0) {
            AppendEscaped(out, static_cast<unsigned char>(bytes[i]));
            ++i;
        } else if (control && code != '\n' && code != '\t') {
            for (std::size_t k = 0; k < length; ++k)
                AppendEscaped(out, static_cast<unsigned char>(bytes[i + k]));
            i += length;
        } else {
            out.append(bytes.substr(i, length));
            i += length;
        }
    }
    return out;
}

}  // namespace pw
