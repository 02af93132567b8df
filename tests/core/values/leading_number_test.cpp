#include "core/values/leading_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

TEST(LeadingNumber, ReadsAsFarAsTheNumberGoes) {
  EXPECT_EQ(LeadingNumber("12.5abc"), 12.5);
  EXPECT_EQ(LeadingNumber("1,234"), 1);
  EXPECT_EQ(LeadingNumber("123.45"), 123.45);
  EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
  EXPECT_EQ(LeadingNumber("12-"), 12);
  EXPECT_EQ(LeadingNumber("5$"), 5);
  EXPECT_EQ(LeadingNumber("0x10"), 0);
}

TEST(LeadingNumber, IsZeroWithoutANumber) {
  for (const char* text : {"", "abc", "   ", ".", "-", "+.", "e5", ".e5", "$5", "(5)", "--5", "+-5", ",5"})
    EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(LeadingNumber, PassesOverBlanksTabsAndLineFeeds) {
  EXPECT_EQ(LeadingNumber("  12"), 12);
  EXPECT_EQ(LeadingNumber("1 2\t3\n4"), 1234);
  EXPECT_EQ(LeadingNumber(" - 1 . 5 e 1 "), -15);
  EXPECT_EQ(LeadingNumber("1 e - 1"), 0.1);
}

TEST(LeadingNumber, StopsAtOtherWhiteSpace) {
  EXPECT_EQ(LeadingNumber("1\r2"), 1);
  EXPECT_EQ(LeadingNumber("1\v2"), 1);
  EXPECT_EQ(LeadingNumber("1\xA0"
                          "2"),
            1);
  EXPECT_EQ(LeadingNumber("\r2"), 0);
  EXPECT_EQ(LeadingNumber(std::string_view("1\0002", 3)), 1);
}

TEST(LeadingNumber, TakesOneSign) {
  EXPECT_EQ(LeadingNumber("-12.5"), -12.5);
  EXPECT_EQ(LeadingNumber("+12.5"), 12.5);
}

TEST(LeadingNumber, TakesAPointOnEitherSide) {
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("-.5"), -0.5);
  EXPECT_EQ(LeadingNumber("5."), 5);
}

TEST(LeadingNumber, EndsAtTheCharactersBesideDigitsAndThePoint) {
  EXPECT_EQ(LeadingNumber("1:2"), 1);
  EXPECT_EQ(LeadingNumber("1/2"), 1);
  EXPECT_EQ(LeadingNumber("1-2"), 1);
}

TEST(LeadingNumber, ReadsNothingBehindTheText) {
  EXPECT_EQ(LeadingNumber(std::string_view("1e23").substr(0, 3)), 100);
}

TEST(LeadingNumber, OfASignAloneIsAPlainZero) {
  EXPECT_EQ(LeadingNumber("-"), 0);
  EXPECT_FALSE(std::signbit(LeadingNumber("-")));
}

TEST(LeadingNumber, TakesAnExponentAsFarAsItGoes) {
  EXPECT_EQ(LeadingNumber("1e3"), 1000);
  EXPECT_EQ(LeadingNumber("1E3"), 1000);
  EXPECT_EQ(LeadingNumber("1e+3"), 1000);
  EXPECT_EQ(LeadingNumber("25e-1"), 2.5);
  EXPECT_EQ(LeadingNumber("12e"), 12);
  EXPECT_EQ(LeadingNumber("12e+"), 12);
  EXPECT_EQ(LeadingNumber("12e-x"), 12);
  EXPECT_EQ(LeadingNumber("1e5.5"), 1e5);
  EXPECT_EQ(LeadingNumber("1e1e1"), 10);
  EXPECT_EQ(LeadingNumber("1d3"), 1);
}

TEST(LeadingNumber, RoundsCorrectly) {
  EXPECT_EQ(LeadingNumber("0.1"), 0.1);
  EXPECT_EQ(LeadingNumber("123456789012345678"), 123456789012345678.0);
  // Halfway between two floats goes to the even one, and the least digit more goes up.
  EXPECT_EQ(LeadingNumber("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(LeadingNumber("9007199254740993.0000000000000000000000000000001"), 9007199254740994.0);
  EXPECT_EQ(LeadingNumber("9007199254740993." + std::string(2000, '0') + "1"), 9007199254740994.0);
  EXPECT_EQ(LeadingNumber("9007199254740993." + std::string(2000, '0')), 9007199254740992.0);
}

TEST(LeadingNumber, ReadsAnyLength) {
  EXPECT_EQ(LeadingNumber(std::string(5000, '0') + "12"), 12);
  EXPECT_EQ(LeadingNumber("0." + std::string(5000, '0') + "12e5001"), 1.2);
  EXPECT_EQ(LeadingNumber("1" + std::string(5000, '0') + "e-5000"), 1);
  EXPECT_EQ(LeadingNumber(std::string(100000, ' ') + "7"), 7);
}

TEST(LeadingNumber, OverflowsBeyondTheRange) {
  EXPECT_EQ(LeadingNumber("1.7976931348623157e308"), std::numeric_limits<double>::max());
  for (const char* text : {"1.8e308", "1e309", "-1e309", "1e99999999999999999999", "1e400"})
    EXPECT_EQ(ErrorOf([&] { LeadingNumber(text); }), 6) << text;
  EXPECT_EQ(ErrorOf([] { LeadingNumber(std::string(400, '9')); }), 6);
}

TEST(LeadingNumber, IsZeroBelowTheRange) {
  EXPECT_EQ(LeadingNumber("1e-400"), 0);
  EXPECT_EQ(LeadingNumber("1e-99999999999999999999"), 0);
  EXPECT_EQ(LeadingNumber("1e-325"), 0);
  EXPECT_EQ(LeadingNumber("5e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(LeadingNumber("0e99999999999"), 0);
}

TEST(LeadingNumber, AgreesWithTheStandardLibraryOnRandomNumbers) {
  std::mt19937_64 random(20260615);
  for (int i = 0; i < 200'000; ++i) {
    std::string text(random() % 2, '-');
    for (uint64_t digits = 1 + random() % 20; digits > 0; --digits) text += static_cast<char>('0' + random() % 10);
    text.insert(text.size() - random() % 2, 1, '.');
    if (random() % 2)
      text.append("e").append(std::to_string(static_cast<int>(random() % 600) - 320));
    const double expected = std::strtod(text.c_str(), nullptr);
    if (std::isinf(expected))
      EXPECT_EQ(ErrorOf([&] { LeadingNumber(text); }), 6) << text;
    else
      EXPECT_EQ(LeadingNumber(text), expected) << text;
  }
}

}  // namespace
}  // namespace fiscalon
