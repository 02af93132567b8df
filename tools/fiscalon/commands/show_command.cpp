#include "tools/fiscalon/commands/show_command.h"

#include <memory>
#include <optional>
#include <utility>

#include "tools/fiscalon/commands/record_picks.h"
#include "tools/fiscalon/commands/show_bad.h"
#include "tools/fiscalon/commands/shown_output.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/line_reader.h"
#include "tools/fiscalon/files/progress_line.h"
#include "tools/fiscalon/files/terminal.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/reading/record_taker.h"

namespace fiscalon {
namespace {

constexpr const char* kShowExamples = R"(Examples:
  fiscalon show payment.pc4
  fiscalon show payment.pc4 --screen 15      fields by their names on the screen, read as what they are
  fiscalon show payment.pc4 --json           the same for machines, as one document
  fiscalon show batch.pc4 --json-lines       or a record on each line
  fiscalon show batch.pc4 --line 2000-2010   some of the lines
  fiscalon show batch.pc4 --bad-only --payments batch.csv
  fiscalon show - < payment.pc4

What is wrong is marked with "!"; what is odd, though screens write it so, with "~".
Exit status: 0 nothing wrong, 1 something wrong in a record (all are printed all the same),
2 the file can't be read, or holds no records, 75 with --bad-only: a folder does not answer.
--today and --locale: see "fiscalon --help".)";

struct ShowOptions {
  std::string file = {};
  std::optional<std::string> screen = {};
  bool json = false;
  bool jsonLines = false;
  PickOptions picks = {};
  bool badOnly = false;
  std::string payments = {};
};

ShownAs FormOf(const ShowOptions& options) {
  if (options.json && options.jsonLines)
    throw UsageError("--json and --json-lines: only one of them");
  return options.json ? ShownAs::Json : options.jsonLines ? ShownAs::JsonLines : ShownAs::Text;
}

/// Takes a file from its lines to the output.
class Show {
 public:
  Show(const ShowOptions& options, const LaunchRow* screen, const Context& context)
      : picks_(options.picks),
        reader_(options.file, [this] { BeforeRead(); }),
        output_(ShownOutput::Of(FormOf(options), reader_.Name(), screen, context)),
        taker_(screen),
        tellsProgress_(!TerminalWidth()) {
    taker_.Judge();
  }

  ExitStatus Run() {
    try {
      ShowAll();
    } catch (const CommandError&) {
      output_->Flush();
      throw;
    }
    output_->End(picks_.AreAll() ? ShownOutput::Picked::All : ShownOutput::Picked::Some);
    return output_->Problems() == 0 ? ExitStatus::Done : ExitStatus::Invalid;
  }

 private:
  void ShowAll() {
    ReadLine line;
    ShownRecord next;
    while (!picks_.EndBehind(lines_) && reader_.Next(line)) {
      if (++lines_ == 1)
        output_->Begin();
      taker_.Take(line.line, line.hidden, next);
      if (taker_.Checks())
        Hold(next);
      else
        Add(next);
    }
    if (lines_ == 0)
      throw CommandError(reader_.Name() + ": " + std::string(kNoRecords));
    if (isHeld_ && !picks_.EndBehind(lines_))
      taker_.Checks()->SayWhatLastLacks(held_);
    if (isHeld_)
      Add(held_);
  }

  /// What a payment lacks is known when the next one begins.
  void Hold(ShownRecord& next) {
    if (isHeld_) {
      if (taker_.Checks()->BeganPayment())
        taker_.Checks()->SayWhatEndedLacks(held_);
      Add(held_);
    }
    std::swap(held_, next);
    isHeld_ = true;
  }

  void Add(const ShownRecord& record) {
    if (picks_.Hold(record))
      output_->Add(record);
  }

  /// Nobody is to wait for records that have been read.
  void BeforeRead() {
    if (output_)
      output_->Flush();
    if (tellsProgress_ && lines_ > 0)
      progress_.Show({lines_, "records", reader_.BytesRead(), reader_.Size()});
  }

  InterruptWatch watch_;
  RecordPicks picks_;
  LineReader reader_;
  std::unique_ptr<ShownOutput> output_;
  RecordTaker taker_;
  bool tellsProgress_;
  ProgressLine progress_;
  uint64_t lines_ = 0;
  ShownRecord held_;
  bool isHeld_ = false;
};

ExitStatus ShowFile(const ShowOptions& options, const Context& context) {
  if (options.badOnly == options.payments.empty())
    throw UsageError("--bad-only needs the list of the payments, --payments, which goes with it alone");
  if (options.badOnly && options.screen)
    throw UsageError("--bad-only takes the screens from --payments: leave out --screen");
  const LaunchRow* screen = options.screen ? &ScreenOf(*options.screen) : nullptr;
  context.SetUpModule();
  if (options.badOnly)
    return ShowBadPayments({options.payments, options.file, FormOf(options), options.picks}, context);
  return Show(options, screen, context).Run();
}

}  // namespace

void DefineShowCommand(CLI::App& command, Context& context) {
  command.footer(kShowExamples);
  const auto options = std::make_shared<ShowOptions>();
  command.add_option("FILE", options->file, "A record file; - is standard input")->required()->check(NameGiven);
  command.add_option("--screen", options->screen, "The screen that the records come from: tells what their fields are")
      ->type_name("CODE");
  command.add_flag("--json", options->json, "Print one JSON document");
  command.add_flag("--json-lines", options->jsonLines, "Print one line of JSON for each record");
  command.add_option("--only", options->picks.only, "Print the records of this kind only, or of these: T,F")
      ->type_name("KIND")
      ->delimiter(',')
      ->check(OneOf({"T", "F", "G", "P", "R", "I"}));
  command.add_option("--line", options->picks.line, "Print these lines only: 12, 12-20 or 12-")->type_name("N-M");
  command.add_option("--seq", options->picks.seq, "Print the records of this sequence number only")->type_name("SEQ");
  command.add_flag("--bad-only", options->badOnly, "Print the records of payments that fail only");
  command.add_option("--payments", options->payments, "The payments list, for --bad-only; - is standard input")
      ->type_name("FILE")
      ->check(NameGiven);
  command.callback([options, &context] { context.status = ShowFile(*options, context); });
}

}  // namespace fiscalon
