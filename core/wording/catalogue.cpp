#include "core/wording/catalogue.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "core/platform/code_page.h"

namespace fiscalon {
namespace {

// Blanks are typed as ordinary ones: those that end no line are set when a text is asked for.

// clang-format off
constexpr CatalogueText kTexts[] = {
    // On all forms
    {"&OK",     "&OK"},
    {"&Cancel", "&Annuler"},
    {"&Help",   "Aid&e"},
    {"Cancel",  "Annuler"},
    {"Amount to be paid:", "Montant à payer :"},
};
// clang-format on

/// The places of the texts in the table, in the order of their English.
constexpr auto kByEnglish = [] {
  std::array<uint16_t, std::size(kTexts)> places{};
  for (size_t i = 0; i < places.size(); ++i) places[i] = static_cast<uint16_t>(i);
  std::sort(places.begin(), places.end(),
            [](uint16_t left, uint16_t right) { return kTexts[left].english < kTexts[right].english; });
  return places;
}();

const CatalogueText* Found(std::string_view english) {
  const auto found =
      std::lower_bound(kByEnglish.begin(), kByEnglish.end(), english,
                       [](uint16_t place, std::string_view text) { return kTexts[place].english < text; });
  return found == kByEnglish.end() || kTexts[*found].english != english ? nullptr : &kTexts[*found];
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// A blank before a colon, within quotation marks and between the groups of a number ends no line.
bool EndsNoLine(std::string_view text, size_t blank) {
  constexpr char kOpeningQuote = '\xAB';
  constexpr char kClosingQuote = '\xBB';
  const char before = blank == 0 ? '\0' : text[blank - 1];
  const char behind = blank + 1 == text.size() ? '\0' : text[blank + 1];
  return behind == ':' || behind == kClosingQuote || before == kOpeningQuote || (IsDigit(before) && IsDigit(behind));
}

std::string WithNoBreakBlanks(std::string text) {
  constexpr char kNoBreakBlank = '\xA0';
  for (size_t i = 0; i < text.size(); ++i)
    if (text[i] == ' ' && EndsNoLine(text, i))
      text[i] = kNoBreakBlank;
  return text;
}

template <std::string_view CatalogueText::*kColumn>
std::optional<std::string> WordsIn(std::string_view english) {
  const CatalogueText* const text = Found(IsAscii(english) ? english : std::string_view(ToUtf8(english)));
  if (text == nullptr || (text->*kColumn).empty())
    return std::nullopt;
  return WithNoBreakBlanks(FromUtf8(text->*kColumn));
}

constexpr Language kLanguages[] = {
    {"en"},
    {"fr", WordsIn<&CatalogueText::french>},
};

}  // namespace

std::span<const CatalogueText> Catalogue() {
  return kTexts;
}

std::span<const Language> CatalogueLanguages() {
  return kLanguages;
}

}  // namespace fiscalon
