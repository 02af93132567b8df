#include "screens/parts/moving_on.h"

#include <utility>

#include "core/forms/form.h"
#include "core/resume_next.h"
#include "core/values/text.h"

namespace fiscalon {

bool FocusIsOn(const Control& control) {
  return control.Owner().ActiveControl() == &control;
}

void FocusIfAble(Control& control) {
  if (control.Enabled() && control.Visible())
    control.SetFocus();
}

void MoveOnWhenFull(const TextField& field, Control& next) {
  if (static_cast<int>(Trim(field.Text()).size()) == field.MaxLength() && next.Enabled())
    next.SetFocus();
}

void MoveOn(const TextField& field, const Asked<Control*>& next) {
  ResumeNext::Run([&] {
    if (Control* const control = next())
      MoveOnWhenFull(field, *control);
  });
}

Handler OnFull(const TextField& field, Asked<Control*> next) {
  return [&field, next = std::move(next)] { MoveOn(field, next); };
}

}  // namespace fiscalon
