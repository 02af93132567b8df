#include "core/platform/locale.h"

#include <algorithm>

#include "core/platform/code_page.h"

namespace fiscalon {

namespace {

constexpr std::string_view kNoBreakSpace = "\xA0";

template <size_t Size>
std::array<std::string, Size> InCodePage(const std::array<std::string_view, Size>& names) {
  std::array<std::string, Size> texts;
  std::transform(names.begin(), names.end(), texts.begin(), [](std::string_view name) { return FromUtf8(name); });
  return texts;
}

constexpr std::array<std::string_view, 12> kFrenchMonths = {"janvier",   "février", "mars",     "avril",
                                                            "mai",       "juin",    "juillet",  "août",
                                                            "septembre", "octobre", "novembre", "décembre"};
constexpr std::array<std::string_view, 12> kFrenchShortMonths = {"janv.",  "févr.", "mars",  "avr.", "mai",  "juin",
                                                                 "juill.", "août",  "sept.", "oct.", "nov.", "déc."};

}  // namespace

Locale EnglishCanada() {
  return {};
}

Locale EnglishUnitedStates() {
  return {.name = "en-US",
          .negativePrefix = "($",
          .negativeSuffix = ")",
          .generalDate = "%-m/%-d/%Y %-I:%M:%S %p",
          .am = "AM",
          .pm = "PM"};
}

Locale FrenchCanada() {
  return {.name = "fr-CA",
          .decimal = ",",
          .group = std::string(kNoBreakSpace),
          .positivePrefix = "",
          .positiveSuffix = " $",
          .negativePrefix = "(",
          .negativeSuffix = " $)",
          .generalDate = "%Y-%m-%d %H:%M:%S",
          .am = "",
          .pm = "",
          .months = InCodePage(kFrenchMonths),
          .shortMonths = InCodePage(kFrenchShortMonths),
          .weekdays = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"},
          .shortWeekdays = {"dim.", "lun.", "mar.", "mer.", "jeu.", "ven.", "sam."}};
}

std::optional<Locale> NamedLocale(std::string_view name) {
  if (name == "en-CA")
    return EnglishCanada();
  if (name == "en-US")
    return EnglishUnitedStates();
  if (name == "fr-CA")
    return FrenchCanada();
  if (name == kSystemLocaleName)
    return SystemLocale();
  return std::nullopt;
}

}  // namespace fiscalon
