#include "core/values/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

constexpr int64_t kLargest = std::numeric_limits<int64_t>::max();
constexpr int64_t kSmallest = std::numeric_limits<int64_t>::min();

int64_t UnitsOf(double value) {
  return Money::FromDouble(value).Units();
}
int32_t ErrorOfDouble(double value) {
  return ErrorOf([&] { Money::FromDouble(value); });
}

TEST(Money, StartsAtZero) {
  EXPECT_EQ(Money().Units(), 0);
}

TEST(Money, RoundsAFloatHalvesToEven) {
  // 1/32, 3/32 and 5/32 have exact floats, and five decimals that end in a half.
  EXPECT_EQ(UnitsOf(0.03125), 312);
  EXPECT_EQ(UnitsOf(0.09375), 938);
  EXPECT_EQ(UnitsOf(0.15625), 1562);
  EXPECT_EQ(UnitsOf(-0.03125), -312);
  EXPECT_EQ(UnitsOf(-0.09375), -938);
}

TEST(Money, RoundsTheFloatThatIsMeantAndNotItsShortText) {
  // The float nearest to 1.00015 lies above it, those nearest to 0.00015 and 0.00025 lie below and above.
  EXPECT_EQ(UnitsOf(1.00015), 10002);
  EXPECT_EQ(UnitsOf(0.00015), 1);
  EXPECT_EQ(UnitsOf(0.00025), 3);
  EXPECT_EQ(UnitsOf(std::nextafter(0.03125, 1.0)), 313);
  EXPECT_EQ(UnitsOf(std::nextafter(0.09375, 0.0)), 937);
}

TEST(Money, OfAFloatIsExactUpToItsRange) {
  EXPECT_EQ(UnitsOf(922337203685477.5), 9223372036854775000);
  // The last float in range, an eighth apart from the first beyond it.
  EXPECT_EQ(UnitsOf(922337203685477.5), UnitsOf(std::nextafter(922337203685477.625, 0.0)));
  EXPECT_EQ(UnitsOf(-922337203685477.5), -9223372036854775000);
  EXPECT_EQ(ErrorOfDouble(922337203685477.625), 6);
  EXPECT_EQ(ErrorOfDouble(-922337203685477.625), 6);
}

TEST(Money, RefusesWhatIsNoAmount) {
  EXPECT_EQ(ErrorOfDouble(1e15), 6);
  EXPECT_EQ(ErrorOfDouble(1e300), 6);
  EXPECT_EQ(ErrorOfDouble(std::numeric_limits<double>::infinity()), 6);
  EXPECT_EQ(ErrorOfDouble(-std::numeric_limits<double>::infinity()), 6);
  EXPECT_EQ(ErrorOfDouble(std::numeric_limits<double>::quiet_NaN()), 6);
}

TEST(Money, OfATinyFloatIsZero) {
  EXPECT_EQ(UnitsOf(0.00004), 0);
  EXPECT_EQ(UnitsOf(1e-300), 0);
  EXPECT_EQ(UnitsOf(std::numeric_limits<double>::denorm_min()), 0);
  EXPECT_EQ(UnitsOf(-0.0), 0);
  // From a third of a unit down to the least float.
  for (int power = -15; power >= -1074; --power) EXPECT_EQ(UnitsOf(std::ldexp(1.0, power)), 0) << power;
}

TEST(Money, GivesItsFloat) {
  EXPECT_EQ(Money::FromUnits(1234500).ToDouble(), 123.45);
  EXPECT_EQ(Money::FromUnits(-1).ToDouble(), -0.0001);
}

TEST(Money, AddsAndSubtractsExactly) {
  EXPECT_EQ(Money::FromUnits(1000) + Money::FromUnits(2000), Money::FromUnits(3000));
  EXPECT_EQ(Money::FromUnits(1000) - Money::FromUnits(2000), Money::FromUnits(-1000));
  EXPECT_EQ(Money::FromUnits(1000) + Money::FromUnits(-2000), Money::FromUnits(-1000));
  EXPECT_EQ(Money::FromUnits(1000) - Money::FromUnits(-2000), Money::FromUnits(3000));
  EXPECT_EQ(-Money::FromUnits(7), Money::FromUnits(-7));
  Money total = Money::FromUnits(5);
  total += Money::FromUnits(6);
  total -= Money::FromUnits(1);
  EXPECT_EQ(total.Units(), 10);
}

TEST(Money, ReachesBothEndsOfItsRange) {
  EXPECT_EQ((Money::FromUnits(kLargest - 1) + Money::FromUnits(1)).Units(), kLargest);
  EXPECT_EQ((Money::FromUnits(kSmallest + 1) - Money::FromUnits(1)).Units(), kSmallest);
  EXPECT_EQ((Money::FromUnits(-1) - Money::FromUnits(kSmallest)).Units(), kLargest);
}

TEST(Money, RaisesOverflowBeyondItsRange) {
  const Money largest = Money::FromUnits(kLargest);
  const Money smallest = Money::FromUnits(kSmallest);
  const Money unit = Money::FromUnits(1);
  EXPECT_EQ(ErrorOf([&] { largest + unit; }), 6);
  EXPECT_EQ(ErrorOf([&] { smallest + -unit; }), 6);
  EXPECT_EQ(ErrorOf([&] { smallest - unit; }), 6);
  EXPECT_EQ(ErrorOf([&] { largest - -unit; }), 6);
  EXPECT_EQ(ErrorOf([&] { Money() - smallest; }), 6);
  EXPECT_EQ(ErrorOf([&] { -smallest; }), 6);
}

TEST(Money, ComparesByAmount) {
  EXPECT_LT(Money::FromUnits(-1), Money());
  EXPECT_GT(Money::FromUnits(2), Money::FromUnits(1));
  EXPECT_NE(Money::FromUnits(2), Money::FromUnits(1));
}

}  // namespace
}  // namespace fiscalon
