#include "core/forms/button.h"

#include <utility>

#include "core/forms/form.h"

namespace fiscalon {

void Button::Reset() {
  Control::Reset();
  caption_ = Designed().caption;
}

std::string Button::Caption() const {
  Touch();
  return caption_;
}

void Button::Caption(std::string caption) {
  Touch();
  caption_ = std::move(caption);
  Changed();
}

void ToggleButton::Reset() {
  Control::Reset();
  caption_ = Designed().caption;
  value_ = false;
}

std::string ToggleButton::Caption() const {
  Touch();
  return caption_;
}

void ToggleButton::Caption(std::string caption) {
  Touch();
  caption_ = std::move(caption);
  Changed();
}

bool ToggleButton::Value() const {
  Touch();
  return value_;
}

void ToggleButton::Value(bool value) {
  Touch();
  if (value == value_)
    return;
  if (Kind() == ControlKind::OptionButton && value)
    for (Control* other : Owner().Controls())
      if (other->Kind() == ControlKind::OptionButton && other->Designed().frame == Designed().frame)
        static_cast<OptionButton*>(other)->TakeValue(false);
  TakeValue(value);
}

void ToggleButton::TakeValue(bool value) {
  if (std::exchange(value_, value) == value)
    return;
  Changed();
  Fire("Click", Handlers().click);
}

}  // namespace fiscalon
