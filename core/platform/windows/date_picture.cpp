#include "core/platform/windows/date_picture.h"

#include <algorithm>
#include <iterator>

namespace fiscalon {

namespace {

/// What one, two, three, and four or more of a letter stand for.
struct Field {
  char letter = 0;
  std::string_view tokens[4] = {};
};

// The mark of half a day is always whole, and an era has no token.
constexpr Field kFields[] = {
    {'d', {"%-d", "%d", "%a", "%A"}}, {'M', {"%-m", "%m", "%b", "%B"}}, {'y', {"%y", "%y", "%Y", "%Y"}},
    {'h', {"%-I", "%I", "%I", "%I"}}, {'H', {"%-H", "%H", "%H", "%H"}}, {'m', {"%-M", "%M", "%M", "%M"}},
    {'s', {"%-S", "%S", "%S", "%S"}}, {'t', {"%p", "%p", "%p", "%p"}},  {'g', {"", "", "", ""}},
};

}  // namespace

std::string PatternOfPicture(std::string_view picture) {
  std::string pattern;
  bool isQuoted = false;
  for (size_t at = 0; at < picture.size();) {
    const char character = picture[at];
    if (character == '\'') {
      // Two quotes are one that is meant.
      const bool isMeant = picture.substr(at, 2) == "''";
      pattern.append(isMeant ? "'" : "");
      isQuoted = isQuoted != !isMeant;
      at += isMeant ? 2 : 1;
      continue;
    }
    const auto field = std::find_if(std::begin(kFields), std::end(kFields),
                                    [&](const Field& candidate) { return candidate.letter == character; });
    if (isQuoted || field == std::end(kFields)) {
      pattern.append(character == '%' ? "%%" : std::string(1, character));
      ++at;
      continue;
    }
    const size_t count = std::min(picture.find_first_not_of(character, at), picture.size()) - at;
    pattern += field->tokens[std::min<size_t>(count, std::size(field->tokens)) - 1];
    at += count;
  }
  return pattern;
}

}  // namespace fiscalon
