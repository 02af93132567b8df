#pragma once

#include "core/forms/form_observer.h"
#include "frontends/played/user_driver.h"

namespace fiscalon {

/// The user of the scripted front end: acts on the form itself, and edits fields as a plain text box would.
class ScriptedUser final : public UserDriver {
 public:
  explicit ScriptedUser(Form& form) : form_(form) {}

  void Type(char character) override;
  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override;
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(int reason) override;

  std::string Title() override;
  std::string FocusName() override;
  std::string Text(Control& control) override;
  std::string SelectedText(Control& control) override;
  bool Enabled(Control& control) override;
  bool Visible(Control& control) override;
  bool Checked(Control& control) override;
  bool Locked(Control& control) override;
  int Items(Control& control) override;

 private:
  Form& form_;
};

/// Drives forms without a display: for hosts' tests, for scenarios, for machines without a screen.
///
///     fiscalon::ScriptedToolkit toolkit;
///     toolkit.onForm = [](fiscalon::Form& form, fiscalon::UserDriver& user) {
///       for (char character : std::string("202612"))
///         user.Type(character);
///       user.Click(form.ControlNamed("cmdOK"));
///     };
///     fiscalon::UseToolkit(&toolkit);
class ScriptedToolkit final : public DrivenToolkit, private FormObserver {
 public:
  void Opening(Form& form) override;
  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  void OpenHelp(std::string_view file, int32_t context) override;

 private:
  void HandlerRuns(std::string_view object, std::string_view event) override;
};

}  // namespace fiscalon
