#include "tools/fiscalon/validate_batch.h"

#include <charconv>
#include <iostream>
#include <memory>

#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

void PrintSummary(std::ostream& out, const BatchProgress& counts, const ReasonCounts& reasons, const Paint& paint) {
  out << counts.payments << " payments: ";
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
  out << paint.Bad(std::to_string(options.outputs.mostBad) + " invalid") << ", the last of them at " << options.payments
      << ":" << end.row << "; the payments behind it were not judged\n";
  reasons.Print(out);
}

ExitStatus Judge(ByteSource& payments, ByteSource& records, const BatchOptions& options, const Context& context) {
  BatchDesk desk(options.outputs, {options.payments, options.records});
  std::ostream& out = desk.TakesStandardOutput() ? std::cerr : std::cout;
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
    PrintSummary(out, counts, desk.Reasons(), context.paint);
    return counts.invalid == 0 ? ExitStatus::Done : ExitStatus::Invalid;
  } catch (const EnoughBad& end) {
    const std::string missed = desk.CommitFaults();
    desk.EndProgress();
    if (!missed.empty())
      Complain("fiscalon: not written, since they tell of the whole batch: " + missed);
    PrintEnd(out, options, end, desk.Reasons(), context.paint);
    return ExitStatus::Invalid;
  }
}

}  // namespace

ExitStatus ValidateBatchFiles(BatchOptions options, const Context& context) {
  if (options.payments == "-" && options.records == "-")
    throw UsageError("only one of --payments and --records can be standard input");
  InterruptWatch watch;
  try {
    const auto payments = ByteSource::Open(options.payments);
    const auto records = ByteSource::Open(options.records);
    for (ByteSource* const source : {payments.get(), records.get()}) {
      if (source->Stays())
        watch.Mapped(source->Name(), source->Peek(0));
    }
    options.outputs.withHeader = options.part.number == 1;
    return Judge(*payments, *records, options, context);
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
