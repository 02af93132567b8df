#include "tools/reading/utf8_words.h"

#include "core/platform/code_page.h"
#include "core/wording/places.h"
#include "core/wording/wording.h"

namespace fiscalon {

std::string Utf8Words(std::string_view text, const std::vector<std::string>& places, const Language& language) {
  return WithPlaces(ToUtf8(Wording(text).In(language)), places);
}

}  // namespace fiscalon
