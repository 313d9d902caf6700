#pragma once
// Text helpers for the 8-bit Latin-1 strings the model keeps, exactly as the
// files hold them.
#include <string>
#include <string_view>
#include <vector>

namespace pw {

// The line break every multi-line message and every file line uses.
inline constexpr const char* kCrLf = "\r\n";
inline constexpr char kQuote = '"';

// Upper / lower case of Latin-1 text (ASCII letters and the accented letters
// of the Latin-1 upper half).
std::string UpperLatin1(std::string_view text);
std::string LowerLatin1(std::string_view text);
char UpperLatin1(char c);

// Blanks (spaces only, not tabs) removed on the left, right or both sides.
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);
std::string Trim(std::string_view text);

// Joins lines with CR LF between them (none after the last).
std::string JoinLines(const std::vector<std::string>& lines);

// Latin-1 <-> UTF-8, for the few places (file names, tests) that need it.
std::string Latin1ToUtf8(std::string_view latin1);

// Bytes made safe for a terminal: valid UTF-8 stands, line feeds and tabs
// too (a CR LF becomes a line feed); every other control character (C0, DEL
// and the C1 range U+0080..U+009F) and every byte that is not valid UTF-8 is
// written as \xNN, one escape per byte, so nothing read from a file can
// steer the terminal.
std::string TerminalText(std::string_view bytes);

}  // namespace pw
