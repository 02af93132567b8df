#include "core/forms/button.h"

#include <utility>

#include "core/forms/form.h"

namespace fiscalon {

void ToggleButton::Reset() {
  Captioned::Reset();
  value_ = false;
}

bool ToggleButton::Value() const {
  Touch();
  return value_;
}

void ToggleButton::Value(bool value) {
  Touch();
  if (std::exchange(value_, value) == value)
    return;
  Changed();
  // Both values have changed before the first handler runs: no handler sees two options on, or none.
  if (ToggleButton* other = value ? OtherOptionThatIsOn() : nullptr)
    other->Value(false);
  Fire("Click", Handlers().click);
}

ToggleButton* ToggleButton::OtherOptionThatIsOn() const {
  if (Kind() != ControlKind::OptionButton)
    return nullptr;
  for (Control* control : Owner().Controls()) {
    if (control == this || control->Kind() != ControlKind::OptionButton ||
        control->Designed().frame != Designed().frame)
      continue;
    if (auto* option = static_cast<ToggleButton*>(control); option->value_)
      return option;
  }
  return nullptr;
}

}  // namespace fiscalon
