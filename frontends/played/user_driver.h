#pragma once

#include <string>
#include <string_view>

#include "core/forms/close_reason.h"
#include "core/forms/keys.h"
#include "core/forms/list_control.h"
#include "core/forms/shown_control.h"

namespace fiscalon {

/// A user at one form that is up: hands that act and eyes that read. Each front end that plays scenarios has one;
/// what it reads comes from what the front end shows, not from the form behind it. Texts are in the code page.
class UserDriver {
 public:
  virtual ~UserDriver() = default;

  /// Presses a key, with what it does to the control that has the focus.
  virtual void PressKey(const KeyStroke& stroke) = 0;
  /// Types one character into the control that has the focus.
  void Type(char character) { PressKey(StrokeOf(character)); }
  /// Presses the mouse on a control without releasing it.
  virtual void PressMouse(Control& control) = 0;
  /// Presses and releases the mouse on a control.
  virtual void Click(Control& control) = 0;
  /// Picks a row of a list, counted from 0.
  virtual void Choose(ListControl& list, int row) = 0;
  /// Pastes over the selection of the control that has the focus.
  virtual void Paste(std::string_view text) = 0;
  /// Closes the window as that reason does.
  virtual void CloseWindow(CloseReason reason) = 0;

  /// What the window's title reads.
  virtual std::string Title() = 0;
  /// The name of the control that has the focus; empty where none has.
  virtual std::string FocusName() = 0;
  /// All that is seen of a control.
  virtual ShownControl Shown(const Control& control) = 0;

  // The same by its parts.
  std::string Text(const Control& control) { return Shown(control).text; }               ///< see `ShownControl`
  std::string SelectedText(const Control& control) { return Shown(control).selection; }  ///< see `ShownControl`
  bool Enabled(const Control& control) { return Shown(control).enabled; }                ///< see `ShownControl`
  bool Visible(const Control& control) { return Shown(control).visible; }                ///< see `ShownControl`
  bool Checked(const Control& control) { return Shown(control).checked; }                ///< see `ShownControl`
  bool Locked(const Control& control) { return Shown(control).locked; }                  ///< see `ShownControl`
  int Items(const Control& control) { return Shown(control).items; }                     ///< see `ShownControl`
};

}  // namespace fiscalon
