#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <string_view>

#include "core/platform/code_page.h"
#include "core/wording/catalogue.h"
#include "core/wording/wording.h"

namespace fiscalon {
namespace {

// Quebec's typography, in the code page: "\xA0" is the blank that ends no line, "\xAB" and "\xBB" are the quotes.
constexpr std::string_view kNoBreakBlank = "\xA0";

std::string Shown(const CatalogueText& text) {
  return Wording(text.english).In(*NamedLanguage("fr"));
}

TEST(FrenchWords, HaveABlankThatEndsNoLineBeforeEachColon) {
  for (const CatalogueText& text : Catalogue()) {
    const std::string words = Shown(text);
    for (size_t at = words.find(':'); at != std::string::npos; at = words.find(':', at + 1))
      EXPECT_TRUE(at > 0 && words.substr(at - 1, 1) == kNoBreakBlank) << text.french;
  }
}

TEST(FrenchWords, HaveSuchBlanksInsideQuotes) {
  for (const CatalogueText& text : Catalogue()) {
    const std::string words = Shown(text);
    EXPECT_EQ(std::count(words.begin(), words.end(), '\xAB'), std::count(words.begin(), words.end(), '\xBB'))
        << text.french;
    for (size_t at = words.find('\xAB'); at != std::string::npos; at = words.find('\xAB', at + 1))
      EXPECT_EQ(words.substr(at + 1, 1), kNoBreakBlank) << text.french;
    for (size_t at = words.find('\xBB'); at != std::string::npos; at = words.find('\xBB', at + 1))
      EXPECT_EQ(words.substr(at - 1, 1), kNoBreakBlank) << text.french;
  }
}

/// An apostrophe stands between letters, behind the first word of two: one that doesn't is a quote of English.
bool IsElision(std::string_view text, size_t apostrophe) {
  const auto isLetter = [&](size_t at) {
    const auto code = at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
    return std::isalpha(code) != 0 || code >= 0x80;
  };
  return apostrophe > 0 && isLetter(apostrophe - 1) &&
         (isLetter(apostrophe + 1) || std::string_view("{&").find(text[apostrophe + 1]) != std::string_view::npos);
}

TEST(FrenchWords, QuoteAsFrenchDoes) {
  for (const CatalogueText& text : Catalogue()) {
    for (const char* quote : {"\"", "\u201C", "\u201D", "\u2018", "``"})
      EXPECT_EQ(text.french.find(quote), std::string_view::npos) << text.french;
    for (size_t at = text.french.find('\''); at != std::string_view::npos; at = text.french.find('\'', at + 1))
      EXPECT_TRUE(IsElision(text.french, at)) << text.french;
  }
}

TEST(FrenchWords, QuoteWhateverTheEnglishQuote) {
  const auto quoted = [](const char* opening, char place, const char* closing) {
    return std::string(opening) + "{" + place + "}" + closing;
  };
  for (const CatalogueText& text : Catalogue())
    for (const char place : {'1', '2', '3'}) {
      const bool englishQuotes = text.english.find(quoted("\"", place, "\"")) != std::string_view::npos;
      const bool frenchQuotes = text.french.find(quoted("« ", place, " »")) != std::string_view::npos;
      EXPECT_TRUE(frenchQuotes || !englishQuotes) << text.french;
    }
}

TEST(FrenchWords, HaveNoBlankBeforeOtherMarks) {
  for (const CatalogueText& text : Catalogue())
    for (const char* mark : {" ;", " !", " ?", " .", " ,"})
      EXPECT_EQ(text.french.find(mark), std::string_view::npos) << text.french;
}

TEST(FrenchWords, HaveTheApostropheOfTheKeyboard) {
  for (const CatalogueText& text : Catalogue()) EXPECT_EQ(text.french.find("\u2019"), std::string_view::npos);
}

TEST(FrenchWords, EndWithAColonWhereTheEnglishDo) {
  for (const CatalogueText& text : Catalogue())
    EXPECT_EQ(text.french.ends_with(':'), text.english.ends_with(':')) << text.french;
}

}  // namespace
}  // namespace fiscalon
