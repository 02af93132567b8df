#include "tools/fiscalon/commands/shown_output.h"

#include <iostream>

#include "tools/fiscalon/commands/shown_json.h"
#include "tools/fiscalon/commands/shown_text.h"
#include "tools/fiscalon/files/file_places.h"
#include "tools/fiscalon/files/standard_output.h"
#include "tools/fiscalon/files/terminal.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

/// What is to go out in one step: a pipe's own 64 KiB would have its writer and its reader take turns four times as
/// often.
constexpr size_t kMostAtOnce = size_t{256} << 10;
/// So much is held before it goes out. Less than a step, since the record that makes it too much goes with it.
constexpr size_t kMostHeld = kMostAtOnce - (size_t{16} << 10);

class TextOutput : public ShownOutput {
 public:
  TextOutput(const std::string& name, const LaunchRow* screen, const Context& context)
      : paint_(context.paint),
        printer_({.paint = context.paint, .locale = context.SpokenLocale(), .width = TerminalWidth()}),
        heading_(VisibleUtf8(name)) {
    if (screen != nullptr)
      heading_.append(", of screen ").append(screen->code).append(" (").append(screen->form).append(")");
  }

 protected:
  void AppendBeginning(std::string& text) override { text.append(heading_).append("\n\n"); }

  void AppendRecord(std::string& text, const ShownRecord& record, bool /*isFirst*/) override {
    printer_.Append(text, record);
  }

  void AppendSaying(std::string& text, const std::string& line) override { text.append(line).append("\n"); }

  void AppendEnd(std::string& text, const Counts& counts) override {
    if (counts.lines == 0) {
      text += "no line is picked\n";
      return;
    }
    text.append(Counted(counts.lines, "line")).append(counts.picked == Picked::Some ? " picked, " : ", ");
    text += counts.problems == 0 ? paint_.Good("nothing wrong") : paint_.Bad(Counted(counts.problems, "problem"));
    if (counts.oddities != 0)
      text.append(", ").append(std::to_string(counts.oddities)).append(" odd");
    text += '\n';
  }

 private:
  Paint paint_;
  RecordPrinter printer_;
  std::string heading_;
};

/// One document, a record on each of its lines. Until it is whole it is no JSON.
class JsonOutput : public ShownOutput {
 public:
  JsonOutput(const std::string& name, const LaunchRow* screen) : heading_("{\n  \"file\": ") {
    AppendJsonString(heading_, name);
    heading_ += ",\n  \"screen\": ";
    if (screen == nullptr)
      heading_ += "null";
    else
      heading_.append(R"({"code": ")")
          .append(screen->code)
          .append(R"(", "form": ")")
          .append(screen->form)
          .append("\"}");
    heading_ += ",\n  \"records\": [";
  }

 protected:
  void AppendBeginning(std::string& text) override { text += heading_; }

  void AppendRecord(std::string& text, const ShownRecord& record, bool isFirst) override {
    text += isFirst ? "\n    " : ",\n    ";
    printer_.Append(text, record);
  }

  void AppendEnd(std::string& text, const Counts& counts) override {
    text += counts.lines == 0 ? "]\n}\n" : "\n  ]\n}\n";
  }

 private:
  JsonPrinter printer_;
  std::string heading_;
};

class JsonLinesOutput : public ShownOutput {
 protected:
  void AppendBeginning(std::string& /*text*/) override {}

  void AppendRecord(std::string& text, const ShownRecord& record, bool /*isFirst*/) override {
    printer_.Append(text, record);
    text += '\n';
  }

  void AppendEnd(std::string& /*text*/, const Counts& /*counts*/) override {}

 private:
  JsonPrinter printer_;
};

}  // namespace

ShownOutput::ShownOutput() {
  WidenOutput(kMostAtOnce);
}

std::unique_ptr<ShownOutput> ShownOutput::Of(ShownAs form, const std::string& name, const LaunchRow* screen,
                                             const Context& context) {
  switch (form) {
    case ShownAs::Json:
      return std::make_unique<JsonOutput>(name, screen);
    case ShownAs::JsonLines:
      return std::make_unique<JsonLinesOutput>();
    case ShownAs::Text:
      break;
  }
  return std::make_unique<TextOutput>(name, screen, context);
}

void ShownOutput::Add(const ShownRecord& record) {
  AppendRecord(text_, record, lines_ == 0);
  ends_.push_back(text_.size());
  ++lines_;
  problems_ += record.problems.size();
  oddities_ += record.oddities.size();
  if (text_.size() >= kMostHeld)
    Flush();
}

void ShownOutput::End(Picked picked) {
  AppendEnd(text_, {.lines = lines_, .problems = problems_, .oddities = oddities_, .picked = picked});
  Flush();
}

void ShownOutput::Flush() {
  if (text_.empty())
    return;
  if (ends_.empty() || ends_.back() != text_.size())
    ends_.push_back(text_.size());
  std::cout.flush();
  // What can't be written now is not tried again. Both texts keep their room.
  text_.swap(sent_);
  ends_.swap(sentEnds_);
  text_.clear();
  ends_.clear();
  StandardOutput::WritePieces(sent_, sentEnds_);
}

}  // namespace fiscalon
