// A batch from arbitrary bytes: whatever the two files hold, reading ends, names what is wrong or judges every
// payment, and says the same for any number of threads and for any way the bytes come in.

#include <string>

#include "core/module_state.h"
#include "tests/fuzz/law.h"
#include "validation/batch.h"
#include "validation/batch_report.h"

namespace fiscalon {
namespace {

/// The whole report, or the problems.
std::string Outcome(std::string_view list, std::string_view lines, unsigned jobs) {
  class Report : public BatchListener {
   public:
    bool WantsValidPayments() const override { return true; }
    void OnPayment(const PaymentVerdict& verdict) override { AppendReportRow(rows, verdict); }
    std::string rows;
  } report;
  try {
    const auto payments = ByteSource::Of(list, "batch.csv");
    const auto records = ByteSource::Of(lines, "batch.pc4");
    ValidateBatch(*payments, *records, jobs, report);
  } catch (const BatchError& error) {
    Law(!error.Problems().empty(), "a batch fails for a reason");
    return error.what();
  }
  return report.rows;
}

void Check(std::string_view input) {
  TheModule().locale = EnglishCanada();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {2026, 6, 15}});
  // The list ends at the first line that is empty; the records stand behind it.
  const size_t gap = input.find("\n\n");
  const std::string list = "seq,screen,biller,amount\n" + std::string(input.substr(0, gap)) + "\n";
  // Without slack behind, so that reading beyond the end shows.
  const std::string lines(gap == input.npos ? std::string_view() : input.substr(gap + 2));
  const std::string alone = Outcome(list, lines, 1);
  Law(Outcome(list, lines, 2) == alone, "two threads say what one says");
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::Check(fiscalon::TextOf(data, size));
  return 0;
}
