#include "core/wording/wording.h"

namespace fiscalon {
namespace {

/// Of "{1}" at that position the 1; 0 where no place stands there.
size_t PlaceAt(std::string_view text, size_t at) {
  const bool isPlace =
      at + 2 < text.size() && text[at] == '{' && text[at + 1] >= '1' && text[at + 1] <= '9' && text[at + 2] == '}';
  return isPlace ? static_cast<size_t>(text[at + 1] - '0') : 0;
}

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

}  // namespace

std::string Wording::In(const Language& language) const {
  if (isGiven_ || text_.empty())
    return text_;
  std::string words = language.IsEnglish() ? text_ : language.wordsFor(text_).value_or(text_);
  if (places_.empty())
    return words;
  std::vector<std::string> held;
  for (const Wording& place : places_) held.push_back(place.In(language));
  return WithPlaces(words, held);
}

Wording AsGiven(std::string text) {
  Wording wording;
  wording.text_ = std::move(text);
  wording.isGiven_ = true;
  return wording;
}

Wording Filled(std::string_view text, std::vector<Wording> places) {
  Wording wording(text);
  wording.places_ = std::move(places);
  return wording;
}

}  // namespace fiscalon
