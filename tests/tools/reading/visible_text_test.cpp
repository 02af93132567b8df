#include "tools/reading/visible_text.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(IsPlain, LooksAtEachCharacterOfATextOfAnyLength) {
  for (size_t length = 0; length <= 40; ++length) {
    std::string text(length, '~');
    EXPECT_TRUE(IsPlain(text)) << length;
    for (char& character : text) {
      for (int code = 0; code < 256; ++code) {
        character = static_cast<char>(code);
        EXPECT_EQ(IsPlain(text), code >= 0x20 && code <= 0x7E) << length << ", " << code;
      }
      character = ' ';
    }
  }
}

std::string Dots(size_t count) {
  std::string dots;
  for (size_t i = 0; i < count; ++i) dots += "\u00B7";
  return dots;
}

TEST(DottedText, ShowsTheBlanksAtBothEndsHoweverMany) {
  EXPECT_EQ(DottedText(""), "\"\"");
  EXPECT_EQ(DottedText(" a b  "), "\"\u00B7a b\u00B7\u00B7\"");
  for (const size_t blanks : {1u, 59u, 60u, 61u, 120u, 121u, 300u}) {
    EXPECT_EQ(DottedText("a" + std::string(blanks, ' ')), "\"a" + Dots(blanks) + '"');
    EXPECT_EQ(DottedText(std::string(blanks, ' ') + "a"), '"' + Dots(blanks) + "a\"");
  }
}

TEST(DottedText, OfBlanksAloneIsThatOfSoManyBlanks) {
  for (const size_t blanks : {0u, 1u, 59u, 60u, 61u, 120u, 121u, 300u}) {
    std::string appended;
    AppendDottedBlanks(appended, blanks);
    EXPECT_EQ(appended, '"' + Dots(blanks) + '"');
    EXPECT_EQ(DottedText(std::string(blanks, ' ')), appended);
  }
}

}  // namespace
}  // namespace fiscalon
