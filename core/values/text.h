#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// The text without the blanks at its start. Tabs, line ends and no-break spaces are no blanks.
constexpr std::string_view TrimLeft(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

/// The text without the blanks at its end.
constexpr std::string_view TrimRight(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// The text without the blanks at either side.
constexpr std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

constexpr bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Whether the text is digits alone, at least one.
constexpr bool AreDigits(std::string_view text) {
  for (const char character : text)
    if (!IsDigit(character))
      return false;
  return !text.empty();
}

/// Whether nothing but blanks stands in the text, or nothing at all.
constexpr bool AreBlanks(std::string_view text) {
  return Trim(text).empty();
}

/// The text with a blank for each character that would end a line or has no look, those under 32: what stands on one
/// line stays there.
inline std::string OnOneLine(std::string text) {
  // Every character gets a value, changed or not: compilers then take many at once.
  for (char& character : text) character = static_cast<unsigned char>(character) < ' ' ? ' ' : character;
  return text;
}

}  // namespace fiscalon
