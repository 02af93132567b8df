#include "core/boolean.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

TEST(Boolean, TakesABoolForTrueOrFalse) {
  EXPECT_EQ(int16_t{Boolean(true)}, -1);
  EXPECT_EQ(int16_t{Boolean(false)}, 0);
  EXPECT_EQ(int16_t{Boolean()}, 0);
}

TEST(Boolean, KeepsANumberThatNumber) {
  for (const int number : {1, -1, 0, 2, -2, 32767, -32768}) EXPECT_EQ(int{Boolean(number)}, number);
  EXPECT_EQ(int16_t{Boolean(int16_t{7})}, 7);
  EXPECT_EQ(int16_t{Boolean(1L)}, 1);
}

TEST(Boolean, TakesAllBitsForTrueWithAndWithoutASign) {
  EXPECT_EQ(int16_t{Boolean(uint16_t{0xFFFF})}, -1);
  EXPECT_EQ(int16_t{Boolean(int16_t{-1})}, -1);
}

TEST(Boolean, RefusesANumberOfMoreBits) {
  for (const int number : {32768, 65535, 65536, -32769}) EXPECT_EQ(ErrorOf([&] { Boolean{number}; }), 6) << number;
}

TEST(Boolean, ComparesWithNumbersAsANumber) {
  EXPECT_TRUE(Boolean(1) == 1);
  EXPECT_FALSE(Boolean(1) == kTrue);
  EXPECT_TRUE(Boolean(true) == kTrue);
  EXPECT_TRUE(kFalse == Boolean(false));
  EXPECT_TRUE(Boolean(-2) != kTrue);
  EXPECT_TRUE(Boolean(5) == Boolean(5));
}

TEST(Boolean, ComparesWithABoolExactly) {
  EXPECT_TRUE(Boolean(kTrue) == true);
  EXPECT_FALSE(Boolean(1) == true);
  EXPECT_FALSE(Boolean(1) == false);
  EXPECT_TRUE(Boolean(0) == false);
}

TEST(Boolean, IsTrueForCppUnlessItIsZero) {
  EXPECT_TRUE(Boolean(1) ? true : false);
  EXPECT_FALSE(Boolean(false) ? true : false);
}

// What a C++ bool would swallow: a text, an amount, a place.
static_assert(!std::is_convertible_v<const char*, Boolean>);
static_assert(!std::is_convertible_v<std::string, Boolean>);
static_assert(!std::is_convertible_v<double, Boolean>);
static_assert(!std::is_convertible_v<std::nullptr_t, Boolean>);

}  // namespace
}  // namespace fiscalon
