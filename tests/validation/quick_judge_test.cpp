#include "validation/quick_judge.h"

#include <gtest/gtest.h>

#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

class QuickJudge : public ModuleTest {
 protected:
  bool IsGood(const BulkPayment& payment, int64_t cents) const {
    return IsGoodQuickly({.screenCode = payment.screen, .billerCode = payment.biller, .cents = cents}, payment.Views(),
                         day_);
  }

  JudgingDay day_ = JudgingDayOf({.year = 2026, .month = 6, .day = 15});
};

TEST_F(QuickJudge, TakesGoodPaymentsOfEveryScreen) {
  EXPECT_TRUE(IsGood(AgencyPayment(GoodAgencyFields()), 12345));
  EXPECT_TRUE(IsGood(QuebecPayment(GoodQuebecFields()), 12345));
  EXPECT_TRUE(IsGood(AgencyPayment(With(GoodAgencyFields(), "01", "000000000000000000")), 0));
}

TEST_F(QuickJudge, TakesNoOther) {
  EXPECT_FALSE(IsGood(AgencyPayment(GoodAgencyFields()), 12346));
  EXPECT_FALSE(IsGood(AgencyPayment(GoodAgencyFields()), -12345));
  BulkPayment other = AgencyPayment(GoodAgencyFields());
  other.screen = "15";
  EXPECT_FALSE(IsGood(other, 12345));
  other = QuebecPayment(GoodQuebecFields());
  other.records.erase(other.records.begin());
  EXPECT_FALSE(IsGood(other, 12345));
}

TEST(ReadsBackAsItIs, HoldsOfAmountsOfUpToFifteenDigits) {
  for (const int64_t cents : {int64_t{0}, int64_t{1}, int64_t{999'999'999'999'999}})
    EXPECT_TRUE(ReadsBackAsItIs(cents)) << cents;
  for (const int64_t cents : {int64_t{-1}, int64_t{1'000'000'000'000'000}})
    EXPECT_FALSE(ReadsBackAsItIs(cents)) << cents;
}

}  // namespace
}  // namespace fiscalon
