#include "core/wording/language.h"

#include <algorithm>

#include "core/wording/catalogue.h"

namespace fiscalon {

std::optional<Language> NamedLanguage(std::string_view name) {
  const auto languages = CatalogueLanguages();
  const auto found =
      std::find_if(languages.begin(), languages.end(), [&](const Language& language) { return language.name == name; });
  return found == languages.end() ? std::nullopt : std::optional(*found);
}

std::vector<std::string_view> LanguageNames() {
  std::vector<std::string_view> names;
  for (const Language& language : CatalogueLanguages()) names.push_back(language.name);
  return names;
}

}  // namespace fiscalon
