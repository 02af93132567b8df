// What a host is left with when memory fails it while payments are judged.

#include <gtest/gtest.h>

#include <sstream>

#include "core/host_setup.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "core/records/record_composer.h"
#include "tests/faults/every_allocation.h"
#include "tests/faults/faulty_files.h"
#include "tests/support/bulk_payment.h"
#include "validation/batch.h"
#include "validation/batch_report.h"
#include "validation/generate_batch.h"
#include "validation/validate_add_info.h"

namespace fiscalon {
namespace {

constexpr Date kToday = {2026, 6, 15};

/// A host that judges one payment as `clsValidateAddInfo` does, with the play-by-play log on.
class JudgingHost : public HostWork {
 public:
  JudgingHost(const BulkPayment& payment, bool handsRecordsOver)
      : payment_(payment), handsRecordsOver_(handsRecordsOver) {
    UseFixedClock({.date = kToday});
    UseLocale(EnglishCanada());
    ModuleToChange().files = files_;
  }
  ~JudgingHost() override {
    ModuleToChange().files = std::make_shared<SystemFiles>();
    ModuleToChange().playByPlayEnabled = 0;
  }
  JudgingHost(const JudgingHost&) = delete;
  JudgingHost& operator=(const JudgingHost&) = delete;

  std::string Do() override {
    EXPECT_TRUE(files_->open.empty());
    files_->contents.clear();
    if (!validator_)
      validator_ = std::make_unique<clsValidateAddInfo>();
    validator_->ScreenCode(payment_.screen);
    validator_->PaymentAmount(payment_.amount);
    validator_->BillerCode(payment_.biller);
    validator_->PlayByPlayEnabled(kTrue);
    if (handsRecordsOver_)
      validator_->PC4Records(payment_.Collection());
    std::string evidence = validator_->IsInfoValid() ? "valid\n" : validator_->InvalidReason() + "\n";
    for (const auto& [path, content] : files_->contents) evidence += path + "\n" + content;
    return evidence;
  }

 private:
  const BulkPayment& payment_;
  bool handsRecordsOver_;
  std::shared_ptr<FaultyFiles> files_ = std::make_shared<FaultyFiles>();
  std::unique_ptr<clsValidateAddInfo> validator_;
};

void ExpectPaymentWithstands(const BulkPayment& payment, bool handsRecordsOver = true) {
  ResetModule();
  ModuleToChange().mainPath = "logs";
  for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
    ExpectEachAllocationMayFail(lasts, [&] { return std::make_unique<JudgingHost>(payment, handsRecordsOver); });
  ResetModule();
}

TEST(ValidationMemoryFaults, EachAllocationOfAPaymentMayFail) {
  ExpectPaymentWithstands(AgencyPayment(GoodAgencyFields()));
  ExpectPaymentWithstands(QuebecPayment(GoodQuebecFields()));
}

TEST(ValidationMemoryFaults, EachAllocationOfABadPaymentMayFail) {
  ExpectPaymentWithstands(AgencyPayment({{"01", "x"}, {"02", "20260532"}, {"03", "-5"}, {"04", "abc"}}));
  ExpectPaymentWithstands(QuebecPayment({{"01", "x"}, {"05", "7"}, {"06", "-00000000000000001"}}, {"202513", "x"}));
}

TEST(ValidationMemoryFaults, EachAllocationOfAPaymentOfManyRecordsMayFail) {
  BulkPayment payment = AgencyPayment(GoodAgencyFields());
  while (payment.records.size() < 12) payment.records.push_back(ComposeFreeFormat("0001", {}));
  ExpectPaymentWithstands(payment);
}

TEST(ValidationMemoryFaults, EachAllocationOfAFailureThatIsLoggedMayFail) {
  ExpectPaymentWithstands(AgencyPayment(GoodAgencyFields()), false);
}

/// A host that judges a whole batch.
class BatchHost : public HostWork {
 public:
  BatchHost(const std::string& payments, const std::string& records, unsigned jobs)
      : payments_(payments), records_(records), jobs_(jobs) {}

  std::string Do() override {
    const auto payments = ByteSource::Of(payments_, "batch.csv");
    const auto records = ByteSource::Of(records_, "batch.pc4");
    Report report;
    try {
      const BatchProgress progress = ValidateBatch(*payments, *records, jobs_, report);
      return report.rows + std::to_string(progress.payments) + " payments\n";
    } catch (const BatchError& error) {
      return report.rows + error.what();
    }
  }

 private:
  class Report : public BatchListener {
   public:
    bool WantsValidPayments() const override { return true; }
    void OnPayment(const PaymentVerdict& verdict) override { AppendReportRow(rows, verdict); }

    std::string rows;
  };

  const std::string& payments_;
  const std::string& records_;
  unsigned jobs_;
};

void ExpectBatchWithstands(const std::string& payments, const std::string& records) {
  ResetModule();
  UseFixedClock({.date = kToday});
  for (const unsigned jobs : {1u, 3u})
    for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn}) {
      SCOPED_TRACE(std::to_string(jobs) + " jobs");
      ExpectEachAllocationMayFail(lasts, [&] { return std::make_unique<BatchHost>(payments, records, jobs); });
    }
  ResetModule();
}

TEST(ValidationMemoryFaults, EachAllocationOfABatchMayFail) {
  std::ostringstream payments, records, planted;
  GenerateBatch({.payments = 40, .badRate = 0.5, .today = kToday}, payments, records, planted);
  ExpectBatchWithstands(payments.str(), records.str());
}

TEST(ValidationMemoryFaults, EachAllocationOfABatchThatCantBeReadMayFail) {
  std::ostringstream payments, records, planted;
  GenerateBatch({.payments = 4, .today = kToday}, payments, records, planted);
  ExpectBatchWithstands(payments.str() + "9999,03,,x\n", records.str() + "no record\n");
}

}  // namespace
}  // namespace fiscalon
