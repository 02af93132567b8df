#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/list_control.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

/// A user at one form that is up: hands that act and eyes that read. Each front end that plays scenarios has one;
/// what it reads comes from what the front end shows, not from the form behind it. Texts are in the code page.
class UserDriver {
 public:
  virtual ~UserDriver() = default;

  /// Types one character into the control that has the focus.
  virtual void Type(char character) = 0;
  virtual void PressKey(const KeyStroke& stroke) = 0;
  /// Presses the mouse on a control without releasing it.
  virtual void PressMouse(Control& control) = 0;
  virtual void Click(Control& control) = 0;
  virtual void Choose(ListControl& list, int row) = 0;
  /// Pastes over the selection of the control that has the focus.
  virtual void Paste(std::string_view text) = 0;
  virtual void CloseWindow(int reason) = 0;

  virtual std::string Title() = 0;
  /// The name of the control that has the focus; empty where none has.
  virtual std::string FocusName() = 0;
  /// A field's text, a button's or label's caption as designed, a list's selected row.
  virtual std::string Text(Control& control) = 0;
  virtual std::string SelectedText(Control& control) = 0;
  virtual bool Enabled(Control& control) = 0;
  virtual bool Visible(Control& control) = 0;
  virtual bool Checked(Control& control) = 0;
  virtual bool Locked(Control& control) = 0;
  virtual int Items(Control& control) = 0;
};

/// A front end without a person: whoever drives it is called for each form, box, beep and help page.
class DrivenToolkit : public Toolkit {
 public:
  /// A form is up. Returns when the form is closed, or leaves it up, which ends its show.
  std::function<void(Form& form, UserDriver& user)> onForm = {};
  /// A message box is up; its answer. Without one a box gets its default answer.
  std::function<MessageAnswer(const BoxRequest& box)> onMessage = {};
  std::function<void()> onBeep = {};
  std::function<void(std::string_view file, int32_t context)> onHelp = {};
  /// A handler is about to run, such as "txtAmountPayable_Change".
  std::function<void(const std::string& handler)> onEvent = {};

 protected:
  /// Calls one of them, which may put another in its own place while it runs.
  template <typename Result, typename... Arguments, typename... Given>
  static Result Call(const std::function<Result(Arguments...)>& callback, Given&&... given) {
    const auto running = callback;
    return running(std::forward<Given>(given)...);
  }
};

}  // namespace fiscalon
