#include "screens/parts/asked.h"

#include <gtest/gtest.h>

#include <string>

namespace fiscalon {
namespace {

TEST(Asked, IsTheDefaultWhereNothingIsGiven) {
  const Asked<int*> nothing;
  EXPECT_FALSE(nothing.IsGiven());
  EXPECT_EQ(nothing(), nullptr);
  EXPECT_EQ(Asked<std::string>()(), "");
}

TEST(Asked, KeepsAValue) {
  int number = 7;
  const Asked<int*> pointer = &number;
  EXPECT_TRUE(pointer.IsGiven());
  EXPECT_EQ(pointer(), &number);
  const Asked<std::string> text = "Tax";
  EXPECT_EQ(text(), "Tax");
}

TEST(Asked, AsksAFunctionEachTime) {
  int asked = 0;
  const Asked<int> number = [&] { return ++asked; };
  EXPECT_EQ(number(), 1);
  EXPECT_EQ(number(), 2);
}

TEST(Asked, IsCopiedWithWhatItAsks) {
  int number = 1;
  Asked<int> first = [&] { return number; };
  Asked<int> second = first;
  number = 2;
  EXPECT_EQ(second(), 2);
}

}  // namespace
}  // namespace fiscalon
