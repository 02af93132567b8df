#include "core/platform/code_page.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(FromUtf8, KeepsAscii) {
  EXPECT_EQ(FromUtf8("PC4 #1\r\n~\x7F"), "PC4 #1\r\n~\x7F");
}

TEST(FromUtf8, MakesOneByteOfALetterWithAnAccent) {
  EXPECT_EQ(FromUtf8("Hélène Côté"), "H\xE9l\xE8ne C\xF4t\xE9");
  EXPECT_EQ(FromUtf8("Hélène Côté").size(), 11u);
  EXPECT_EQ(FromUtf8("ÿ"), "\xFF");
  EXPECT_EQ(FromUtf8("\u00A0"), "\xA0");
}

TEST(FromUtf8, KnowsTheSignsOfTheCodePage) {
  EXPECT_EQ(FromUtf8("€"), "\x80");
  EXPECT_EQ(FromUtf8("‚ƒ„…†‡ˆ‰Š‹Œ"), "\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C");
  EXPECT_EQ(FromUtf8("Ž‘’“”•–—˜™š›œžŸ"), "\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F");
}

TEST(FromUtf8, LeavesTheFiveOpenPlacesToControlCharacters) {
  EXPECT_EQ(FromUtf8("\u0081\u008D\u008F\u0090\u009D"), "\x81\x8D\x8F\x90\x9D");
}

TEST(FromUtf8, MakesAQuestionMarkOfACharacterWithoutPlace) {
  EXPECT_EQ(FromUtf8("日本"), "??");
  EXPECT_EQ(FromUtf8("\u202F"), "?");
  EXPECT_EQ(FromUtf8("a😀b"), "a?b");
  // The control character of a number whose byte the code page gives to the euro sign.
  EXPECT_EQ(FromUtf8("\u0080"), "?");
}

TEST(FromUtf8, MakesOneQuestionMarkOfEachMalformedSequence) {
  EXPECT_EQ(FromUtf8("a\x80z"), "a?z");
  EXPECT_EQ(FromUtf8("a\xFFz"), "a?z");
  EXPECT_EQ(FromUtf8("\xC3"), "?");
  EXPECT_EQ(FromUtf8("\xC3z"), "?z");
  EXPECT_EQ(FromUtf8("\xE2\x82z"), "?z");
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98"), "?");
  EXPECT_EQ(FromUtf8("\xE2\xC3\xA9"), "?\xE9");
}

TEST(FromUtf8, RefusesOverlongFormsSurrogatesAndNumbersPastTheLast) {
  EXPECT_EQ(FromUtf8("\xC0\xAF"), "??");
  EXPECT_EQ(FromUtf8("\xE0\x80\xAF"), "???");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), "???");
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), "????");
  EXPECT_EQ(FromUtf8("\xF5\x80\x80\x80"), "????");
}

TEST(ToUtf8, WritesEachByteAsItsCharacter) {
  EXPECT_EQ(ToUtf8("H\xE9l\xE8ne C\xF4t\xE9"), "Hélène Côté");
  EXPECT_EQ(ToUtf8("5 \x80 \x96 10 \x80"), "5 € – 10 €");
  EXPECT_EQ(ToUtf8("1\xA0"
                   "234"),
            "1\u00A0234");
}

TEST(CodePage, EveryByteSurvivesThereAndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(CodePage, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(FromUtf8(""), "");
  EXPECT_EQ(ToUtf8(""), "");
}

TEST(UpperCase, IsTheCapitalOfEachLetterOfTheCodePage) {
  const std::string small = "az\xE0\xE9\xF4\xF6\xF8\xFE\x9A\x9C\x9E\xFF";
  std::string capitals;
  for (const char character : small) capitals += UpperCase(character);
  EXPECT_EQ(capitals, "AZ\xC0\xC9\xD4\xD6\xD8\xDE\x8A\x8C\x8E\x9F");
}

TEST(UpperCase, LeavesCapitalsAndAllElseAsTheyAre) {
  for (const char character : std::string("AZ09 @[`{\xC9\xDF\xD7\xF7\x80\x9F\x83"))
    EXPECT_EQ(UpperCase(character), character);
}

}  // namespace
}  // namespace fiscalon
