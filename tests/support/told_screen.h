#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "core/platform/code_page.h"
#include "frontends/played/scenario_player.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/told_controls.h"

namespace fiscalon {

/// A scenario in which an assistive program fills in a form, with the records that come of it.
struct AssistedScenario {
  std::string file;
  /// The only one of its file where this is empty.
  std::string name = {};

  Scenario Read() const {
    const std::vector<Scenario> scenarios = ReadScenarios(file);
    return *std::find_if(scenarios.begin(), scenarios.end(),
                         [this](const Scenario& each) { return name.empty() || each.name == name; });
  }
};

/// The scenario that each form has its picture taken in, for each screen that there is.
inline std::vector<AssistedScenario> AssistedScenarios(const std::filesystem::path& scenarios) {
  std::vector<AssistedScenario> assisted;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(scenarios))
    if (entry.path().extension() == ".scenario" && entry.path().filename().string().starts_with("picture"))
      assisted.push_back({entry.path().string()});
  std::sort(assisted.begin(), assisted.end(), [](const auto& a, const auto& b) { return a.file < b.file; });
  assisted.push_back(
      {(scenarios / "general/invoice_payments/code_11.scenario").string(), "invoices reach the collection"});
  return assisted;
}

/// What assistive programs must find on a form. Texts are in UTF-8.
struct ToldScreen {
  struct Told {
    std::string name;
    ControlKind kind = {};
    std::string told;
    std::string description;
    /// The name of the control that is its label; empty for none.
    std::string label;
    /// The capital of its access key; empty for none.
    std::string key;
    /// Its keys make capitals: who enters a text whole writes them so.
    bool makesCapitals = false;
    std::vector<std::string> states;
  };

  std::string title = {};
  std::vector<Told> controls = {};
  // What comes of OK while nothing is entered; nothing where it accepts.
  struct Box {
    /// Empty for the host's own name.
    std::string title;
    std::string text;
  };
  std::vector<Box> boxes = {};
  std::string status = {};
  std::string focus = {};
};

inline std::vector<std::string> ToldStates(const Form& form, const Control& control) {
  std::vector<std::string> states;
  const auto tell = [&](bool is, const char* state) {
    if (is)
      states.emplace_back(state);
  };
  const auto* field = dynamic_cast<const TextField*>(&control);
  const auto* toggle = dynamic_cast<const ToggleButton*>(&control);
  tell(control.EnabledInFrames(), "enabled");
  tell(control.VisibleInFrames(), "showing");
  tell(form.ActiveControl() == &control, "focused");
  tell(control.TakesKeys(), "focusable");
  tell(field != nullptr && field->Locked(), "locked");
  tell(field != nullptr && field->IsMultiLine(), "several_lines");
  tell(toggle != nullptr && toggle->Value(), "checked");
  return states;
}

/// Tells the last form that would be shown, and closes it.
class TellingToolkit final : public DrivenToolkit {
 public:
  ToldScreen told;

  void ServeModal(Form& form) override {
    told = {.title = ToUtf8(form.ShownCaption())};
    for (const ToldControl& each : ToldControls(form)) {
      const std::string& name = each.control->Name();
      const int key = each.control->AccessKey();
      const std::vector<std::string> makingCapitals = {"txtName",       "txtAddress", "txtCity",
                                                       "txtPostalCode", "txtPurpose", "Box(12)"};
      told.controls.push_back(
          {.name = name,
           .kind = each.control->Kind(),
           .told = ToUtf8(each.name),
           .description = ToUtf8(each.description),
           .label = each.label == nullptr ? std::string() : each.label->Name(),
           .key = key == 0 ? std::string() : std::string(1, static_cast<char>(key)),
           .makesCapitals = std::find(makingCapitals.begin(), makingCapitals.end(), name) != makingCapitals.end(),
           .states = ToldStates(form, *each.control)});
    }
    ScriptedUser(form).Click(*form.FormLayout().buttons.front());
    if (form.IsUp()) {
      told.status = ToUtf8(StatusOf(form));
      told.focus = form.ActiveControl()->Name();
    }
    form.Hide();
  }
  MessageAnswer ShowMessage(const BoxRequest& box) override {
    told.boxes.push_back({.title = ToUtf8(box.title), .text = ToUtf8(box.text)});
    return box.DefaultAnswer();
  }
};

/// That of the screen that a scenario shows.
inline ToldScreen ToldScreenOf(const AssistedScenario& assisted) {
  TellingToolkit toolkit;
  ScenarioPlayer(toolkit).Play(assisted.Read());
  return toolkit.told;
}

}  // namespace fiscalon
