#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscalon {

/// A language in which forms are shown: what a user reads, and nothing else. Numbers and dates go by the locale.
struct Language {
  /// What `UseLanguage` calls it.
  std::string_view name = "en";
  /// The words for a text of the library, in the code page; nothing where it has none, and the text is shown in
  /// English. Null for English, in which texts are their own words.
  std::optional<std::string> (*wordsFor)(std::string_view english) = nullptr;

  bool IsEnglish() const { return wordsFor == nullptr; }
};

/// The language of that name, of those that the catalogue has; nothing for another name.
std::optional<Language> NamedLanguage(std::string_view name);

/// The names of these languages, English first.
std::vector<std::string_view> LanguageNames();

}  // namespace fiscalon
