#include "core/wording/wording.h"

#include "core/wording/places.h"

namespace fiscalon {

std::string Wording::In(const Language& language) const {
  if (isGiven_ || text_.empty())
    return text_;
  std::string words = language.IsEnglish() ? text_ : language.wordsFor(text_).value_or(text_);
  if (places_.empty())
    return words;
  std::vector<std::string> held;
  // English texts have always shown the colon of a caption.
  for (const Wording& place : places_)
    held.push_back(language.IsEnglish() || place.isGiven_ ? place.In(language) : WithoutColon(place.In(language)));
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
