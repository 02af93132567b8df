#include "validation/expectation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace fiscalon {
namespace {

TEST(JudgingDay, HoldsTwoYearsAroundItAndFourMonthsBack) {
  const JudgingDay day = JudgingDayOf({.year = 2026, .month = 6, .day = 15});
  EXPECT_EQ(day.firstYear, 2024);
  EXPECT_EQ(day.lastYear, 2028);
  EXPECT_EQ(day.lastMonth, 2026 * 12 + 5);
  EXPECT_EQ(day.firstMonth, 2026 * 12 + 1);
}

// Two digits of a year are one of this century or the last.
TEST(JudgingDay, HoldsNoYearBeforeTheHundredth) {
  const JudgingDay day = JudgingDayOf({.year = 100, .month = 3, .day = 1});
  EXPECT_EQ(day.firstYear, 100);
  EXPECT_EQ(day.firstMonth, 1200);
  EXPECT_EQ(day.lastMonth, 1202);
}

TEST(Expectation, IsOfNothingUnlessItSaysSo) {
  const Expectation expected;
  EXPECT_EQ(expected.paymentAmount, 0);
  EXPECT_EQ(expected.paymentCents, kNoCents);
  EXPECT_EQ(expected.billerCode, "");
  EXPECT_EQ(expected.day, nullptr);
  EXPECT_EQ(expected.logging, Logging::None);
}

TEST(CentsOfDollars, AreThoseWhoseHundredthPartTheAmountIs) {
  EXPECT_EQ(CentsOfDollars(0), 0U);
  EXPECT_EQ(CentsOfDollars(0.01), 1U);
  EXPECT_EQ(CentsOfDollars(0.29), 29U) << "its hundredfold lies a little below";
  EXPECT_EQ(CentsOfDollars(123.45), 12345U);
  EXPECT_EQ(CentsOfDollars(9'999'999'999'999.99), 999'999'999'999'999U);
}

TEST(CentsOfDollars, AreNoneOfWhatIsNotWholeOrNotAnAmount) {
  for (const double dollars :
       {0.005, 123.456, -0.01, -1.0, 1e13, 1e300, std::nan(""), std::numeric_limits<double>::infinity()})
    EXPECT_EQ(CentsOfDollars(dollars), kNoCents) << dollars;
}

}  // namespace
}  // namespace fiscalon
