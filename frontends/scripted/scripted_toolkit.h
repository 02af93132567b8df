#pragma once

#include "core/forms/field_editor.h"
#include "core/forms/watched_acts.h"
#include "frontends/played/driven_toolkit.h"

namespace fiscalon {

/// The user of the scripted front end: acts on the form itself, and edits fields as a plain text box would.
class ScriptedUser final : public UserDriver {
 public:
  /// The watcher, if any, hears of all acts.
  explicit ScriptedUser(Form& form, ActWatcher* watcher = nullptr) : form_(form), acts_(form, watcher) {}

  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override;
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(CloseReason reason) override;

  std::string Title() override;
  std::string FocusName() override;
  ShownControl Shown(const Control& control) override;

 private:
  Form& form_;
  WatchedActs acts_;
  FieldEditor editor_;
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
class ScriptedToolkit final : public DrivenToolkit {
 public:
  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
};

}  // namespace fiscalon
