// Batch validation: the rules alone, the class for hosts, and a plain validator that copies every field into a
// string, on the same payments in the same run.

#include <benchmark/benchmark.h>

#include <sstream>

#include "core/host_setup.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/plain_validator.h"
#include "validation/batch.h"
#include "validation/generate_batch.h"
#include "validation/judge_payment.h"
#include "validation/validate_add_info.h"

namespace fiscalon {
namespace {

BulkPayment Payment(int64_t screen) {
  return screen == 3 ? AgencyPayment(GoodAgencyFields()) : QuebecPayment(GoodQuebecFields());
}

/// The module as the fields' dates need it.
void SetUp(const benchmark::State&) {
  UseLocale(EnglishCanada());
  UseFixedClock({.date = {2026, 6, 15}});
}

void RuleCore(benchmark::State& state) {
  const BulkPayment payment = Payment(state.range(0));
  const std::vector<std::string_view> records = payment.Views();
  const PaymentJudge judge;
  std::string reason;
  for (auto _ : state) benchmark::DoNotOptimize(judge.Judge({payment.screen, payment.biller, 12345}, records, reason));
  if (!reason.empty())
    state.SkipWithError(reason.c_str());
}

void ClassOnHeldRecords(benchmark::State& state) {
  const BulkPayment payment = Payment(state.range(0));
  clsValidateAddInfo validator;
  validator.ScreenCode(payment.screen);
  validator.BillerCode(payment.biller);
  validator.PaymentAmount(payment.amount);
  validator.PC4Records(payment.Collection());
  bool valid = true;
  for (auto _ : state) valid = validator.IsInfoValid() && valid;
  if (!valid)
    state.SkipWithError(validator.InvalidReason().c_str());
}

void ClassFromFreshRecords(benchmark::State& state) {
  const BulkPayment payment = Payment(state.range(0));
  clsValidateAddInfo validator;
  validator.ScreenCode(payment.screen);
  validator.BillerCode(payment.biller);
  validator.PaymentAmount(payment.amount);
  bool valid = true;
  for (auto _ : state) {
    const auto records = std::make_shared<PC4s>();
    for (const std::string& record : payment.records) records->Add({}, {}, record);
    validator.PC4Records(records);
    valid = validator.IsInfoValid() && valid;
  }
  if (!valid)
    state.SkipWithError(validator.InvalidReason().c_str());
}

void PlainValidator(benchmark::State& state) {
  const BulkPayment payment = Payment(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(ReasonInPlainWords(payment));
}

/// A whole batch in memory, with its payments list. Items are payments.
void WholeBatch(benchmark::State& state) {
  constexpr int64_t kPayments = 100'000;
  std::ostringstream payments, records, planted;
  GenerateBatch({.payments = kPayments, .screen = state.range(0) == 3 ? "03" : "20", .today = {2026, 6, 15}}, payments,
                records, planted);
  const std::string list = payments.str();
  const std::string lines = records.str();
  class Counter : public BatchListener {
   public:
    bool WantsValidPayments() const override { return false; }
    void OnPayment(const PaymentVerdict&) override { ++invalid; }
    int invalid = 0;
  } counter;
  for (auto _ : state) {
    const auto listSource = ByteSource::Of(list, "batch.csv");
    const auto lineSource = ByteSource::Of(lines, "batch.pc4");
    ValidateBatch(*listSource, *lineSource, static_cast<unsigned>(state.range(1)), counter);
  }
  if (counter.invalid != 0)
    state.SkipWithError("a generated payment is not valid");
  state.SetItemsProcessed(state.iterations() * kPayments);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(lines.size()));
}

BENCHMARK(RuleCore)->Setup(SetUp)->ArgName("screen")->Arg(3)->Arg(20);
BENCHMARK(ClassOnHeldRecords)->Setup(SetUp)->ArgName("screen")->Arg(3)->Arg(20);
BENCHMARK(ClassFromFreshRecords)->Setup(SetUp)->ArgName("screen")->Arg(3)->Arg(20);
BENCHMARK(PlainValidator)->Setup(SetUp)->ArgName("screen")->Arg(3)->Arg(20);
BENCHMARK(WholeBatch)
    ->Setup(SetUp)
    ->ArgNames({"screen", "jobs"})
    ->Args({3, 1})
    ->Args({3, 2})
    ->Args({20, 1})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace fiscalon
