#include "core/platform/locale.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(NamedLocale, KnowsTheBuiltInOnes) {
  EXPECT_EQ(NamedLocale("en-CA"), EnglishCanada());
  EXPECT_EQ(NamedLocale("en-US"), EnglishUnitedStates());
  EXPECT_EQ(NamedLocale("fr-CA"), FrenchCanada());
  EXPECT_EQ(NamedLocale("system"), SystemLocale());
  EXPECT_EQ(NamedLocale("de-DE"), std::nullopt);
  EXPECT_EQ(NamedLocale(""), std::nullopt);
}

TEST(Locale, OfFrenchCanadaIsInTheCodePage) {
  EXPECT_EQ(FrenchCanada().group, "\xA0");
  EXPECT_EQ(FrenchCanada().months[7], "ao\xFBt");
  EXPECT_EQ(FrenchCanada().shortMonths[1], "f\xE9vr.");
}

}  // namespace
}  // namespace fiscalon
