#include "frontends/played/session_recorder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/list_control.h"
#include "core/platform/code_page.h"
#include "frontends/played/scenario.h"
#include "frontends/played/scenario_grammar.h"

namespace fiscalon {
namespace {

std::string Quoted(std::string_view inCodePage) {
  return QuotedArgument(ToUtf8(inCodePage));
}

std::string NameOf(MessageAnswer answer) {
  constexpr std::array kNames = {"OK", "Cancel", "Yes", "No"};
  return kNames[static_cast<size_t>(answer)];
}

/// The name that scenarios have for a stroke; empty for one that they have none for.
std::string NameOf(const KeyStroke& stroke) {
  constexpr std::array kNames = {"Tab",  "Shift+Tab", "Enter", "Escape", "Backspace", "Delete", "Space",
                                 "Left", "Right",     "Up",    "Down",   "Home",      "End"};
  for (const char* name : kNames)
    if (const KeyStroke named = *StrokeNamed(name); named.keyCode == stroke.keyCode && named.shift == stroke.shift)
      return name;
  if (stroke.shift == shift_state::kAlt && stroke.keyCode >= 'A' && stroke.keyCode <= 'Z')
    return std::string("Alt+") + static_cast<char>(stroke.keyCode);
  return {};
}

/// The last part of a path.
std::string NameIn(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

bool MovesCaret(int keyCode) {
  constexpr std::array kKeys = {key::kLeft, key::kRight, key::kHome, key::kEnd, key::kUp, key::kDown};
  return std::find(kKeys.begin(), kKeys.end(), keyCode) != kKeys.end();
}

size_t CommonPrefix(std::string_view a, std::string_view b) {
  return static_cast<size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

/// Which characters of a text an edit has replaced, and by what.
struct Replacement {
  Selection replaced = {};
  std::string by = {};
};

Replacement ReplacementBetween(std::string_view before, std::string_view after, Selection selected) {
  // Most edits replace the selection, which tells more than a comparison of two texts with repeated characters.
  const auto start = static_cast<size_t>(selected.start), end = static_cast<size_t>(selected.End());
  const std::string_view behind = before.substr(end);
  if (after.size() >= start + behind.size() && after.substr(0, start) == before.substr(0, start) &&
      after.ends_with(behind))
    return {.replaced = selected, .by = std::string(after.substr(start, after.size() - behind.size() - start))};
  const size_t prefix = CommonPrefix(before, after);
  size_t suffix = 0;
  while (suffix < std::min(before.size(), after.size()) - prefix &&
         before[before.size() - 1 - suffix] == after[after.size() - 1 - suffix])
    ++suffix;
  return {.replaced = {.start = static_cast<int>(prefix), .length = static_cast<int>(before.size() - suffix - prefix)},
          .by = std::string(after.substr(prefix, after.size() - suffix - prefix))};
}

template <class... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

}  // namespace

void SessionRecorder::Today(const DateTime& now) {
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), "today %04d-%02d-%02d %02d:%02d:%02d", now.date.year, now.date.month,
                now.date.day, now.hour, now.minute, now.second);
  Begin(text.data());
}

void SessionRecorder::UsesLocale(std::string_view name) {
  Begin("locale " + QuotedArgument(name));
}

void SessionRecorder::Host(std::string_view property, std::string_view value) {
  std::string recorded(value);
  if (property == "GovFilename" && !value.empty()) {
    // The help file is looked for three folders above the record file.
    recorded = "$TMP/././" + NameIn(value);
    helpFolder_ = "$TMP/";
  } else if (property == "MainPath" && !value.empty()) {
    recorded = "$TMP";
  }
  Begin("host " + std::string(property) + " " + QuotedArgument(recorded));
}

void SessionRecorder::Shows(std::string_view code) {
  Begin("show " + QuotedArgument(code));
}

void SessionRecorder::Result(bool result) {
  form_ = nullptr;
  Begin(std::string("expect result ") + (result ? "True" : "False"));
}

void SessionRecorder::Error(const RuntimeError& error) {
  form_ = nullptr;
  Begin("expect error " + std::to_string(error.Number()) + " " + Quoted(error.Source()) + " " +
        Quoted(error.Description()));
}

void SessionRecorder::Records(const std::vector<std::string>& records) {
  Begin("expect records " + std::to_string(records.size()));
  for (size_t i = 0; i < records.size(); ++i) {
    Begin("expect record " + std::to_string(i + 1) + " " + Quoted(records[i]));
    Begin("expect length " + std::to_string(i + 1) + " " + std::to_string(records[i].size()));
  }
}

void SessionRecorder::Invoice(int32_t position, const PC4& member) {
  Begin("expect invoice " + std::to_string(position) + " " + Quoted(member.TheDate()) + " " + Quoted(member.Amount()) +
        " " + Quoted(member.Description()));
}

std::string SessionRecorder::Text() const {
  std::string text;
  for (const Step& step : steps_) {
    size_t given = 0;
    for (size_t i = 0; i < step.boxes.size(); ++i)
      if (step.answers[i] != step.boxes[i].DefaultAnswer())
        given = i + 1;
    for (size_t i = 0; i < given; ++i) text += "answer " + NameOf(step.answers[i]) + "\n";
    text += step.line + (step.typed.empty() ? "" : Quoted(step.typed)) + "\n";
    for (const std::string& line : step.expected) text += line + "\n";
  }
  return text;
}

void SessionRecorder::Opened(Form& form) {
  form_ = &form;
  if (const TextField* field = ActiveField())
    played_ = field->Selected();
}

void SessionRecorder::ActBegins(const UserAct& act) {
  SettleLastKey();
  const TextField* field = ActiveField();
  activeBefore_ = field;
  selectedBefore_ = field == nullptr ? Selection{} : field->Selected();
  catchesUp_ = field == nullptr || !PlayerIsElsewhere(*field);
  std::visit(
      Overloaded{[this](const KeyAct& key) { Key(key.stroke); }, [this](const EditAct& edit) { Edit(edit); },
                 [this](const PressAct& press) {
                   // Labels can be pressed too, and nothing comes of it.
                   if (press.control->CanTakeFocus())
                     Begin((press.control->Kind() == ControlKind::TextField ? "click " : "focus ") +
                           Quoted(press.control->Name()));
                 },
                 [this](const ReleaseAct& release) { Release(*release.control); },
                 [this](const ClickAct& click) { Begin("click " + Quoted(click.control->Name())); },
                 [this](const ChooseAct& choose) { Choose(choose); },
                 [this](const BringFocusAct& bring) { Begin("focus " + Quoted(bring.control->Name())); },
                 [this](const CloseAct& close) { Begin("close " + std::to_string(static_cast<int>(close.reason))); }},
      act);
}

void SessionRecorder::ActEnded() {
  const auto paste = std::exchange(paste_, std::nullopt);
  const TextField* field = ActiveField();
  if (field == nullptr)
    return;
  // What a handler selects is selected for a player too.
  const bool selected = field != activeBefore_ || field->Selected() != selectedBefore_;
  if (!catchesUp_ && !selected) {
    // A handler may have selected what the user had selected already.
    played_.reset();
    return;
  }
  played_ = field->Selected();
  // Undo and redo leave another selection than the paste that they have become. A handler's is the same for both.
  if (paste && field == activeBefore_ && played_ == paste->user)
    played_ = paste->player;
}

void SessionRecorder::Key(KeyStroke stroke) {
  lastKey_ = {};
  const TextField* field = ActiveField();
  if (MovesCaret(stroke.keyCode)) {
    // Where the caret goes shows when something is typed there.
    if (field != nullptr)
      return;
    // Lists and options go the same way whatever is held with the key.
    if ((stroke.shift & shift_state::kAlt) == 0)
      stroke.shift = 0;
  }
  const bool erases = stroke.shift == 0 && (stroke.keyCode == key::kBackspace || stroke.keyCode == key::kDelete);
  const bool types = stroke.character >= ' ' && stroke.keyCode != key::kEscape;
  const bool elsewhere = field != nullptr && (erases || types) && PlayerIsElsewhere(*field);
  const bool replaces = elsewhere && field->Selected().length > 0;
  if (elsewhere && !replaces) {
    Erase(field->Text(), field->Selected(), 0);
    catchesUp_ = true;
  }
  if (types && (field != nullptr || stroke.keyCode != key::kSpace))
    Type(static_cast<char>(stroke.character), replaces ? Typing::Begins : Typing::Grows);
  else if (const std::string name = NameOf(stroke); !name.empty())
    Begin("key " + name);
  else
    return;
  lastKey_ = {.edits = true, .erases = erases};
  if (replaces) {
    lastKey_.field = field;
    lastKey_.text = field->Text();
    lastKey_.selection = field->Selected();
  }
}

void SessionRecorder::SettleLastKey() {
  const TextField* field = lastKey_.field;
  if (field == nullptr || field != ActiveField() || field->Text() != lastKey_.text ||
      field->Selected() != Selection{.start = lastKey_.selection.start + 1})
    return;
  BringPlayerToLastKey();
  lastKey_ = {};
  played_ = field->Selected();
}

void SessionRecorder::BringPlayerToLastKey() {
  const Selection selection = lastKey_.selection;
  Step step = std::move(steps_.back());
  steps_.pop_back();
  const bool erasesSelected = lastKey_.erases && selection.length > 0;
  // The last character goes by the key itself.
  Erase(lastKey_.text, selection, erasesSelected ? selection.length - 1 : selection.length);
  if (erasesSelected)
    step.line = "key Backspace";
  steps_.push_back(std::move(step));
}

void SessionRecorder::Type(char character, Typing how) {
  const bool grows = how == Typing::Grows && !steps_.empty() && !steps_.back().typed.empty() &&
                     steps_.back().boxes.empty() && steps_.back().expected.empty();
  if (!grows)
    Begin("type ");
  steps_.back().typed += character;
}

void SessionRecorder::Edit(const EditAct& act) {
  const bool done = lastKey_.edits && act.origin == EditAct::Origin::Key;
  catchesUp_ = true;
  if (done && lastKey_.field == act.field)
    BringPlayerToLastKey();
  lastKey_ = {};
  if (done || act.field->Locked())
    return;
  const Replacement replacement = ReplacementBetween(act.field->Text(), act.text, act.field->Selected());
  const bool selected = replacement.replaced == played_ && !PlayerIsElsewhere(*act.field);
  if (!selected)
    Erase(act.field->Text(), replacement.replaced, replacement.replaced.length);
  paste_ = {.user = act.selection,
            .player = {.start = replacement.replaced.start + static_cast<int>(replacement.by.size())}};
  if (!replacement.by.empty())
    Begin("paste " + Quoted(replacement.by));
  else if (selected && replacement.replaced.length > 0)
    Begin("key Backspace");
}

void SessionRecorder::Erase(std::string_view text, Selection selection, int characters) {
  auto caret = static_cast<int>(text.size());
  if (!played_) {
    Begin("key End");
  } else if (played_->length > 0) {
    const bool toEnd = selection.End() > played_->start;
    Begin(toEnd ? "key Right" : "key Left");
    caret = toEnd ? played_->End() : played_->start;
  } else {
    caret = played_->start;
  }
  for (; caret < selection.End(); ++caret) Begin("key Right");
  for (; caret > selection.End(); --caret) Begin("key Left");
  for (int i = 0; i < characters; ++i) Begin("key Backspace");
  played_ = Selection{.start = selection.End() - characters};
}

bool SessionRecorder::PlayerIsElsewhere(const TextField& field) const {
  return played_ != field.Selected();
}

void SessionRecorder::Release(const Control& control) {
  const std::string name = Quoted(control.Name());
  if (!steps_.empty() && steps_.back().line == "focus " + name)
    steps_.back().line = "click " + name;
  else
    Begin("click " + name);
}

void SessionRecorder::Choose(const ChooseAct& act) {
  const std::string name = Quoted(act.list->Name());
  const std::string line = "choose " + name + " " + Quoted(act.list->List(act.row));
  if (!steps_.empty() && steps_.back().line == "focus " + name)
    steps_.back().line = line;
  else
    Begin(line);
}

void SessionRecorder::BoxAnswered(const BoxRequest& box, MessageAnswer answer) {
  if (steps_.empty())
    return;
  steps_.back().boxes.push_back(box);
  steps_.back().answers.push_back(answer);
  Expect("expect " + DescribedBox(box));
}

void SessionRecorder::Beeped() {
  Expect("expect beep");
}

void SessionRecorder::HelpOpened(std::string_view file, int32_t context) {
  const std::string name = ToUtf8(file);
  Expect("expect help " + QuotedArgument(helpFolder_.empty() ? name : helpFolder_ + NameIn(name)) + " " +
         std::to_string(context));
}

void SessionRecorder::Expect(const std::string& line) {
  if (!steps_.empty())
    steps_.back().expected.push_back(line);
}

TextField* SessionRecorder::ActiveField() const {
  if (form_ == nullptr || !form_->IsUp())
    return nullptr;
  Control* const active = form_->ActiveControl();
  return active != nullptr && active->Kind() == ControlKind::TextField ? static_cast<TextField*>(active) : nullptr;
}

}  // namespace fiscalon
