#pragma once

#include <vector>

#include "core/forms/control.h"

namespace fiscalon {

/// Where the focus of a form is, and where it goes. A move makes the new control active at once and posts the
/// `LostFocus` of the old one.
class Focus {
 public:
  explicit Focus(Form& form) : form_(form) {}
  Focus(const Focus&) = delete;
  Focus& operator=(const Focus&) = delete;

  /// The control that has the focus, or null.
  Control* Active() const { return active_; }
  /// No control has it, and none hears of that: the form is opened or unloaded.
  void Forget() { active_ = nullptr; }

  /// All controls that take keys, by tab index; those without one come last, as they are declared.
  std::vector<Control*> Order() const;

  /// By code. Error 5 where the control can't take the focus.
  void Set(Control& control);
  void Move(Control& control, FocusBy by);
  /// To the first control in tab order that can take it.
  void MoveToFirst();
  /// To the next tab stop that can take it, or the previous one, round the form. Controls that are one tab stop are
  /// left together.
  void MoveToNext(int step);
  /// A control that is hidden or disabled while it has the focus gives it to the next tab stop, or to none.
  void Keep();

 private:
  Form& form_;
  Control* active_ = nullptr;
};

}  // namespace fiscalon
