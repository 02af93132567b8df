#include "core/wording/language.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/wording/wording.h"

namespace fiscalon {
namespace {

TEST(NamedLanguage, EnglishIsTheTextsThemselves) {
  EXPECT_TRUE(NamedLanguage("en")->IsEnglish());
  EXPECT_TRUE(Language().IsEnglish());
}

TEST(NamedLanguage, FrenchHasItsWords) {
  const std::optional<Language> french = NamedLanguage("fr");
  ASSERT_TRUE(french);
  EXPECT_EQ(Wording("Cancel").In(*french), "Annuler");
}

TEST(NamedLanguage, KnowsNamesToTheLetter) {
  for (const char* name : {"", "FR", "fr-CA", "french", "de"}) EXPECT_FALSE(NamedLanguage(name)) << name;
}

TEST(LanguageNames, EnglishIsFirst) {
  EXPECT_THAT(LanguageNames(), testing::ElementsAre("en", "fr"));
}

}  // namespace
}  // namespace fiscalon
