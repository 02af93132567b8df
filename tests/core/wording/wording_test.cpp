#include "core/wording/wording.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

/// A language that knows two texts and no others.
std::optional<std::string> LoudWords(std::string_view english) {
  if (english == "Cancel")
    return "CANCEL!";
  if (english == "From {1} to {2}")
    return "UP TO {2}, FROM {1}!";
  return std::nullopt;
}
constexpr Language kLoud = {"loud", LoudWords};

TEST(Wording, LiteralIsATextOfTheCatalogue) {
  const Wording text = "Cancel";
  EXPECT_EQ(text.English(), "Cancel");
  EXPECT_EQ(text.In(kLoud), "CANCEL!");
}

TEST(Wording, TextWithoutWordsIsShownInEnglish) {
  EXPECT_EQ(Wording("Help").In(kLoud), "Help");
}

TEST(Wording, WhatIsGivenIsTheSameInEveryLanguage) {
  // A biller of that name.
  EXPECT_EQ(AsGiven("Cancel").In(kLoud), "Cancel");
  EXPECT_EQ(AsGiven("Cancel").English(), "Cancel");
}

TEST(Wording, TextsPutTogetherAreNoTextOfTheCatalogue) {
  EXPECT_FALSE((std::is_convertible_v<std::string, Wording>));
  EXPECT_FALSE((std::is_constructible_v<Wording, std::string>));
}

TEST(Filled, PlacesComeInTheOrderOfEachLanguage) {
  const Wording range = Filled("From {1} to {2}", AsGiven("a"), AsGiven("b"));
  EXPECT_EQ(range.English(), "From a to b");
  EXPECT_EQ(range.In(kLoud), "UP TO b, FROM a!");
}

TEST(Filled, TextInAPlaceIsPutIntoWordsToo) {
  EXPECT_EQ(Filled("From {1} to {2}", "Cancel", AsGiven("Cancel")).In(kLoud), "UP TO Cancel, FROM CANCEL!!");
}

TEST(Filled, CaptionInAPlaceIsANameWithoutColonButInEnglish) {
  const Wording refusal = Filled("{1} cannot be negative.", "Instalment Amount:");
  EXPECT_EQ(refusal.English(), "Instalment Amount: cannot be negative.");
  EXPECT_EQ(refusal.In(*NamedLanguage("fr")),
            "Le champ \xAB\xA0Montant de l'acompte provisionnel\xA0\xBB ne peut pas \xEAtre n\xE9gatif.");
}

TEST(Filled, PlaceMayStandTwice) {
  EXPECT_EQ(Filled("{1} and {1}", AsGiven("a")).English(), "a and a");
}

TEST(Filled, PlaceThatNothingFillsStaysAsItIs) {
  EXPECT_EQ(Filled("From {1} to {2}", AsGiven("a")).English(), "From a to {2}");
  EXPECT_EQ(Wording("{1} {").English(), "{1} {");
}

TEST(Filled, WhatFillsAPlaceHasNoPlacesItself) {
  EXPECT_EQ(Filled("{1}{2}", AsGiven("{2}"), AsGiven("b")).English(), "{2}b");
}

}  // namespace
}  // namespace fiscalon
