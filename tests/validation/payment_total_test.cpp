#include "validation/payment_total.h"

#include <gtest/gtest.h>

#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

class PaymentTotals : public ModuleTest {
 protected:
  /// The total of 1.00, 20.00, 300.00, 4000.00 and 50000.00 dollars.
  static PaymentTotal FiveAmounts() {
    PaymentTotal total;
    int addend = 0;
    for (const char* const cents : {"100", "2000", "30000", "400000", "5000000"}) total.Keep(addend++, cents);
    return total;
  }
};

TEST_F(PaymentTotals, AreThoseOfAllAddends) {
  std::string written = "before";
  EXPECT_TRUE(FiveAmounts().Equals({.paymentAmount = 54321}, written));
  EXPECT_EQ(written, "54321.00");
  EXPECT_FALSE(FiveAmounts().Equals({.paymentAmount = 54321.01}, written));
}

TEST_F(PaymentTotals, HoldTheLaterOfAnAddendThatComesTwice) {
  PaymentTotal total = FiveAmounts();
  total.Keep(4, "000000000000000007");
  std::string written;
  EXPECT_TRUE(total.Equals({.paymentAmount = 4321.07}, written));
  EXPECT_EQ(written, "4321.07");
}

TEST_F(PaymentTotals, AreNothingWithoutAddends) {
  std::string written;
  EXPECT_TRUE(PaymentTotal().Equals({.paymentAmount = 0}, written));
  EXPECT_EQ(written, "0.00");
}

TEST_F(PaymentTotals, AreNotWrittenBeyondAllAmounts) {
  PaymentTotal total;
  total.Keep(0, "999999999999999999");
  std::string written = "before";
  EXPECT_FALSE(total.Equals({.paymentAmount = 9'999'999'999'999'999.0 / 100}, written));
  EXPECT_EQ(written, "");
}

TEST_F(PaymentTotals, AreTheSameQuicklyUpToTenBillionDollars) {
  QuickTotal total;
  EXPECT_EQ(total.Sum(), 0u);
  for (int addend = 0; addend < 5; ++addend) total.Keep(addend, 200'000'000'000);
  EXPECT_EQ(total.Sum(), 1'000'000'000'000u);
  EXPECT_TRUE(total.Equals({.paymentCents = 1'000'000'000'000}));
  EXPECT_FALSE(total.Equals({.paymentCents = 999'999'999'999}));
  total.Keep(0, 200'000'000'001);
  EXPECT_FALSE(total.Equals({.paymentCents = 1'000'000'000'001})) << "which it leaves to the other one";
}

TEST_F(PaymentTotals, AreNotHeldQuicklyAgainstWhatIsWrittenWithAComma) {
  QuickTotal total;
  total.Keep(0, 100);
  EXPECT_TRUE(total.Equals({.paymentCents = 100}));
  SetLocale(FrenchCanada());
  EXPECT_FALSE(total.Equals({.paymentCents = 100}));
}

}  // namespace
}  // namespace fiscalon
