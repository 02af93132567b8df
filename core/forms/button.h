#pragma once

#include <string>
#include <utility>

#include "core/forms/captioned.h"

namespace fiscalon {

/// A push button.
class Button : public Captioned {
 public:
  Button(fiscalon::Form& form, std::string name, const Design& design, Events events)
      : Captioned(form, ControlKind::Button, std::move(name), design, std::move(events)) {}

 private:
  friend class UserActs;

  void Click() { Fire("Click", Handlers().click); }
};

/// A button that keeps a value: what check boxes and option buttons share. `Click` fires when the value
/// changes, by the user or by code.
class ToggleButton : public Captioned {
 public:
  bool Value() const;
  void Value(bool value);

  std::string DefaultValue() const override { return Value() ? "1" : "0"; }

 protected:
  using Captioned::Captioned;

  void Reset() override;

 private:
  ToggleButton* OtherOptionThatIsOn() const;

  bool value_ = false;
};

class CheckBox final : public ToggleButton {
 public:
  CheckBox(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ToggleButton(form, ControlKind::CheckBox, std::move(name), design, std::move(events)) {}
};

/// One of several choices: at most one option button of a form, or of a frame on it, is on. One that goes on turns
/// the other off, whose `Click` runs first.
class OptionButton final : public ToggleButton {
 public:
  OptionButton(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ToggleButton(form, ControlKind::OptionButton, std::move(name), design, std::move(events)) {}
};

}  // namespace fiscalon
