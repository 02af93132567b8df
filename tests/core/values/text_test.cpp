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

TEST(Trim, LeavesOtherWhiteSpace) {
  EXPECT_EQ(Trim(" \ta\r\n "), "\ta\r\n");
  EXPECT_EQ(Trim("\xA0"), "\xA0");
}

}  // namespace
}  // namespace fiscalon
