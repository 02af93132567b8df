#include "tools/fiscalon/commands/validate_command.h"

#include <charconv>
#include <iostream>
#include <memory>
#include <optional>

#include "core/platform/code_page.h"
#include "core/records/record_line.h"
#include "tools/fiscalon/commands/validate_batch.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/line_reader.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/reading/visible_text.h"
#include "validation/judge_payment.h"
#include "validation/payment_rows.h"
#include "validation/record_block.h"

namespace fiscalon {
namespace {

constexpr const char* kValidateExamples = R"(Examples:
  fiscalon validate --screen 03 --amount 12345 payment.pc4
  fiscalon validate --screen 20 --amount 12345 --biller 001052 payment.pc4
  fiscalon validate --payments batch.csv --records batch.pc4 --report out.csv
  unzip -p batch.zip batch.pc4 | fiscalon validate --payments batch.csv --records -
  fiscalon validate --payments batch.csv --records batch.pc4 --faults faults.csv --good good.pc4
  fiscalon validate --payments batch.csv --records batch.pc4 --part 2/8 --report 2.csv

The payments list begins with "seq,screen,biller,amount" and has a row for each payment, amounts in cents;
the records of the payments stand in the same order. The report has a row "seq,screen,valid,reason" for each, the faults
have one "seq,screen,line,field,name,value,code,message" for each reason. Reports of parts make the whole one when they
are joined in order.

Exit status: 0 all valid, 1 something is not valid, 2 a file can't be read or written, or the two do not
line up, 75 a folder does not answer; then there is no report. --today and --locale: see "fiscalon --help".)";

/// A day: as good as for ever.
constexpr uint32_t kLongestPatience = 86'400;

struct ValidateOptions {
  std::string file = {};
  std::optional<std::string> screen = {};
  std::optional<std::string> amount = {};
  std::string biller = {};
  BatchOptions batch = {};
  std::string part = {};
};

/// Whether an option was given that goes with a batch alone.
bool AsksForABatchsOutcome(const ValidateOptions& options) {
  const BatchOutputs& outputs = options.batch.outputs;
  return !(outputs.report + outputs.faults + outputs.good + outputs.bad + options.part).empty() || outputs.asJson ||
         outputs.mostBad != 0;
}

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

ExitStatus Validate(const ValidateOptions& options, const Context& context) {
  const BatchOptions& batch = options.batch;
  const bool isBatch = !batch.payments.empty() || !batch.records.empty();
  if (isBatch && (batch.payments.empty() || batch.records.empty()))
    throw UsageError("a batch needs both --payments and --records");
  if (isBatch && (options.screen || options.amount || !(options.file + options.biller).empty()))
    throw UsageError("a batch names its payments in --payments: leave out FILE, --screen, --amount and --biller");
  if (!isBatch && (options.file.empty() || !options.screen || !options.amount))
    throw UsageError("a payment needs --screen, --amount and FILE; a batch --payments and --records");
  if (!isBatch && AsksForABatchsOutcome(options))
    throw UsageError("--report, --faults, --good, --bad, --json-lines, --max-bad and --part go with a batch");
  if (batch.outputs.asJson && (batch.outputs.report + batch.outputs.faults).empty())
    throw UsageError("--json-lines says how --report and --faults are written: give one of them");
  context.SetUpModule();
  return isBatch ? ValidateBatchFiles(batch, context) : ValidatePayment(options, context);
}

// What is wrong with the text of an option; empty where nothing is.

std::string PartGiven(const std::string& text) {
  return PartOf(text) ? "" : "\"" + text + "\" is no part: 2/8 is the second of eight, and there are a million at most";
}

}  // namespace

void DefineValidateCommand(CLI::App& command, Context& context) {
  command.footer(kValidateExamples);
  const auto options = std::make_shared<ValidateOptions>();
  BatchOptions* const batch = &options->batch;
  command.add_option("FILE", options->file, "The records of one payment; - is standard input")->check(NameGiven);
  command.add_option("--screen", options->screen, "The payment's screen: " + JudgedScreensInWords())->type_name("CODE");
  command.add_option("--amount", options->amount, "The payment's amount in cents")->type_name("CENTS");
  command.add_option("--biller", options->biller, "The payment's biller, such as 001052")->type_name("CODE");
  const auto file = [&](const char* option, std::string& name, const char* text) {
    command.add_option(option, name, text)->type_name("FILE")->check(NameGiven);
  };
  file("--payments", batch->payments, "The payments list of a batch; - is standard input");
  file("--records", batch->records, "The records of a batch; - is standard input");
  file("--report", batch->outputs.report, "Where to write a row for each payment; - is standard output");
  file("--faults", batch->outputs.faults, "Where to write a row for each fault, with its place; - is standard output");
  file("--good", batch->outputs.good, "Where to write the records of the good payments; - is standard output");
  file("--bad", batch->outputs.bad, "Where to write the records of the bad payments; - is standard output");
  command.add_flag("--json-lines", batch->outputs.asJson, "Write report and faults as JSON, an object a line");
  command.add_option("--max-bad", batch->outputs.mostBad, "End a batch at the Nth bad payment")
      ->type_name("N")
      ->check(NumberFrom<uint64_t>(1));
  command.add_option("--part", options->part, "Judge the Ith of N parts of a batch")
      ->type_name("I/N")
      ->check(PartGiven)
      ->each([batch](const std::string& text) { batch->part = PartOf(text).value_or(BatchPart()); });
  command.add_option("--jobs", batch->jobs, "How many threads judge a batch; as many as there are cores")
      ->type_name("N")
      ->check(NumberFrom(1, 256));
  command
      .add_option("--stall", batch->stallSeconds,
                  "For how long a folder may be silent, " + std::to_string(batch->stallSeconds) + " without it")
      ->type_name("SECONDS")
      ->check(NumberFrom<uint32_t>(1, kLongestPatience));
  command.callback([options, &context] { context.status = Validate(*options, context); });
}

}  // namespace fiscalon
