// A batch from arbitrary bytes: whatever the two files hold, reading ends, names what is wrong or judges every
// payment, and says the same for any number of threads and of parts. What it says of places is so.

#include <optional>
#include <string>

#include "core/host_setup.h"
#include "tests/fuzz/law.h"
#include "validation/batch_part.h"
#include "validation/batch_report.h"

namespace fiscalon {
namespace {

/// Keeps the report, and the lines of the payments.
class Report : public BatchListener {
 public:
  bool WantsValidPayments() const override { return true; }
  bool WantsFaults() const override { return true; }
  void OnPayment(const PaymentVerdict& verdict) override {
    AppendReportRow(rows, verdict);
    AppendFaultRows(rows, verdict);
    Law(verdict.IsValid() == verdict.faults.empty(), "a bad payment has faults, and no other");
    lines += verdict.lines;
  }

  std::string rows;
  std::string lines;
};

/// The whole report, or the problems.
std::string Outcome(std::string_view list, std::string_view lines, unsigned jobs) {
  Report report;
  try {
    const auto payments = ByteSource::Of(list, "batch.csv");
    const auto records = ByteSource::Of(lines, "batch.pc4");
    ValidateBatch(*payments, *records, jobs, report);
  } catch (const BatchError& error) {
    Law(!error.Problems().empty(), "a batch fails for a reason");
    return error.what();
  }
  Law(report.lines == lines, "all lines are of some payment");
  return report.rows;
}

/// The reports of all parts, one behind the other; nothing where one of them fails.
std::optional<std::string> OutcomeOfParts(std::string_view list, std::string_view lines, uint64_t parts) {
  Report report;
  for (uint64_t part = 1; part <= parts; ++part) {
    try {
      const auto payments = ByteSource::Of(list, "batch.csv");
      const auto records = ByteSource::Of(lines, "batch.pc4");
      const BatchStretches stretches = CutPart(*payments, *records, {part, parts}, report);
      ValidateBatch(*stretches.payments, *stretches.records, 1, report);
    } catch (const BatchError&) {
      return std::nullopt;
    }
  }
  return report.rows;
}

void Check(std::string_view input) {
  UseLocale(EnglishCanada());
  UseFixedClock({.date = {2026, 6, 15}});
  // The list ends at the first line that is empty; the records stand behind it.
  const size_t gap = input.find("\n\n");
  const std::string list = "seq,screen,biller,amount\n" + std::string(input.substr(0, gap)) + "\n";
  // Without slack behind, so that reading beyond the end shows.
  const std::string lines(gap == input.npos ? std::string_view() : input.substr(gap + 2));
  const std::string alone = Outcome(list, lines, 1);
  Law(Outcome(list, lines, 2) == alone, "two threads say what one says");
  const std::optional<std::string> joined = OutcomeOfParts(list, lines, 1 + input.size() % 5);
  // Problems begin with a file's name.
  Law(joined ? *joined == alone : alone.starts_with("batch."), "parts say what the whole says");
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::Check(fiscalon::TextOf(data, size));
  return 0;
}
