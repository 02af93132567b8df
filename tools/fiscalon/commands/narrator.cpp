#include "tools/fiscalon/commands/narrator.h"

#include <algorithm>

#include "core/launch.h"
#include "frontends/played/scenario_grammar.h"
#include "frontends/scripted/text_picture.h"
#include "tools/fiscalon/commands/shown_text.h"
#include "tools/fiscalon/files/terminal.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    if (lines.back().ends_with('\r'))
      lines.back().remove_suffix(1);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

bool IsComment(std::string_view line) {
  const size_t first = line.find_first_not_of(" \t");
  return first != std::string_view::npos && line[first] == '#';
}

bool IsUsers(const ScenarioLine& line) {
  return line.form->turn == Turn::User || line.form->turn == Turn::Answer;
}

}  // namespace

Narrator::Narrator(const Scenario& scenario, std::string_view text, const Context& context, std::ostream& out)
    : scenario_(scenario), context_(context), out_(out), lines_(LinesOf(text)) {}

PlayWatcher Narrator::Watcher() {
  return {.lineBegins = [this](const ScenarioLine& line) { LineBegins(line); },
          .lineEnds = [this](const ScenarioLine& line, Form* form) { LineEnds(line, form); },
          .boxAnswered = [this](const BoxRequest& box, MessageAnswer answer,
                                Form* form) { BoxAnswered(box, answer, form); },
          .noticed = [this](const std::string& what) { SetApart("    (" + what + ")\n"); },
          .showEnded = [this](const std::string& ending) { ShowEnded(ending); },
          .ended = [this](const FoundRecords& found) { Ended(found); }};
}

void Narrator::LineBegins(const ScenarioLine& line) {
  TellUpTo(static_cast<size_t>(line.number));
  if (line.verb != "show")
    return;
  screen_ = line.arguments[0];
  drawn_.clear();
}

void Narrator::LineEnds(const ScenarioLine& line, Form* form) {
  if (form != nullptr && !ActsGoOn(line))
    DrawIfChanged(*form);
}

void Narrator::BoxAnswered(const BoxRequest& box, MessageAnswer answer, Form* form) {
  if (form != nullptr)
    DrawIfChanged(*form);
  SetApart(DrawMessageBox(box, answer));
}

void Narrator::ShowEnded(const std::string& ending) {
  SetApart("    The screen is closed, and the host gets: " + ending + "\n");
}

void Narrator::Ended(const FoundRecords& found) {
  size_t end = lines_.size();
  while (end > 0 && (!IsOwn(end) || IsBlank(lines_[end - 1]))) --end;
  TellUpTo(end);
  SetApart(found.records.empty()
               ? std::string("The host finds no records.\n")
               : "The host finds " + Counted(found.records.size(), "record") + ", here taken apart:\n");
  out_ << '\n';
  // An invoice of a collection stands in three texts.
  const LaunchRow* screen = FindLaunchRow(screen_);
  PrintRecords(
      out_, found.collection != nullptr ? TakeApart(*found.collection, screen) : TakeApart(found.records, screen),
      {.paint = context_.paint, .locale = context_.SpokenLocale(), .countedAs = "record", .width = TerminalWidth()});
}

void Narrator::TellUpTo(size_t line) {
  for (; told_ < std::min(line, lines_.size()); ++told_) {
    const std::string_view text = lines_[told_];
    if (!IsOwn(told_ + 1))
      continue;
    if (stoodApart_ && !IsBlank(text))
      out_ << '\n';
    stoodApart_ = false;
    out_ << (IsComment(text) ? context_.paint.Aside(text) : std::string(text)) << '\n';
  }
}

bool Narrator::IsOwn(size_t line) const {
  const auto isIn = [line](const LineRange& range) {
    return line >= static_cast<size_t>(range.from) && line < static_cast<size_t>(range.to);
  };
  return isIn(scenario_.ahead) || isIn(scenario_.own);
}

void Narrator::DrawIfChanged(Form& form) {
  const std::string picture = DrawForm(form);
  if (picture == drawn_)
    return;
  drawn_ = picture;
  constexpr std::string_view kMargin = "    ";
  std::string indented;
  for (const std::string_view line : LinesOf(picture)) indented.append(kMargin).append(line).append("\n");
  SetApart(indented);
}

void Narrator::SetApart(std::string_view piece) {
  out_ << '\n' << piece;
  stoodApart_ = true;
}

bool Narrator::ActsGoOn(const ScenarioLine& line) const {
  const auto next = std::find_if(scenario_.lines.begin(), scenario_.lines.end(),
                                 [&](const ScenarioLine& each) { return each.number == line.number + 1; });
  return line.verb != "show" && next != scenario_.lines.end() && IsUsers(*next);
}

}  // namespace fiscalon
