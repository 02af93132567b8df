#include "core/values/number_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

TEST(NumberText, HasAtMostFifteenDigits) {
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(NumberText(2.0 / 3), "0.666666666666667");
  EXPECT_EQ(NumberText(123456789.123456789), "123456789.123457");
}

TEST(NumberText, DropsWhatIsNotNeeded) {
  EXPECT_EQ(NumberText(12), "12");
  EXPECT_EQ(NumberText(12.50), "12.5");
  EXPECT_EQ(NumberText(1200), "1200");
  EXPECT_EQ(NumberText(0), "0");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(-0.05), "-0.05");
}

TEST(NumberText, IsPlainBelowTenToTheFifteenth) {
  EXPECT_EQ(NumberText(999999999999999), "999999999999999");
  EXPECT_EQ(NumberText(1e15), "1E+15");
  EXPECT_EQ(NumberText(-1.5e15), "-1.5E+15");
  EXPECT_EQ(NumberText(1.25e100), "1.25E+100");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::max()), "1.79769313486232E+308");
}

TEST(NumberText, IsPlainUpToFifteenDecimals) {
  EXPECT_EQ(NumberText(1e-15), "0.000000000000001");
  EXPECT_EQ(NumberText(1e-16), "1E-16");
  EXPECT_EQ(NumberText(0.01234567890123), "0.01234567890123");
  EXPECT_EQ(NumberText(0.0123456789012345), "1.23456789012345E-02");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
}

TEST(NumberText, RaisesOverflowOnWhatIsNoNumber) {
  EXPECT_EQ(ErrorOf([] { NumberText(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(ErrorOf([] { NumberText(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(BareNumberText, LeavesOutTheZeroBeforeThePoint) {
  EXPECT_EQ(BareNumberText(0.05), ".05");
  EXPECT_EQ(BareNumberText(-0.5), "-.5");
  EXPECT_EQ(BareNumberText(0), "0");
  EXPECT_EQ(BareNumberText(123.45), "123.45");
  EXPECT_EQ(BareNumberText(12), "12");
  EXPECT_EQ(BareNumberText(10.5), "10.5");
  EXPECT_EQ(BareNumberText(1.0 / 30), "3.33333333333333E-02");
}

}  // namespace
}  // namespace fiscalon
