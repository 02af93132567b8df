#include "core/records/field_values.h"

#include <gtest/gtest.h>

#include <random>

#include "core/values/leading_number.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

TEST(AmountToField, FillsUpToEighteenDigits) {
  EXPECT_EQ(AmountToField(Money{}), "000000000000000000");
  EXPECT_EQ(AmountToField(Money::FromDouble(12345)), "000000000000012345");
}

TEST(AmountToField, WritesAMinusAndSeventeenDigits) {
  EXPECT_EQ(AmountToField(Money::FromDouble(-1)), "-00000000000000001");
  EXPECT_EQ(AmountToField(Money::FromDouble(-1234)), "-00000000000001234");
}

TEST(AmountToField, TwelveDollarsThirtyFourBelowZeroEndIn1234) {
  EXPECT_EQ(AmountToField(Cents("-12.34")), "-00000000000001234");
}

TEST(AmountToField, IsReadBackByTheLeadingNumber) {
  std::mt19937_64 random(3);
  for (int round = 0; round < 2000; ++round) {
    const auto cents = static_cast<double>(static_cast<int64_t>(random() % 2'000'000'000'000) - 1'000'000'000'000);
    const std::string field = AmountToField(Money::FromDouble(cents));
    ASSERT_EQ(field.size(), 18u);
    EXPECT_EQ(LeadingNumber(field), cents);
  }
}

TEST(PadRight, AWidthBelowNothingIsError5) {
  for (const int16_t width : {int16_t{-1}, int16_t{-32768}})
    EXPECT_EQ(ErrorOf([&] { PadRight("ab", width, " "); }), 5) << width;
  EXPECT_EQ(ErrorOf([] { PadRight("ab", 5, ""); }), 5);
}

TEST(PadRight, FillsUpOrCuts) {
  EXPECT_EQ(PadRight("ab", 5, " "), "ab   ");
  EXPECT_EQ(PadRight("ab", 5, "0x"), "ab000");
  EXPECT_EQ(PadRight("abcde", 5, " "), "abcde");
  EXPECT_EQ(PadRight("abcdef", 5, " "), "abcde");
  EXPECT_EQ(PadRight("", 0, " "), "");
}

TEST(Cents, MultipliesAsAFloatAndRoundsToMoney) {
  EXPECT_EQ(Cents("123.45"), Money::FromUnits(12345'0000));
  EXPECT_EQ(Cents("1.15"), Money::FromUnits(115'0000));
  EXPECT_EQ(Cents("12,50"), Money::FromUnits(1200'0000));
  EXPECT_EQ(ErrorOf([] { Cents("9223372036854.78"); }), 6);
}

TEST(DigitsOf, RoundsToWholeNumbersAndPutsTheMinusAheadOfAllDigits) {
  EXPECT_EQ(DigitsOf(Money::FromDouble(12345)), "000000000000012345");
  EXPECT_EQ(DigitsOf(Money::FromDouble(-5000)), "-000000000000005000");
  EXPECT_EQ(DigitsOf(12.5), "000000000000000013");
  EXPECT_EQ(DigitsOf(7.0, "00"), "07");
}

}  // namespace
}  // namespace fiscalon
