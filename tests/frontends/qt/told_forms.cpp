// Tells what assistive programs must find on the forms of scenario files, line by line and word by word behind tabs:
//   form FILE TITLE
//   control NAME KIND TOLD DESCRIPTION LABEL KEY STATE...
// and what comes of OK while nothing is entered; nothing where it accepts:
//   box TEXT
//   status TEXT
//   focus NAME

#include <algorithm>
#include <iostream>

#include "core/platform/code_page.h"
#include "frontends/played/scenario_player.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/told_controls.h"

namespace fiscalon {
namespace {

const char* NameOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return "Label";
    case ControlKind::TextField:
      return "TextField";
    case ControlKind::Button:
      return "Button";
    case ControlKind::CheckBox:
      return "CheckBox";
    case ControlKind::OptionButton:
      return "OptionButton";
    case ControlKind::DropDownList:
      return "DropDownList";
    case ControlKind::ListBox:
      return "ListBox";
    case ControlKind::Frame:
      return "Frame";
  }
  return "";
}

void TellStates(const Form& form, const Control& control) {
  const auto tell = [](bool is, const char* state) {
    if (is)
      std::cout << '\t' << state;
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
}

/// Tells each form that would be shown, and closes it.
class TellingToolkit final : public DrivenToolkit {
 public:
  std::string file;

  void ServeModal(Form& form) override {
    std::cout << "form\t" << file << '\t' << ToUtf8(form.Caption()) << '\n';
    for (const ToldControl& told : ToldControls(form)) {
      std::cout << "control\t" << told.control->Name() << '\t' << NameOf(told.control->Kind()) << '\t'
                << ToUtf8(told.name) << '\t' << ToUtf8(told.description) << '\t'
                << (told.label == nullptr ? std::string() : told.label->Name()) << '\t';
      if (const int key = told.control->AccessKey(); key != 0)
        std::cout << static_cast<char>(key);
      TellStates(form, *told.control);
      std::cout << '\n';
    }
    ScriptedUser(form).Click(*form.FormLayout().buttons.front());
    if (form.IsUp())
      std::cout << "status\t" << ToUtf8(StatusOf(form)) << "\nfocus\t" << form.ActiveControl()->Name() << '\n';
    form.Hide();
  }
  MessageAnswer ShowMessage(const BoxRequest& box) override {
    std::cout << "box\t" << ToUtf8(box.text) << '\n';
    return box.DefaultAnswer();
  }
};

}  // namespace
}  // namespace fiscalon

int main(int argc, char** argv) {
  fiscalon::TellingToolkit toolkit;
  for (int i = 1; i < argc; ++i) {
    toolkit.file = argv[i];
    fiscalon::ScenarioPlayer(toolkit).Play(fiscalon::ReadScenarios(toolkit.file).back());
  }
  return 0;
}
