#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/found_records.h"
#include "core/launch.h"
#include "core/module_state.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/busy_form.h"

namespace fiscalon {

/// A user with no plan, the same again for the same seed, and a protocol of what was done and what was seen.
class Wanderer {
 public:
  Wanderer(unsigned seed, DrivenToolkit& toolkit) : random_(seed) {
    toolkit.onMessage = [this](const BoxRequest& box) {
      Note("box: " + box.text);
      return box.buttons == MessageButtons::YesNo && Below(2) == 0 ? MessageAnswer::No : box.DefaultAnswer();
    };
    toolkit.onEvent = [this](const std::string& handler) { Note("  " + handler); };
    toolkit.onHelp = [this](std::string_view file, int32_t) { Note("help: " + std::string(file)); };
    toolkit.onForm = [this](Form& form, UserDriver& user) { Wander(form, user); };
  }

  const std::vector<std::string>& Protocol() const { return protocol_; }
  void Note(const std::string& line) { protocol_.push_back(line); }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  void Wander(Form& form, UserDriver& user) {
    Look(form, user);
    for (int patience = 150; patience > 0 && form.IsUp(); --patience) {
      Act(form, user);
      if (form.IsUp())
        Look(form, user);
    }
    if (form.IsUp())
      user.CloseWindow(0);
  }

  void Act(Form& form, UserDriver& user) {
    Control& control = *form.Controls()[static_cast<size_t>(Below(static_cast<int>(form.Controls().size())))];
    const std::string& name = control.Name();
    switch (Below(10)) {
      case 0:
        Note("press " + name);
        return user.PressMouse(control);
      case 1:
        Note("click " + name);
        return user.Click(control);
      case 2:
        return Choose(control, user);
      case 3:
        return Paste(user);
      case 4:
      case 5:
      case 6:
        return PressKey(form, user);
      default:
        return Type(form, user);
    }
  }

  void Choose(Control& control, UserDriver& user) {
    auto* const list = dynamic_cast<ListControl*>(&control);
    if (list == nullptr || list->ListCount() == 0)
      return;
    const int row = Below(list->ListCount());
    Note("choose " + control.Name() + " " + std::to_string(row));
    user.Choose(*list, row);
  }

  void Paste(UserDriver& user) {
    static const std::vector<std::string> kTexts = {
        "",   "2026",       "202612", "20261231",       "123.45", "12345", "\r\nx",
        "1a", "C\xF4t\xE9", "1\n2",   "99999999999999", "-5",     " 7 "};
    const std::string& text = kTexts[static_cast<size_t>(Below(static_cast<int>(kTexts.size())))];
    Note("paste " + text);
    user.Paste(text);
  }

  /// Up and down in a text of several lines, and the ends of its lines, depend on where the widget breaks them.
  static bool GoesByLines(const Form& form, std::string_view key) {
    const auto* field = dynamic_cast<const TextField*>(form.ActiveControl());
    return field != nullptr && field->IsMultiLine() && (key == "Up" || key == "Down" || key == "Home" || key == "End");
  }

  void PressEditorKey(UserDriver& user) {
    static const std::vector<KeyStroke> kStrokes = {{.keyCode = 'A', .shift = shift_state::kControl},
                                                    {.keyCode = 'C', .shift = shift_state::kControl},
                                                    {.keyCode = key::kInsert, .shift = shift_state::kControl}};
    const KeyStroke& stroke = kStrokes[static_cast<size_t>(Below(static_cast<int>(kStrokes.size())))];
    Note("editor key " + std::to_string(stroke.keyCode));
    user.PressKey(stroke);
  }

  void PressKey(Form& form, UserDriver& user) {
    if (Below(10) == 0)
      return PressEditorKey(user);
    static const std::vector<std::string> kNames = {
        "Tab",   "Shift+Tab", "Enter",  "Escape",    "Backspace", "Delete",      "Space",     "Left",
        "Right", "Up",        "Down",   "Home",      "End",       "Alt+O",       "Alt+Z",     "Tab",
        "Tab",   "Enter",     "Delete", "Backspace", "Alt+F",     "Shift+Enter", "Ctrl+Enter"};
    const std::string& name = kNames[static_cast<size_t>(Below(static_cast<int>(kNames.size())))];
    // Escape and Alt+O would end most walks at once.
    if (((name == "Escape" || name == "Alt+O") && Below(4) != 0) || GoesByLines(form, name))
      return;
    Note("key " + name);
    user.PressKey(*StrokeNamed(name));
  }

  void Type(Form& form, UserDriver& user) {
    static const std::vector<std::string> kTexts = {"202612", "20261231", "12345", "123.45", "1",   "0",
                                                    "x",      ",",        "-",     "\xE9",   "0.0", "5",
                                                    "inv",    "INV-2 ",   "qu",    "m"};
    const std::string& text = kTexts[static_cast<size_t>(Below(static_cast<int>(kTexts.size())))];
    Note("type " + text);
    for (const char character : text)
      if (form.IsUp())
        user.Type(character);
  }

  void Look(Form& form, UserDriver& user) {
    std::string seen = "focus " + user.FocusName();
    for (Control* control : form.Controls()) {
      seen += " | " + control->Name() + " " + WithPlainLineEnds(user.Text(*control)) +
              (user.Enabled(*control) ? "" : " disabled") + (user.Visible(*control) ? "" : " hidden") +
              (user.Checked(*control) ? " checked" : "") + (user.Locked(*control) ? " locked" : "") + " " +
              std::to_string(user.Items(*control));
      if (user.FocusName() == control->Name())
        seen += " <" + WithPlainLineEnds(user.SelectedText(*control)) + ">";
    }
    Note(seen);
  }

  static std::string WithPlainLineEnds(std::string text) {
    std::erase(text, '\r');
    return text;
  }

  std::mt19937 random_;
  std::vector<std::string> protocol_;
};

inline std::vector<std::string> Walk(DrivenToolkit& toolkit, const LaunchRow& row, unsigned seed) {
  ResetModule();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {.year = 2026, .month = 6, .day = 15}});
  TheModule().locale = EnglishCanada();
  Wanderer wanderer(seed, toolkit);
  UseToolkit(&toolkit);
  Levyra session;
  session.CompCode("001052");
  session.CompName("Summit Levies");
  session.PaidAmount("12345");
  session.PaidDate("06152026");
  session.NumberOfInfoCollect("5");
  try {
    wanderer.Note(session.ShowLevyraScreen(row.code) ? "True" : "False");
  } catch (const RuntimeError& error) {
    wanderer.Note("error: " + error.Description());
  }
  for (const std::string& record : FindRecords(session).records) wanderer.Note(record);
  ResetModule();
  return wanderer.Protocol();
}

/// The same at a form with a control of every kind.
inline std::vector<std::string> WalkEveryKind(DrivenToolkit& toolkit, unsigned seed) {
  Wanderer wanderer(seed, toolkit);
  BusyForm form;
  form.ShowModal(toolkit);
  return wanderer.Protocol();
}

/// Where two protocols part, with what led there.
inline std::string Difference(const std::vector<std::string>& scripted, const std::vector<std::string>& shown) {
  size_t i = 0;
  while (i < scripted.size() && i < shown.size() && scripted[i] == shown[i]) ++i;
  if (i == scripted.size() && i == shown.size())
    return {};
  std::string story;
  for (size_t before = i - std::min<size_t>(i, 30); before < i; ++before) story += scripted[before] + "\n";
  return story + "scripted: " + (i < scripted.size() ? scripted[i] : "(end)") +
         "\nshown:    " + (i < shown.size() ? shown[i] : "(end)");
}

/// Walks through every screen with a form, so many each, that a front end does otherwise than the scripted one does:
/// the first difference, or nothing.
inline std::string FirstDifferenceAtScreens(DrivenToolkit& shown, unsigned walks) {
  ScriptedToolkit scripted;
  for (const LaunchRow& row : LaunchTable()) {
    if (row.make == nullptr)
      continue;
    for (unsigned seed = 1; seed <= walks; ++seed) {
      const std::string difference = Difference(Walk(scripted, row, seed), Walk(shown, row, seed));
      if (!difference.empty())
        return difference + "\nscreen " + std::string(row.code) + ", seed " + std::to_string(seed);
    }
  }
  return {};
}

/// The same at a form with a control of every kind; `everything` is what was done and seen.
inline std::string FirstDifferenceAtEveryKind(DrivenToolkit& shown, unsigned walks, std::string& everything) {
  ScriptedToolkit scripted;
  for (unsigned seed = 1; seed <= walks; ++seed) {
    const std::vector<std::string> protocol = WalkEveryKind(scripted, seed);
    const std::string difference = Difference(protocol, WalkEveryKind(shown, seed));
    if (!difference.empty())
      return difference + "\nseed " + std::to_string(seed);
    for (const std::string& line : protocol) everything += line + "\n";
  }
  return {};
}

}  // namespace fiscalon
