#include "core/values/decimal_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace fiscalon {
namespace {

/// "digits@point", with the sign.
std::string Described(const DecimalText& number) {
  std::string text(number.IsNegative() ? "-" : "");
  return text.append(number.Digits()).append("@").append(std::to_string(number.Point()));
}

void Read(DecimalText& number, std::string_view text, int64_t exponent = 0) {
  for (const char c : text) {
    if (c == '.')
      number.MarkPoint();
    else
      number.AddDigit(c);
  }
  number.Finish(exponent);
}

std::string RoundedAway(std::string_view text, int decimals) {
  DecimalText number;
  Read(number, text);
  number.RoundHalfAway(decimals);
  return Described(number);
}

TEST(DecimalText, OfAFloatHasFifteenDigits) {
  EXPECT_EQ(Described(DecimalText(123.45)), "12345@3");
  EXPECT_EQ(Described(DecimalText(-0.05)), "-5@-1");
  EXPECT_EQ(Described(DecimalText(1.0 / 3)), "333333333333333@0");
  EXPECT_EQ(Described(DecimalText(0.1 + 0.2)), "3@0");
  EXPECT_EQ(Described(DecimalText(-0.0)), "@0");
  EXPECT_EQ(Described(DecimalText(1e300)), "1@301");
  EXPECT_EQ(Described(DecimalText(4e-324)), "494065645841247@-323");
}

TEST(DecimalText, OfAFloatCarriesIntoThePlaceBefore) {
  EXPECT_EQ(Described(DecimalText(0.9999999999999999)), "1@1");
  EXPECT_EQ(Described(DecimalText(99999999999999.99)), "1@15");
  EXPECT_EQ(Described(DecimalText(999999999999999.9)), "1@16");
}

TEST(DecimalText, OfAnAmountHasAllItsDigits) {
  EXPECT_EQ(Described(DecimalText(Money::FromUnits(1234500))), "12345@3");
  EXPECT_EQ(Described(DecimalText(Money::FromUnits(-1))), "-1@-3");
  EXPECT_EQ(Described(DecimalText(Money())), "@0");
  EXPECT_EQ(Described(DecimalText(Money::FromUnits(std::numeric_limits<int64_t>::min()))), "-9223372036854775808@15");
}

TEST(DecimalText, ReadsDigitsWithoutTheZerosAtEitherEnd) {
  const auto read = [](std::string_view text, int64_t exponent) {
    DecimalText number;
    Read(number, text, exponent);
    return Described(number);
  };
  EXPECT_EQ(read("0012.3400", 0), "1234@2");
  EXPECT_EQ(read("0.0012", 0), "12@-2");
  EXPECT_EQ(read("1200", 2), "12@6");
  EXPECT_EQ(read("000.000", 7), "@0");
}

TEST(DecimalText, RemembersThatThereWasMoreThanItKeeps) {
  DecimalText number;
  Read(number, std::string(DecimalText::kCapacity, '2') + "0001");
  EXPECT_EQ(number.Digits().size(), DecimalText::kCapacity + 1);
  EXPECT_EQ(number.Digits().back(), '1');
  EXPECT_EQ(number.Point(), static_cast<int64_t>(DecimalText::kCapacity + 4));
}

TEST(DecimalText, RoundsHalvesAway) {
  EXPECT_EQ(RoundedAway("12.345", 2), "1235@2");
  EXPECT_EQ(RoundedAway("12.3449", 2), "1234@2");
  EXPECT_EQ(RoundedAway("12.3049", 2), "123@2");
  EXPECT_EQ(RoundedAway("12.395", 2), "124@2");
  EXPECT_EQ(RoundedAway("99.995", 2), "1@3");
  EXPECT_EQ(RoundedAway("0.5", 0), "1@1");
  EXPECT_EQ(RoundedAway("0.05", 0), "@0");
  EXPECT_EQ(RoundedAway("0.49", 0), "@0");
  EXPECT_EQ(RoundedAway("0.004", 2), "@0");
  EXPECT_EQ(RoundedAway("0.005", 2), "1@-1");
  EXPECT_EQ(RoundedAway("1.5", 4), "15@1");
}

std::optional<int64_t> Scaled(std::string_view text, int decimals) {
  DecimalText number;
  Read(number, text);
  return number.ScaledHalfEven(decimals);
}

TEST(DecimalText, ScalesHalvesToEven) {
  EXPECT_EQ(Scaled("2.5", 0), 2);
  EXPECT_EQ(Scaled("3.5", 0), 4);
  EXPECT_EQ(Scaled("2.51", 0), 3);
  EXPECT_EQ(Scaled("0.5", 0), 0);
  EXPECT_EQ(Scaled("0.51", 0), 1);
  EXPECT_EQ(Scaled("0.05", 0), 0);
  EXPECT_EQ(Scaled("12", 2), 1200);
}

TEST(DecimalText, ScalesNothingOutOfRange) {
  EXPECT_EQ(Scaled("9223372036854775807", 0), std::numeric_limits<int64_t>::max());
  EXPECT_EQ(Scaled("9223372036854775807.5", 0), std::nullopt);
  EXPECT_EQ(Scaled("9999999999999999999.5", 0), std::nullopt);
  EXPECT_EQ(Scaled("18446744073709551616", 0), std::nullopt);
}

/// The digits as the standard library prints them: the slow way, and one of others' making.
std::string Printed(double value) {
  char printed[64];
  const auto end =
      std::to_chars(printed, printed + sizeof printed, std::fabs(value), std::chars_format::scientific, 14).ptr;
  const std::string all(printed, end);
  const size_t e = all.find('e');
  std::string digits = all.substr(0, 1) + all.substr(2, e - 2);
  digits.erase(digits.find_last_not_of('0') + 1);
  std::string text(value < 0 ? "-" : "");
  return text.append(digits).append("@").append(std::to_string(std::stoi(all.substr(e + 1)) + 1));
}

TEST(DecimalText, OfRandomFloatsIsWhatTheStandardLibraryPrints) {
  std::mt19937_64 random(20260615);
  for (int i = 0; i < 200'000; ++i) {
    const double cents = static_cast<double>(1 + random() % 100'000'000'000) / 100;
    const double anySize = std::ldexp(static_cast<double>(random() | 1), static_cast<int>(random() % 200) - 160);
    for (const double value : {cents, anySize, -std::nextafter(cents, 1e300)})
      ASSERT_EQ(Described(DecimalText(value)), Printed(value)) << value;
  }
}

TEST(DecimalText, OfPowersOfTenAndTheirNeighboursIsWhatTheStandardLibraryPrints) {
  for (int exponent = -30; exponent <= 30; ++exponent) {
    const double power = std::pow(10, exponent);
    for (const double value : {power, std::nextafter(power, 0), std::nextafter(power, 1e300), power / 2, power * 5})
      EXPECT_EQ(Described(DecimalText(value)), Printed(value)) << value;
  }
  // Halves at the sixteenth digit.
  for (const double value : {123456789012344.5, 123456789012345.5, 99999999999999.25, 12345678901234.75})
    EXPECT_EQ(Described(DecimalText(value)), Printed(value)) << value;
}

TEST(DecimalText, GivesItsFloat) {
  DecimalText number;
  Read(number, "1234.5");
  EXPECT_EQ(number.ToDouble(), 1234.5);
  DecimalText huge;
  Read(huge, "1", 309);
  EXPECT_EQ(huge.ToDouble(), std::nullopt);
  DecimalText largest;
  Read(largest, "1.7976931348623157", 308);
  EXPECT_EQ(largest.ToDouble(), std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace fiscalon
