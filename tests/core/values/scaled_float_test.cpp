#include "core/values/scaled_float.h"

#include <gtest/gtest.h>

#include <random>

namespace fiscalon {
namespace {

/// The halves of an integer of either kind.
template <typename Wide>
std::pair<uint64_t, uint64_t> Words(const Wide& number) {
  return {static_cast<uint64_t>(number >> 64), static_cast<uint64_t>(number)};
}

TEST(TwoWords, CarryFromTheLowWordToTheHighOne) {
  constexpr uint64_t kFull = ~uint64_t{0};
  EXPECT_EQ(Words((TwoWords(3) << 64) + (TwoWords(4) << 64)), std::pair(uint64_t{7}, uint64_t{0}));
  EXPECT_EQ(Words(TwoWords(kFull) + 1), std::pair(uint64_t{1}, uint64_t{0}));
  EXPECT_EQ(Words((TwoWords(1) << 64) - 1), std::pair(uint64_t{0}, kFull));
  // The square of 2^64 - 1 is 2^128 - 2^65 + 1.
  EXPECT_EQ(Words(TwoWords(kFull) * kFull), std::pair(kFull - 1, uint64_t{1}));
  EXPECT_EQ(Words((TwoWords(3) << 64) * 5), std::pair(uint64_t{15}, uint64_t{0}));
}

TEST(TwoWords, ShiftAcrossTheWords) {
  EXPECT_EQ(Words(TwoWords(3) << 63), std::pair(uint64_t{1}, uint64_t{1} << 63));
  EXPECT_EQ(Words(TwoWords(3) << 127), std::pair(uint64_t{1} << 63, uint64_t{0}));
  EXPECT_EQ(Words((TwoWords(3) << 127) >> 127), std::pair(uint64_t{0}, uint64_t{1}));
  EXPECT_EQ(Words((TwoWords(3) << 64) >> 1), std::pair(uint64_t{1}, uint64_t{1} << 63));
  EXPECT_EQ(Words(TwoWords(3) << 0), std::pair(uint64_t{0}, uint64_t{3}));
  EXPECT_EQ(Words(TwoWords(3) >> 0), std::pair(uint64_t{0}, uint64_t{3}));
}

TEST(TwoWords, CompareByTheHighWordFirst) {
  EXPECT_LT(TwoWords(5), TwoWords(1) << 64);
  EXPECT_LT(TwoWords(5), TwoWords(6));
  EXPECT_EQ(Words((TwoWords(7) << 64) & (TwoWords(2) << 64)), std::pair(uint64_t{2}, uint64_t{0}));
}

template <typename Wide>
class ScaledHalfEvenTest : public testing::Test {};
using Wides = testing::Types<WideInteger, TwoWords>;
TYPED_TEST_SUITE(ScaledHalfEvenTest, Wides);

TYPED_TEST(ScaledHalfEvenTest, RoundsHalvesToEven) {
  const auto scaled = [](double value, int decimals) {
    return static_cast<uint64_t>(ScaledHalfEven<TypeParam>(value, decimals));
  };
  EXPECT_EQ(scaled(0.125, 2), 12U);
  EXPECT_EQ(scaled(0.375, 2), 38U);
  EXPECT_EQ(scaled(2.5, 0), 2U);
  EXPECT_EQ(scaled(3.5, 0), 4U);
  // The float nearest to 0.145 is a little below, that nearest to 1.005 too.
  EXPECT_EQ(scaled(0.145, 2), 14U);
  EXPECT_EQ(scaled(1.005, 2), 100U);
  EXPECT_EQ(scaled(0, 4), 0U);
  EXPECT_EQ(scaled(5e-324, 22), 0U);
}

TYPED_TEST(ScaledHalfEvenTest, HoldsTheLargestProduct) {
  // 999,999,999,999,999 times ten to the power of 22 is 10^37 - 10^22.
  TypeParam expected = TypeParam{1'000'000'000'000'000'000} * 10;
  expected = expected * 1'000'000'000'000'000'000 - TypeParam{1'000'000'000'000'000'000} * 10'000;
  EXPECT_EQ(Words(ScaledHalfEven<TypeParam>(999'999'999'999'999, 22)), Words(expected));
}

TEST(ScaledHalfEven, IsTheSameByEitherKindOfInteger) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 100'000; ++i) {
    const double value = static_cast<double>(random() % 1'000'000'000'000'000) / static_cast<double>(1 << (i % 31));
    const int decimals = i % (kMaxScale + 1);
    ASSERT_EQ(Words(ScaledHalfEven(value, decimals)), Words(ScaledHalfEven<TwoWords>(value, decimals)))
        << value << " by " << decimals;
  }
}

}  // namespace
}  // namespace fiscalon
