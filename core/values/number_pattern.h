#pragma once

#include <cstddef>
#include <string_view>

namespace fiscalon {

/// A pattern for numbers, taken apart: "$#,##0.00-" has the literals "$" and "-" around grouped places, at least
/// one digit before the point and two behind it.
struct NumberPattern {
  std::string_view prefix = {};
  std::string_view suffix = {};
  /// Digits that show even where they are zero, and the most that stand behind the point.
  size_t leastWhole = 0;
  size_t leastDecimals = 0;
  size_t mostDecimals = 0;
  bool point = false;
  bool places = false;
  bool grouped = false;
};

constexpr bool IsPlace(char c) {
  return c == '0' || c == '#';
}

/// Takes a pattern apart. One without any place for a digit is all prefix.
constexpr NumberPattern ParseNumberPattern(std::string_view pattern) {
  size_t start = 0;
  while (start < pattern.size() && !IsPlace(pattern[start])) ++start;
  if (start == pattern.size())
    return {.prefix = pattern};
  if (start > 0 && pattern[start - 1] == '.')
    --start;
  NumberPattern parsed = {.prefix = pattern.substr(0, start), .places = true};
  size_t at = start;
  for (; at < pattern.size(); ++at) {
    const char place = pattern[at];
    if (!IsPlace(place) && place != '.' && place != ',')
      break;
    if (place == '.') {
      // A second point is a literal like any other character behind the places.
      if (parsed.point)
        break;
      parsed.point = true;
    } else if (place == ',') {
      parsed.grouped = parsed.grouped || !parsed.point;
    } else if (parsed.point) {
      ++parsed.mostDecimals;
      if (place == '0')
        parsed.leastDecimals = parsed.mostDecimals;
    } else if (place == '0' || parsed.leastWhole > 0) {
      ++parsed.leastWhole;
    }
  }
  parsed.suffix = pattern.substr(at);
  return parsed;
}

}  // namespace fiscalon
