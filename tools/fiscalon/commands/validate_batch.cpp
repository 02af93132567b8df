#include "tools/fiscalon/commands/validate_batch.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <memory>
#include <thread>

#include "core/records/record_line.h"
#include "tools/fiscalon/files/stall_watch.h"
#include "tools/fiscalon/files/standard_output.h"
#include "tools/reading/visible_text.h"
#include "validation/clock_watch.h"
#include "validation/payment_rows.h"

namespace fiscalon {
namespace {

void PrintSummary(std::ostream& out, const BatchProgress& counts, const ReasonCounts& reasons, const Paint& paint) {
  out << Counted(counts.payments, "payment") << ": ";
  if (counts.invalid == 0) {
    out << paint.Good("all valid") << '\n';
    return;
  }
  out << counts.payments - counts.invalid << " valid, " << paint.Bad(std::to_string(counts.invalid) + " invalid")
      << '\n';
  reasons.Print(out);
}

/// What is said of a batch that ended at the bad payment that was one too many.
void PrintEnd(std::ostream& out, const BatchOptions& options, const EnoughBad& end, const ReasonCounts& reasons,
              const Paint& paint) {
  out << paint.Bad(std::to_string(options.outputs.mostBad) + " invalid") << ", the last of them at "
      << VisibleUtf8(options.payments) << ":" << end.row << "; the payments behind it were not judged\n";
  reasons.Print(out);
}

/// A list or a file that holds nothing is no batch in which all is valid.
void RefuseEmpty(ByteSource& payments, ByteSource& records) {
  constexpr size_t kMoreThanAHeader = 100;
  std::string list(payments.Peek(kMoreThanAHeader).substr(0, kMoreThanAHeader));
  std::erase_if(list, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
  if (list == kPaymentsHeader)
    throw BatchError(payments.Name(), "the list has no row, it names no payment");
  if (records.Peek(1).empty())
    throw BatchError(records.Name(), std::string(kNoRecords));
}

ExitStatus Judge(ByteSource& payments, ByteSource& records, const BatchOptions& options, const Context& context) {
  BatchDesk desk(options.outputs, {options.payments, options.records});
  std::ostream& out = desk.TakesStandardOutput() ? std::cerr : std::cout;
  const ClockWatch clock;
  try {
    BatchProgress counts;
    if (options.part.of == 1) {
      counts = ValidateBatch(payments, records, options.jobs, desk);
    } else {
      const BatchStretches part = CutPart(payments, records, options.part, desk);
      counts = ValidateBatch(*part.payments, *part.records, options.jobs, desk);
    }
    desk.Commit();
    desk.EndProgress();
    SayWhatStands([&] { PrintSummary(out, counts, desk.Reasons(), context.paint); });
    return counts.invalid == 0 ? ExitStatus::Done : ExitStatus::Invalid;
  } catch (const EnoughBad& end) {
    payments.RefuseChange();
    records.RefuseChange();
    clock.RefuseSettingBack();
    const std::string missed = desk.CommitFaults();
    desk.EndProgress();
    if (!missed.empty())
      Complain("fiscalon: not written, since they tell of the whole batch: " + missed);
    SayWhatStands([&] { PrintEnd(out, options, end, desk.Reasons(), context.paint); });
    return ExitStatus::Invalid;
  }
}

}  // namespace

unsigned UsualJobs() {
  return std::max(1u, std::thread::hardware_concurrency());
}

ExitStatus ValidateBatchFiles(BatchOptions options, const Context& context) {
  options.outputs.withHeader = options.part.number == 1;
  const auto judge = [&](ByteSource& payments, ByteSource& records) {
    return Judge(payments, records, options, context);
  };
  const BatchOutputs& to = options.outputs;
  return OnBatchFiles(options.payments, options.records, judge, {to.report, to.faults, to.good, to.bad},
                      std::chrono::seconds(options.stallSeconds));
}

ExitStatus OnBatchFiles(const std::string& paymentsName, const std::string& recordsName,
                        const std::function<ExitStatus(ByteSource& payments, ByteSource& records)>& judge,
                        const std::vector<std::string>& outputs, std::chrono::seconds patience) {
  if (paymentsName == "-" && recordsName == "-")
    throw UsageError("only one of the payments and their records can be standard input");
  InterruptWatch watch;
  std::vector<std::string> files = {paymentsName, recordsName};
  files.insert(files.end(), outputs.begin(), outputs.end());
  const StallWatch stall(std::move(files), patience);
  try {
    const auto payments = ByteSource::Open(paymentsName);
    const auto records = ByteSource::Open(recordsName);
    for (ByteSource* const source : {payments.get(), records.get()}) {
      if (source->Stays())
        watch.Mapped(source->Name(), source->Peek(0));
    }
    RefuseEmpty(*payments, *records);
    return judge(*payments, *records);
  } catch (const BatchError& error) {
    // A read that an interrupt ended is no fault of the file.
    if (IsInterrupted())
      throw CommandError("interrupted");
    for (BatchProblem problem : error.Problems()) {
      problem.reason = VisibleText(problem.reason);
      Complain("fiscalon: " + problem.Text());
    }
    return ExitStatus::Unusable;
  }
}

std::optional<BatchPart> PartOf(const std::string& text) {
  constexpr uint64_t kMostParts = 1'000'000;
  BatchPart part;
  const char* const end = text.data() + text.size();
  const auto [slash, wrongNumber] = std::from_chars(text.data(), end, part.number);
  if (wrongNumber != std::errc{} || slash == end || *slash != '/')
    return std::nullopt;
  const auto [stop, wrongCount] = std::from_chars(slash + 1, end, part.of);
  if (wrongCount != std::errc{} || stop != end || part.number < 1 || part.number > part.of || part.of > kMostParts)
    return std::nullopt;
  return part;
}

}  // namespace fiscalon
