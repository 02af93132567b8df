#pragma once

#include <string>

#include "core/forms/control.h"

namespace fiscalon {

/// A push button.
class Button final : public Control {
 public:
  Button(fiscalon::Form& form, std::string name, const Design& design, Events events)
      : Control(form, ControlKind::Button, std::move(name), design, std::move(events)) {}

  std::string Caption() const;
  void Caption(std::string caption);

  std::string DefaultValue() const override { return Caption(); }

 private:
  friend class UserActs;

  void Reset() override;
  void Click() { Fire("Click", Handlers().click); }

  std::string caption_;
};

/// A button that keeps a value: what check boxes and option buttons share. `Click` fires when the value
/// changes, by the user or by code.
class ToggleButton : public Control {
 public:
  bool Value() const;
  void Value(bool value);

  std::string Caption() const;
  void Caption(std::string caption);

  std::string DefaultValue() const override { return Value() ? "1" : "0"; }

 protected:
  ToggleButton(fiscalon::Form& form, ControlKind kind, std::string name, const Design& design, Events events)
      : Control(form, kind, std::move(name), design, std::move(events)) {}

  void Reset() override;

 private:
  void TakeValue(bool value);

  std::string caption_;
  bool value_ = false;
};

class CheckBox final : public ToggleButton {
 public:
  CheckBox(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ToggleButton(form, ControlKind::CheckBox, std::move(name), design, std::move(events)) {}
};

/// One of several choices: at most one option button of a form, or of a frame on it, is on.
class OptionButton final : public ToggleButton {
 public:
  OptionButton(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ToggleButton(form, ControlKind::OptionButton, std::move(name), design, std::move(events)) {}
};

}  // namespace fiscalon
