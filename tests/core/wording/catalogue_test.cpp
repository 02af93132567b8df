#include "core/wording/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/platform/code_page.h"
#include "core/wording/wording.h"

namespace fiscalon {
namespace {

/// The columns beside English.
struct Column {
  const char* language;
  std::string_view CatalogueText::*words;
};
constexpr Column kColumns[] = {{"fr", &CatalogueText::french}};

std::set<char> PlacesIn(std::string_view text) {
  std::set<char> places;
  for (size_t i = 0; i + 2 < text.size(); ++i)
    if (text[i] == '{' && text[i + 2] == '}')
      places.insert(text[i + 1]);
  return places;
}

size_t CountOf(std::string_view text, char character) {
  return static_cast<size_t>(std::count(text.begin(), text.end(), character));
}

TEST(Catalogue, TestsEachLanguage) {
  EXPECT_EQ(std::size(kColumns) + 1, CatalogueLanguages().size());
}

TEST(Catalogue, HoldsEachTextOnce) {
  std::set<std::string_view> texts;
  for (const CatalogueText& text : Catalogue()) EXPECT_TRUE(texts.insert(text.english).second) << text.english;
}

TEST(Catalogue, HasWordsForEachText) {
  for (const Column& column : kColumns)
    for (const CatalogueText& text : Catalogue())
      EXPECT_FALSE((text.*column.words).empty()) << column.language << ": " << text.english;
}

TEST(Catalogue, HasTheSamePlacesInAllLanguages) {
  for (const Column& column : kColumns)
    for (const CatalogueText& text : Catalogue())
      EXPECT_EQ(PlacesIn(text.*column.words), PlacesIn(text.english)) << column.language << ": " << text.english;
}

TEST(Catalogue, HasAnAccessKeyWhereTheEnglishHasOne) {
  for (const Column& column : kColumns)
    for (const CatalogueText& text : Catalogue())
      EXPECT_EQ(CountOf(text.*column.words, '&'), CountOf(text.english, '&'))
          << column.language << ": " << text.english;
}

TEST(Catalogue, HasAsManyLinesInAllLanguages) {
  for (const Column& column : kColumns)
    for (const CatalogueText& text : Catalogue())
      EXPECT_EQ(CountOf(text.*column.words, '\n'), CountOf(text.english, '\n'))
          << column.language << ": " << text.english;
}

TEST(Catalogue, LiesWithinTheCodePage) {
  for (const Column& column : kColumns)
    for (const CatalogueText& text : Catalogue()) {
      EXPECT_EQ(ToUtf8(FromUtf8(text.english)), text.english);
      EXPECT_EQ(ToUtf8(FromUtf8(text.*column.words)), text.*column.words) << column.language << ": " << text.english;
    }
}

TEST(Catalogue, SetsBlanksThatEndNoLine) {
  const Language french = *NamedLanguage("fr");
  // Before a colon; "\xA0" is the blank that ends no line.
  EXPECT_EQ(Wording("Amount to be paid:").In(french), "Montant \xE0 payer\xA0:");
}

}  // namespace
}  // namespace fiscalon
