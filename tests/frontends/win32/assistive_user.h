#pragma once

#include <map>
#include <string>

#include "frontends/played/user_driver.h"
#include "tests/frontends/win32/assistive_program.h"
#include "tests/support/told_screen.h"

namespace fiscalon::win32 {

/// A user who does not see, with an assistive program: finds controls by role and name, and enters texts, clicks and
/// chooses by accessible objects alone. Keys are the user's own.
class AssistiveUser final : public UserDriver {
 public:
  /// `native` has the keys. Controls that are not found are failures of the test.
  AssistiveUser(AssistiveProgram& program, HWND form, const ToldScreen& expected, UserDriver& native);

  HWND WindowOf(const std::string& name) const { return windows_.at(name); }
  void GoTo(const std::string& name);

  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override { GoTo(control.Name()); }
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(CloseReason reason) override { native_.CloseWindow(reason); }

  std::string Title() override;
  std::string FocusName() override;
  ShownControl Shown(const Control& control) override;

 private:
  void Enter(std::string_view text);

  AssistiveProgram& program_;
  HWND form_;
  const ToldScreen& expected_;
  UserDriver& native_;
  std::map<std::string, HWND> windows_;
  /// The field that the last character went into: the next one stands behind it.
  std::string typedInto_;
  std::string focus_;
};

}  // namespace fiscalon::win32
