#pragma once

#include <vector>

#include "core/forms/control.h"
#include "core/forms/event_queue.h"

namespace fiscalon {

/// Where the focus of a form is, and where it goes. A move makes the new control active at once and posts the
/// `LostFocus` of the old one.
class Focus {
 public:
  Focus(Form& form, EventQueue& queue) : form_(form), queue_(queue) {}
  Focus(const Focus&) = delete;
  Focus& operator=(const Focus&) = delete;

  /// The control that has the focus, or null.
  Control* Active() const { return active_; }
  /// No control has it, and none hears of that: the form is opened or unloaded.
  void Forget() { active_ = waiting_ = nullptr; }

  /// The control that a handler kept the focus on, or gave it back to, though the user asked to go on, while no box
  /// said why; null for none. It stands until the focus is elsewhere, or a box tells more.
  Control* Waiting() const { return waiting_; }
  // An act of the user from its begin to its end, and within it that the user asks the focus to go on: to a control,
  // or wherever an entry that is confirmed leads; and that a box has told the user something.
  void ActBegins();
  void UserGoesOn(const Control* to = nullptr) { isAskedFor_ = isAskedFor_ || to != active_; }
  void UserWasTold() { isTold_ = true; }
  void ActEnds();

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
  EventQueue& queue_;
  Control* active_ = nullptr;
  Control* waiting_ = nullptr;
  /// Of the act that is under way: who had the focus, whether the user asked to go on and was told something, and whom
  /// code gave it to last.
  Control* before_ = nullptr;
  bool isAskedFor_ = false;
  bool isTold_ = false;
  const Control* given_ = nullptr;
};

}  // namespace fiscalon
