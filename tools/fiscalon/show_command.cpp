#include "tools/fiscalon/show_command.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "tools/fiscalon/interrupt_watch.h"
#include "tools/fiscalon/line_reader.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/progress_line.h"
#include "tools/fiscalon/record_taker.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/fiscalon/shown_output.h"
#include "tools/fiscalon/terminal.h"

namespace fiscalon {
namespace {

constexpr const char* kExamples = R"(Examples:
  fiscalon show payment.pc4
  fiscalon show payment.pc4 --screen 15      fields by their names on the screen, read as what they are
  fiscalon show payment.pc4 --json           the same for machines, as one document
  fiscalon show batch.pc4 --json-lines       or a record on each line
  fiscalon show batch.pc4 --line 2000-2010   some of the lines
  fiscalon show - < payment.pc4

What is wrong is marked with "!"; what is odd, though screens write it so, with "~".
Exit status: 0 nothing wrong, 1 something wrong in a record (all are printed all the same),
2 the file can't be read, or holds no records. --today and --locale: see "fiscalon --help".)";

struct ShowOptions {
  std::string file = {};
  std::optional<std::string> screen = {};
  bool json = false;
  bool jsonLines = false;
  std::vector<std::string> only = {};
  std::optional<std::string> line = {};
  std::optional<std::string> seq = {};
};

/// Which of the lines are to be shown.
class Picks {
 public:
  explicit Picks(const ShowOptions& options) {
    for (const std::string& kind : options.only) kinds_ += kind;
    if (options.line)
      ReadLines(*options.line);
    if (options.seq)
      ReadSequence(*options.seq);
    areAll_ = kinds_.empty() && !options.line && !options.seq;
  }

  bool AreAll() const { return areAll_; }
  bool EndBehind(uint64_t line) const { return line >= lastLine_; }
  bool Hold(const ShownRecord& record) const {
    return areAll_ || (record.number >= firstLine_ && record.number <= lastLine_ && HoldKind(record) &&
                       (seq_.empty() || record.Seq() == seq_));
  }

 private:
  bool HoldKind(const ShownRecord& record) const {
    return kinds_.empty() || (record.isRecord && kinds_.find(static_cast<char>(record.kind)) != std::string::npos);
  }

  /// "12", "12-20" or "12-".
  void ReadLines(const std::string& text) {
    const char* const end = text.data() + text.size();
    const auto [dash, error] = std::from_chars(text.data(), end, firstLine_);
    bool isRead = error == std::errc() && firstLine_ > 0;
    if (isRead && dash == end) {
      lastLine_ = firstLine_;
    } else if (isRead && *dash == '-' && dash + 1 != end) {
      const auto [stop, lastError] = std::from_chars(dash + 1, end, lastLine_);
      isRead = lastError == std::errc() && stop == end && lastLine_ >= firstLine_;
    } else {
      isRead = isRead && *dash == '-';
    }
    if (!isRead)
      throw UsageError("--line takes a line or a range of lines, such as 12, 12-20 or 12-, not \"" + text + "\"");
  }

  void ReadSequence(const std::string& text) {
    constexpr size_t kCharacters = FieldNamed(kRecordHead, "SeqNumber").Width();
    seq_ = FromUtf8(text);
    if (seq_.size() != kCharacters)
      throw UsageError("--seq takes a sequence number, which has four characters, not \"" + text + "\"");
  }

  std::string kinds_;
  std::string seq_;
  uint64_t firstLine_ = 1;
  uint64_t lastLine_ = std::numeric_limits<uint64_t>::max();
  bool areAll_ = true;
};

/// Takes a file from its lines to the output.
class Show {
 public:
  Show(const ShowOptions& options, const LaunchRow* screen, const Context& context)
      : picks_(options),
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
    output_->End(!picks_.AreAll());
    return output_->Problems() == 0 ? ExitStatus::Done : ExitStatus::Invalid;
  }

 private:
  static ShownAs FormOf(const ShowOptions& options) {
    if (options.json && options.jsonLines)
      throw UsageError("--json and --json-lines: only one of them");
    return options.json ? ShownAs::Json : options.jsonLines ? ShownAs::JsonLines : ShownAs::Text;
  }

  void ShowAll() {
    ReadLine line;
    ShownRecord next;
    while (!picks_.EndBehind(lines_) && reader_.Next(line)) {
      if (++lines_ == 1)
        output_->Begin();
      taker_.Take(line.line, line.hidden, next);
      if (taker_.Judges())
        Hold(next);
      else
        Add(next);
    }
    if (lines_ == 0)
      throw CommandError(reader_.Name() + ": " + std::string(kNoRecords));
    if (isHeld_ && !picks_.EndBehind(lines_))
      taker_.EndPayment(held_);
    if (isHeld_)
      Add(held_);
  }

  /// What a payment lacks is known when the next one begins.
  void Hold(ShownRecord& next) {
    if (isHeld_) {
      if (held_.Seq() != next.Seq())
        taker_.EndPayment(held_);
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
  Picks picks_;
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
  const LaunchRow* screen = options.screen ? &ScreenOf(*options.screen) : nullptr;
  TheModule().locale = context.SpokenLocale();
  if (context.today)
    TheModule().clock = std::make_shared<FixedClock>(*context.today);
  return Show(options, screen, context).Run();
}

}  // namespace

void AddShowCommand(CLI::App& app, Context& context) {
  CLI::App* command =
      app.add_subcommand("show", "Print the records of a file taken apart, and what is wrong with them");
  command->footer(kExamples);
  const auto options = std::make_shared<ShowOptions>();
  command->add_option("FILE", options->file, "A record file; - is standard input")->required()->check(NameGiven);
  command->add_option("--screen", options->screen, "The screen that the records come from: tells what their fields are")
      ->type_name("CODE");
  command->add_flag("--json", options->json, "Print one JSON document");
  command->add_flag("--json-lines", options->jsonLines, "Print one line of JSON for each record");
  command->add_option("--only", options->only, "Print the records of this kind only, or of these: T,F")
      ->type_name("KIND")
      ->delimiter(',')
      ->check(OneOf({"T", "F", "G", "P", "R", "I"}));
  command->add_option("--line", options->line, "Print these lines only: 12, 12-20 or 12-")->type_name("N-M");
  command->add_option("--seq", options->seq, "Print the records of this sequence number only")->type_name("SEQ");
  command->callback([options, &context] { context.status = ShowFile(*options, context); });
}

}  // namespace fiscalon
