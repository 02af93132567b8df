#include "frontends/played/session_recorder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/list_control.h"
#include "core/platform/code_page.h"
#include "frontends/played/scenario.h"
#include "frontends/played/seen_things.h"

namespace fiscalon {
namespace {

/// The name that scenarios have for a stroke; empty for one that they have none for.
std::string NameOf(const KeyStroke& stroke) {
  constexpr std::array kNames = {"Tab",    "Shift+Tab", "Enter", "Escape",      "Backspace",
                                 "Delete", "Space",     "Left",  "Right",       "Up",
                                 "Down",   "Home",      "End",   "Shift+Enter", "Ctrl+Enter"};
  for (const char* name : kNames)
    if (const KeyStroke named = *StrokeNamed(name); named.keyCode == stroke.keyCode && named.shift == stroke.shift)
      return name;
  if (stroke.shift == shift_state::kAlt && stroke.keyCode >= 'A' && stroke.keyCode <= 'Z')
    return std::string("Alt+") + static_cast<char>(stroke.keyCode);
  return {};
}

std::string NameOf(const Control& control) {
  return QuotedFromCodePage(control.Name());
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
  text_.Begin(text.data());
}

void SessionRecorder::UsesLocale(std::string_view name) {
  text_.Begin("locale " + QuotedArgument(name));
}

void SessionRecorder::UsesLanguage(std::string_view name) {
  text_.Begin("language " + QuotedArgument(name));
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
  text_.Begin("host " + std::string(property) + " " + QuotedArgument(recorded));
}

void SessionRecorder::Shows(std::string_view code) {
  text_.Begin("show " + QuotedArgument(code));
}

void SessionRecorder::Result(bool result) {
  form_ = nullptr;
  text_.Begin(std::string("expect result ") + (result ? "True" : "False"));
}

void SessionRecorder::Error(const RuntimeError& error) {
  form_ = nullptr;
  text_.Begin("expect error " + std::to_string(error.Number()) + " " + QuotedFromCodePage(error.Source()) + " " +
              QuotedFromCodePage(error.Description()));
}

void SessionRecorder::Records(const std::vector<std::string>& records) {
  text_.Begin("expect records " + std::to_string(records.size()));
  for (size_t i = 0; i < records.size(); ++i) {
    text_.Begin("expect record " + std::to_string(i + 1) + " " + QuotedFromCodePage(records[i]));
    text_.Begin("expect length " + std::to_string(i + 1) + " " + std::to_string(records[i].size()));
  }
}

void SessionRecorder::Invoice(int32_t position, const PC4& member) {
  text_.Begin("expect invoice " + std::to_string(position) + " " + QuotedFromCodePage(member.TheDate()) + " " +
              QuotedFromCodePage(member.Amount()) + " " + QuotedFromCodePage(member.Description()));
}

void SessionRecorder::Opened(Form& form) {
  form_ = &form;
  caret_.FormOpens(ActiveField());
}

void SessionRecorder::ActBegins(const UserAct& act) {
  SettleLastKey();
  caret_.ActBegins(ActiveField());
  std::visit(
      Overloaded{
          [this](const KeyAct& key) { Key(key); }, [this](const EditAct& edit) { Edit(edit); },
          [this](const PressAct& press) {
            // Labels can be pressed too, and nothing comes of it.
            if (press.control->CanTakeFocus())
              text_.Begin((dynamic_cast<const TextField*>(press.control) != nullptr ? "click " : "focus ") +
                          NameOf(*press.control));
          },
          [this](const ReleaseAct& release) {
            const std::string name = NameOf(*release.control);
            text_.BeginInPlaceOf("focus " + name, "click " + name);
          },
          [this](const ClickAct& click) { text_.Begin("click " + NameOf(*click.control)); },
          [this](const ChooseAct& choose) {
            const std::string name = NameOf(*choose.list);
            const std::string row = QuotedFromCodePage(choose.list->ShownRow(choose.row));
            text_.BeginInPlaceOf("focus " + name, "choose " + name + " " + row);
          },
          [this](const BringFocusAct& bring) { text_.Begin("focus " + NameOf(*bring.control)); },
          [this](const CloseAct& close) { text_.Begin("close " + std::to_string(static_cast<int>(close.reason))); }},
      act);
}

void SessionRecorder::ActEnded() {
  caret_.ActEnded(ActiveField());
}

void SessionRecorder::Key(const KeyAct& act) {
  KeyStroke stroke = act.stroke;
  if (act.half == KeyAct::Half::Key) {
    // Of a key that types a scenario knows the character alone.
    halfKey_ = stroke;
    if (NameOf(stroke).empty() || stroke.keyCode == key::kSpace)
      return;
    stroke.character = StrokeNamed(NameOf(stroke))->character;
  } else if (const auto half = std::exchange(halfKey_, std::nullopt); act.half == KeyAct::Half::Character && half) {
    // Enter and its kin were recorded by their names already.
    if (stroke.character < ' ' && !NameOf(*half).empty())
      return;
    stroke.shift = half->shift;
  }
  Stroke(stroke);
}

void SessionRecorder::Stroke(KeyStroke stroke) {
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
  const bool elsewhere = field != nullptr && (erases || types) && caret_.IsElsewhere(*field);
  const bool replaces = elsewhere && field->Selected().length > 0;
  if (elsewhere && !replaces) {
    Erase(field->Text(), field->Selected(), 0);
    caret_.CatchesUp();
  }
  if (types && (field != nullptr || stroke.keyCode != key::kSpace))
    text_.Type(static_cast<char>(stroke.character),
               replaces ? ScenarioText::Typing::Begins : ScenarioText::Typing::GoesOn);
  else if (const std::string name = NameOf(stroke); !name.empty())
    text_.Begin("key " + name);
  else
    return;
  const auto effect = erases ? LastKey::Effect::Erases : LastKey::Effect::Types;
  lastKey_ = replaces ? LastKey(effect, *field) : LastKey(effect);
}

void SessionRecorder::SettleLastKey() {
  const TextField* field = ActiveField();
  if (!lastKey_.RetypedIn(field))
    return;
  BringPlayerToLastKey();
  lastKey_ = {};
  caret_.IsIn(*field);
}

void SessionRecorder::BringPlayerToLastKey() {
  text_.InsertBeforeLast(lastKey_.KeysBefore(caret_));
  if (lastKey_.TakesLastCharacter())
    text_.ReplaceLast("key Backspace");
}

void SessionRecorder::Edit(const EditAct& act) {
  const bool done = lastKey_.Edits() && act.origin == EditAct::Origin::Key;
  caret_.CatchesUp();
  if (done && lastKey_.Meets(act.field))
    BringPlayerToLastKey();
  lastKey_ = {};
  if (done || act.field->Locked())
    return;
  const Replacement replacement = ReplacementBetween(act.field->Text(), act.text, act.field->Selected());
  const bool selected = caret_.Has(replacement.replaced) && !caret_.IsElsewhere(*act.field);
  if (!selected)
    Erase(act.field->Text(), replacement.replaced, replacement.replaced.length);
  caret_.Pastes(act.selection, {.start = replacement.replaced.start + static_cast<int>(replacement.by.size())});
  if (!replacement.by.empty())
    text_.Begin("paste " + QuotedFromCodePage(replacement.by));
  else if (selected && replacement.replaced.length > 0)
    text_.Begin("key Backspace");
}

void SessionRecorder::Erase(std::string_view text, Selection selection, int characters) {
  for (const std::string& key : caret_.KeysThatErase(text, selection, characters)) text_.Begin(key);
}

void SessionRecorder::BoxAnswered(const BoxRequest& box, MessageAnswer answer) {
  text_.Answered(box, answer);
}

void SessionRecorder::Beeped() {
  text_.Expect("expect beep");
}

void SessionRecorder::HelpOpened(std::string_view file, int32_t context) {
  const std::string name = ToUtf8(file);
  text_.Expect("expect " + DescribedHelp(helpFolder_.empty() ? name : helpFolder_ + NameIn(name), context));
}

TextField* SessionRecorder::ActiveField() const {
  if (form_ == nullptr || !form_->IsUp())
    return nullptr;
  return dynamic_cast<TextField*>(form_->ActiveControl());
}

}  // namespace fiscalon
