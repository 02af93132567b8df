// What is judged by quick tests costs no memory.

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/allocation_counter.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "validation/batch.h"
#include "validation/generate_batch.h"
#include "validation/judge_payment.h"

namespace fiscalon {
namespace {

using AllocationTest = ModuleTest;

TEST_F(AllocationTest, AGoodPaymentTakesNone) {
  for (const BulkPayment& payment : {AgencyPayment(GoodAgencyFields()), QuebecPayment(GoodQuebecFields())}) {
    const std::vector<std::string_view> records = payment.Views();
    const PaymentJudge judge;
    std::string reason;
    const size_t before = Allocations();
    EXPECT_TRUE(judge.Judge({payment.screen, payment.biller, 12345}, records, reason));
    EXPECT_EQ(Allocations(), before);
  }
}

/// How many allocations a batch of good payments takes.
size_t AllocationsOf(uint64_t count) {
  std::ostringstream list, lines, planted;
  GenerateBatch({.payments = count, .today = {2026, 6, 15}}, list, lines, planted);
  const auto payments = ByteSource::Of(list.view(), "batch.csv");
  const auto records = ByteSource::Of(lines.view(), "batch.pc4");
  class Nobody : public BatchListener {
   public:
    bool WantsValidPayments() const override { return false; }
    void OnPayment(const PaymentVerdict&) override { ADD_FAILURE(); }
  } nobody;
  const size_t before = Allocations();
  ValidateBatch(*payments, *records, 1, nobody);
  return Allocations() - before;
}

TEST_F(AllocationTest, TwiceAsManyGoodPaymentsTakeNoMore) {
  EXPECT_EQ(AllocationsOf(20'000), AllocationsOf(10'000));
  EXPECT_LT(AllocationsOf(10'000), 100u);
}

}  // namespace
}  // namespace fiscalon
