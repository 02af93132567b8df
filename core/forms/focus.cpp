#include <algorithm>

#include "core/forms/form.h"
#include "core/forms/text_field.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

std::vector<Control*> Form::TabOrder() const {
  std::vector<Control*> order;
  std::copy_if(controls_.begin(), controls_.end(), std::back_inserter(order), [](const Control* control) {
    return control->Kind() != ControlKind::Label && control->Kind() != ControlKind::Frame;
  });
  // Controls without a tab index, the buttons of most forms, come last as they are declared.
  const auto indexOf = [](const Control* control) { return static_cast<unsigned>(control->Designed().tabIndex); };
  std::stable_sort(order.begin(), order.end(),
                   [&](const Control* a, const Control* b) { return indexOf(a) < indexOf(b); });
  return order;
}

void Form::SetFocus(Control& control) {
  if (phase_ == Phase::Loaded || &control == active_)
    return;
  if (!control.CanTakeFocus())
    Raise(error_number::kInvalidProcedureCall);
  MoveFocus(control, FocusBy::KeyboardOrCode);
}

void Form::MoveFocus(Control& control, FocusBy by) {
  if (&control == active_)
    return;
  if (active_ != nullptr)
    queue_.Post(PostedLostFocus{.control = active_});
  active_ = &control;
  if (control.Kind() == ControlKind::TextField) {
    auto& field = static_cast<TextField&>(control);
    if (by == FocusBy::KeyboardOrCode)
      field.SelectAll();
    else
      field.Select({.start = static_cast<int>(field.Text().size())});
  }
  if (observer_ != nullptr)
    observer_->FocusMoved(control, by);
}

void Form::FocusFirst() {
  for (Control* control : TabOrder())
    if (control->CanTakeFocus())
      return MoveFocus(*control, FocusBy::KeyboardOrCode);
}

void Form::FocusNext(int step) {
  const std::vector<Control*> order = TabOrder();
  const auto size = static_cast<int>(order.size());
  const auto here = static_cast<int>(std::find(order.begin(), order.end(), active_) - order.begin());
  // Without a focus, forward starts at the first control and backward at the last.
  const int start = here < size ? here : (step > 0 ? size - 1 : 0);
  for (int i = 1; i <= size; ++i) {
    Control& next = *order[static_cast<size_t>((start + step * i + size * i) % size)];
    if (next.CanTakeFocus() && next.Designed().tabStop)
      return MoveFocus(next, FocusBy::KeyboardOrCode);
  }
}

void Form::KeepFocusOnTakingControl() {
  if (!IsUp() || active_ == nullptr || active_->CanTakeFocus())
    return;
  FocusNext(+1);
  if (active_->CanTakeFocus())
    return;
  queue_.Post(PostedLostFocus{.control = active_});
  active_ = nullptr;
}

}  // namespace fiscalon
