#include "core/values/text.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(Trim, TakesBlanksFromBothSides) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(TrimLeft("  a b  "), "a b  ");
  EXPECT_EQ(TrimRight("  a b  "), "  a b");
}

TEST(Trim, OfBlanksAloneIsEmpty) {
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(TrimLeft("   "), "");
  EXPECT_EQ(TrimRight("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(AreDigits, TakesDigitsAloneAndAtLeastOne) {
  EXPECT_TRUE(AreDigits("0123456789"));
  for (const char* text : {"", " ", "1 ", " 1", "1a", "-1", "1.0", "/", ":", "\xB2"})
    EXPECT_FALSE(AreDigits(text)) << text;
}

TEST(AreBlanks, TakesNothingToo) {
  EXPECT_TRUE(AreBlanks(""));
  EXPECT_TRUE(AreBlanks("  "));
  for (const char* text : {" a", "a ", "\t", "\xA0"}) EXPECT_FALSE(AreBlanks(text)) << text;
}

TEST(Trim, LeavesOtherWhiteSpace) {
  EXPECT_EQ(Trim(" \ta\r\n "), "\ta\r\n");
  EXPECT_EQ(Trim("\xA0"), "\xA0");
}

}  // namespace
}  // namespace fiscalon
