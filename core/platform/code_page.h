#pragma once

#include <string>
#include <string_view>

/// The edge between the library's text, Windows-1252 with one byte per character, and the UTF-8 of front ends,
/// files that people write, and most hosts.
namespace fiscalon {

/// The text in the code page. A character that has no place there becomes "?", and so does each malformed
/// sequence, as one.
std::string FromUtf8(std::string_view utf8);

/// The text in UTF-8. Every byte has a character: the five that the code page leaves open are the control
/// characters of the same number, so any text survives there and back.
std::string ToUtf8(std::string_view text);

/// Whether the text is the same in both, as nearly all of it is.
bool IsAscii(std::string_view text);

/// The capital of a letter of the code page, accented ones too; any other character as it is.
char UpperCase(char character);

}  // namespace fiscalon
