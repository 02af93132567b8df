#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/forms/captioned.h"

namespace fiscalon {

/// What push buttons, check boxes and option buttons share. A "&" in the caption marks the access key.
class AnyButton : public Captioned {
 public:
  using ArrayEvents = ButtonHandlers<int>;  ///< the events of a member of an array

  int AccessKey() const override { return fiscalon::AccessKey(ShownCaption()); }
  std::string PlainCaption() const override { return WithoutAccessMarks(ShownCaption()); }

 protected:
  /// For the kinds of buttons.
  AnyButton(fiscalon::Form& form, ControlKind kind, std::string name, Wording caption, const CommonDesign& design,
            ButtonEvents events)
      : Captioned(form, kind, std::move(name), std::move(caption), design, CommonEvents::Of(events)),
        click_(std::move(events.click)) {}

  /// Runs the form's handler for a click.
  void FireClick() { Fire("Click", click_); }

 private:
  Handler click_;
};

/// A push button.
class Button : public AnyButton {
 public:
  using Design = ButtonDesign;  ///< the options of a push button

  /// On a form, by the name that handlers and scenarios know.
  Button(fiscalon::Form& form, std::string name, const ButtonDesign& design, ButtonEvents events = {})
      : AnyButton(form, ControlKind::Button, std::move(name), design.caption, CommonDesign::Of(design),
                  std::move(events)),
        design_(design) {}

  /// The button as the form's definition has it.
  const ButtonDesign& Designed() const { return design_; }

  bool IsClickedBy(PassKey<UserActs> /*key*/, int keyCode) const override {
    return keyCode == key::kEnter || keyCode == key::kSpace;
  }
  void Clicked(PassKey<UserActs> /*key*/) override { FireClick(); }

 private:
  ButtonDesign design_;
};

/// A button that keeps a value: what check boxes and option buttons share. `Click` fires when the value
/// changes, by the user or by code.
class ToggleButton : public AnyButton {
 public:
  using Design = ToggleDesign;  ///< the options of both kinds

  /// The button as the form's definition has it.
  const ToggleDesign& Designed() const { return design_; }

  /// Whether it is ticked, or the option that is on.
  bool Value() const;
  void Value(bool value);

  std::string ValueInComparisons() const override { return Value() ? "1" : "0"; }

  void Reset(PassKey<fiscalon::Form> key) override;
  bool IsClickedBy(PassKey<UserActs> /*key*/, int keyCode) const override { return keyCode == key::kSpace; }

 protected:
  /// For the two kinds.
  ToggleButton(fiscalon::Form& form, ControlKind kind, std::string name, const ToggleDesign& design,
               ButtonEvents events)
      : AnyButton(form, kind, std::move(name), design.caption, CommonDesign::Of(design), std::move(events)),
        design_(design) {}

  /// The button that goes off when this one goes on, or null.
  virtual ToggleButton* OtherThatGoesOff() { return nullptr; }

 private:
  ToggleDesign design_;
  bool value_ = false;
};

/// A box to be ticked.
class CheckBox : public ToggleButton {
 public:
  /// On a form, by the name that handlers and scenarios know.
  CheckBox(fiscalon::Form& form, std::string name, const ToggleDesign& design, ButtonEvents events = {})
      : ToggleButton(form, ControlKind::CheckBox, std::move(name), design, std::move(events)) {}

  void Clicked(PassKey<UserActs> /*key*/) override { Value(!Value()); }
};

/// One of several choices: of the option buttons of one frame, or of the form outside its frames, at most one is on.
/// One that goes on turns the other off, whose `Click` runs first. Together they are one tab stop, within which arrow
/// keys move. Throws `FormMisuse` where two of a group are on at design.
class OptionButton : public ToggleButton {
 public:
  /// On a form, by the name that handlers and scenarios know.
  OptionButton(fiscalon::Form& form, std::string name, const ToggleDesign& design, ButtonEvents events = {});

  /// The option that is on, else the first, of those that can take the focus.
  Control& StopOfGroup() override;

  void Clicked(PassKey<UserActs> /*key*/) override { Value(true); }
  KeyOutcome KeyMeans(PassKey<UserActs> key, int keyCode, int character) override;

 protected:
  ToggleButton* OtherThatGoesOff() override;

 private:
  /// The options of the group in tab order, this one among them.
  std::vector<OptionButton*> Group() const;
};

}  // namespace fiscalon
