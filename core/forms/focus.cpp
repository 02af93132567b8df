#include "core/forms/focus.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/forms/form.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

std::vector<Control*> Focus::Order() const {
  std::vector<Control*> order;
  std::copy_if(form_.Controls().begin(), form_.Controls().end(), std::back_inserter(order),
               [](const Control* control) { return control->TakesKeys(); });
  const auto indexOf = [](const Control* control) { return static_cast<unsigned>(control->TabIndex()); };
  std::stable_sort(order.begin(), order.end(),
                   [&](const Control* a, const Control* b) { return indexOf(a) < indexOf(b); });
  return order;
}

void Focus::ActBegins() {
  before_ = active_;
  isAskedFor_ = isTold_ = false;
  given_ = nullptr;
}

void Focus::ActEnds() {
  // An act goes on in parts, such as a key and its editing; what is told belongs to its part.
  const bool isTold = std::exchange(isTold_, false);
  if (isTold || waiting_ != active_)
    waiting_ = nullptr;
  if (!isTold && isAskedFor_ && active_ != nullptr && active_ == before_ && active_ == given_)
    waiting_ = active_;
}

void Focus::Set(Control& control) {
  if (form_.IsUp())
    given_ = &control;
  if (form_.IsYetToBeShown() || &control == active_)
    return;
  if (!control.CanTakeFocus())
    Raise(error_number::kInvalidProcedureCall);
  Move(control, FocusBy::KeyboardOrCode);
}

void Focus::Move(Control& control, FocusBy by) {
  if (&control == active_)
    return;
  if (active_ != nullptr)
    queue_.Post(PostedLostFocus{.control = active_});
  active_ = &control;
  control.FocusCame({}, by);
  form_.FocusMoved({}, control, by);
}

void Focus::MoveToFirst() {
  for (Control* control : Order())
    if (control->CanTakeFocus())
      return Move(control->StopOfGroup(), FocusBy::KeyboardOrCode);
}

void Focus::MoveToNext(int step) {
  const std::vector<Control*> order = Order();
  const auto size = static_cast<int>(order.size());
  const auto here = static_cast<int>(std::find(order.begin(), order.end(), active_) - order.begin());
  // Without a focus, forward starts at the first control and backward at the last.
  const int start = here < size ? here : (step > 0 ? size - 1 : 0);
  const Control* left = active_ != nullptr && active_->CanTakeFocus() ? &active_->StopOfGroup() : nullptr;
  for (int i = 1; i <= size; ++i) {
    Control& next = *order[static_cast<size_t>((start + step * i + size * i) % size)];
    if (next.CanTakeFocus() && next.IsTabStop() && &next.StopOfGroup() == &next && &next != left)
      return Move(next, FocusBy::KeyboardOrCode);
  }
}

void Focus::Keep() {
  if (!form_.IsUp() || active_ == nullptr || active_->CanTakeFocus())
    return;
  MoveToNext(+1);
  if (active_->CanTakeFocus())
    return;
  queue_.Post(PostedLostFocus{.control = active_});
  active_ = nullptr;
}

}  // namespace fiscalon
