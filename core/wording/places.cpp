#include "core/wording/places.h"

namespace fiscalon {
namespace {

/// Of "{1}" at that position the 1; 0 where no place stands there.
size_t PlaceAt(std::string_view text, size_t at) {
  const bool isPlace =
      at + 2 < text.size() && text[at] == '{' && text[at + 1] >= '1' && text[at + 1] <= '9' && text[at + 2] == '}';
  return isPlace ? static_cast<size_t>(text[at + 1] - '0') : 0;
}

}  // namespace

std::string WithPlaces(std::string_view text, const std::vector<std::string>& held) {
  constexpr size_t kPlaceLength = 3;
  std::string filled;
  for (size_t at = 0; at < text.size();) {
    const size_t place = PlaceAt(text, at);
    const bool isHeld = place != 0 && place <= held.size();
    if (isHeld)
      filled += held[place - 1];
    else
      filled += text[at];
    at += isHeld ? kPlaceLength : 1;
  }
  return filled;
}

std::string WithoutColon(std::string_view caption) {
  constexpr std::string_view kBlanks = " \xA0";
  while (caption.ends_with(':')) {
    caption.remove_suffix(1);
    caption = caption.substr(0, caption.find_last_not_of(kBlanks) + 1);
  }
  return std::string(caption);
}

}  // namespace fiscalon
