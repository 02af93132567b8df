#include "tools/fiscalon/validate_command.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <thread>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/records/record_line.h"
#include "tools/fiscalon/interrupt_watch.h"
#include "tools/fiscalon/line_reader.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/progress_line.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/fiscalon/visible_text.h"
#include "tools/fiscalon/whole_file.h"
#include "validation/batch.h"
#include "validation/batch_report.h"
#include "validation/judge_payment.h"
#include "validation/payment_rows.h"
#include "validation/record_block.h"

namespace fiscalon {
namespace {

constexpr const char* kExamples = R"(Examples:
  fiscalon validate --screen 03 --amount 12345 payment.pc4
  fiscalon validate --screen 20 --amount 12345 --biller 001052 payment.pc4
  fiscalon validate --payments batch.csv --records batch.pc4 --report out.csv
  unzip -p batch.zip batch.pc4 | fiscalon validate --payments batch.csv --records -

The payments list begins with "seq,screen,biller,amount" and has a row for each payment, amounts in cents;
the records of the payments stand in the same order. The report has a row "seq,screen,valid,reason" for each.

Exit status: 0 all valid, 1 something is not valid, 2 a file can't be read or written, or the two do not
line up; then there is no report. --today and --locale: see "fiscalon --help".)";

struct ValidateOptions {
  std::string file = {};
  std::optional<std::string> screen = {};
  std::optional<std::string> amount = {};
  std::string biller = {};
  std::string payments = {};
  std::string records = {};
  std::string report = {};
  unsigned jobs = 0;
};

/// The records of the file of one payment.
std::vector<std::string> RecordsOf(LineReader& reader) {
  constexpr size_t kLargestPayment = size_t{16} << 20;
  std::vector<std::string> records;
  size_t size = 0;
  const auto fail = [&](const std::string& reason) {
    throw CommandError(reader.Name() + ":" + std::to_string(records.size() + 1) + ": " + reason);
  };
  for (ReadLine line; reader.Next(line);) {
    if (line.hidden != 0)
      fail("a line of " + std::to_string(line.line.record.size() + line.hidden) + " characters; a record has " +
           std::to_string(kRecordLength));
    if (const std::string problem = WrongWith(line.line); !problem.empty())
      fail(problem);
    size += line.line.record.size();
    if (size > kLargestPayment)
      fail("the records of the payment take more than 16 MiB");
    records.emplace_back(line.line.record);
  }
  if (records.empty())
    throw CommandError(reader.Name() + ": " + std::string(kNoRecords));
  return records;
}

/// A file of many payments is judged as one payment, which is seldom what was meant.
void TellOfManyPayments(const std::string& name, const std::vector<std::string_view>& records) {
  size_t payments = 0;
  std::string_view last;
  for (const std::string_view record : records) {
    if (SequenceOf(record) != last)
      ++payments;
    last = SequenceOf(record);
  }
  if (payments > 1)
    Complain("fiscalon: " + name + " holds the records of " + Counted(payments, "payment") +
             ", judged here as one; to judge each of them, list them for --payments");
}

ExitStatus ValidatePayment(const ValidateOptions& options, const Context& context) {
  const std::string screen(ScreenOf(*options.screen).code);
  int64_t cents = 0;
  if (const std::string problem = ReadCents(*options.amount, cents); !problem.empty())
    throw UsageError("--amount: " + problem);
  const InterruptWatch watch;
  LineReader reader(options.file, [] {});
  const std::vector<std::string> lines = RecordsOf(reader);
  const std::vector<std::string_view> records(lines.begin(), lines.end());
  const std::string biller = FromUtf8(options.biller);
  std::string reason;
  const bool valid =
      PaymentJudge().Judge({.screenCode = screen, .billerCode = biller, .cents = cents}, records, reason);
  if (valid)
    std::cout << context.paint.Good("valid") << '\n';
  else
    std::cout << context.paint.Bad("invalid") << ": " << ToUtf8(reason) << '\n';
  TellOfManyPayments(reader.Name(), records);
  return valid ? ExitStatus::Done : ExitStatus::Invalid;
}

/// Writes the report, counts the reasons and shows how far the batch is.
class BatchDesk : public BatchListener {
 public:
  explicit BatchDesk(WholeFile* report) : report_(report) {
    if (report_ != nullptr)
      rows_.append(kReportHeader).append("\n");
  }

  bool WantsValidPayments() const override { return report_ != nullptr; }

  void OnPayment(const PaymentVerdict& verdict) override {
    if (!verdict.IsValid())
      reasons_.Add(verdict.reason);
    if (report_ != nullptr)
      AppendReportRow(rows_, verdict);
  }

  void OnProgress(const BatchProgress& progress) override {
    if (IsInterrupted())
      throw CommandError("interrupted");
    WriteRows();
    progressLine_.Show(progress);
  }

  void WriteRows() {
    if (report_ != nullptr)
      report_->Write(rows_);
    rows_.clear();
  }

  const ReasonCounts& Reasons() const { return reasons_; }

 private:
  WholeFile* report_;
  std::string rows_;
  ReasonCounts reasons_;
  ProgressLine progressLine_;
};

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

ExitStatus ValidateFiles(const ValidateOptions& options, const Context& context) {
  if (options.payments == "-" && options.records == "-")
    throw UsageError("only one of --payments and --records can be standard input");
  InterruptWatch watch;
  const auto payments = ByteSource::Open(options.payments);
  const auto records = ByteSource::Open(options.records);
  for (ByteSource* const source : {payments.get(), records.get()}) {
    if (source->Stays())
      watch.Mapped(source->Name(), source->Peek(0));
  }
  std::unique_ptr<WholeFile> report;
  if (!options.report.empty())
    report = std::make_unique<WholeFile>(options.report, std::vector{options.payments, options.records});
  BatchProgress counts;
  ReasonCounts reasons;
  {
    BatchDesk desk(report.get());
    counts = ValidateBatch(*payments, *records, options.jobs, desk);
    desk.WriteRows();
    reasons = desk.Reasons();
  }
  if (report)
    report->Commit();
  PrintSummary(report && report->IsStandardOutput() ? std::cerr : std::cout, counts, reasons, context.paint);
  return counts.invalid == 0 ? ExitStatus::Done : ExitStatus::Invalid;
}

ExitStatus Validate(const ValidateOptions& options, const Context& context) {
  const bool isBatch = !options.payments.empty() || !options.records.empty();
  if (isBatch && (options.payments.empty() || options.records.empty()))
    throw UsageError("a batch needs both --payments and --records");
  if (isBatch && (options.screen || options.amount || !(options.file + options.biller).empty()))
    throw UsageError("a batch names its payments in --payments: leave out FILE, --screen, --amount and --biller");
  if (!isBatch && (options.file.empty() || !options.screen || !options.amount))
    throw UsageError("a payment needs --screen, --amount and FILE; a batch --payments and --records");
  if (!isBatch && !options.report.empty())
    throw UsageError("--report goes with a batch");
  TheModule().locale = context.SpokenLocale();
  if (context.today)
    TheModule().clock = std::make_shared<FixedClock>(*context.today);
  if (!isBatch)
    return ValidatePayment(options, context);
  try {
    return ValidateFiles(options, context);
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

}  // namespace

void AddValidateCommand(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("validate", "Check the records of a payment, or of a batch of payments");
  command->footer(kExamples);
  const auto options = std::make_shared<ValidateOptions>();
  options->jobs = std::max(1u, std::thread::hardware_concurrency());
  command->add_option("FILE", options->file, "The records of one payment; - is standard input")->check(NameGiven);
  command->add_option("--screen", options->screen, "The payment's screen: 03 or 20")->type_name("CODE");
  command->add_option("--amount", options->amount, "The payment's amount in cents")->type_name("CENTS");
  command->add_option("--biller", options->biller, "The payment's biller, such as 001052")->type_name("CODE");
  command->add_option("--payments", options->payments, "The payments list of a batch; - is standard input")
      ->type_name("FILE")
      ->check(NameGiven);
  command->add_option("--records", options->records, "The records of a batch; - is standard input")
      ->type_name("FILE")
      ->check(NameGiven);
  command->add_option("--report", options->report, "Where to write a row for each payment; - is standard output")
      ->type_name("FILE")
      ->check(NameGiven);
  command->add_option("--jobs", options->jobs, "How many threads judge a batch; as many as there are cores")
      ->type_name("N")
      ->check(CLI::Range(1, 256));
  command->callback([options, &context] { context.status = Validate(*options, context); });
}

}  // namespace fiscalon
