#pragma once

#include <string>
#include <string_view>

#include "core/forms/designs.h"
#include "core/forms/events.h"
#include "core/forms/keys.h"
#include "core/forms/pass_key.h"

namespace fiscalon {

class Focus;
class Form;
class UserActs;

/// All kinds of controls that forms are made of.
enum class ControlKind { Label, TextField, Button, CheckBox, OptionButton, DropDownList, ListBox, Frame };

/// How a control received the focus: it decides what a text field selects.
enum class FocusBy { KeyboardOrCode, Mouse };

/// One control of a form. Touching the state of a control of an unloaded form loads the form.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// The name as handlers bear it; members of control arrays are named "Box(3)".
  const std::string& Name() const { return name_; }
  /// What it is.
  ControlKind Kind() const { return kind_; }
  /// The form that it belongs to.
  fiscalon::Form& Owner() const { return form_; }

  /// Its place in tab order; `kNoTabIndex` comes last.
  int TabIndex() const { return design_.tabIndex; }
  /// Whether Tab stops there.
  bool IsTabStop() const { return design_.tabStop; }
  /// The frame that the control lies in; null for none.
  const fiscalon::Frame* EnclosingFrame() const { return design_.frame; }

  /// Whether it takes input, by itself.
  bool Enabled() const;
  void Enabled(bool enabled);
  /// Whether it is there, by itself.
  bool Visible() const;
  void Visible(bool visible);

  /// As the user sees it: a control that lies in a frame is there, and takes input, with the frame alone.
  bool EnabledInFrames() const;
  /// The same for being there at all.
  bool VisibleInFrames() const;

  /// Whether the kind has keyboard input, and with it the focus.
  virtual bool TakesKeys() const { return true; }
  /// Visible and enabled, with the frame that it lies in, on a form that is up, and of a kind that has keyboard input.
  bool CanTakeFocus() const;

  /// Moves the focus here. Nothing happens where it is already, or before the form is shown. Error 5 where
  /// the control can't take the focus.
  void SetFocus();

  /// Of controls that are one tab stop, the one that Tab goes to. Most stand for themselves.
  virtual Control& StopOfGroup() { return *this; }
  /// The capital of the access key in a button's caption, or 0.
  virtual int AccessKey() const { return 0; }

  /// What the control holds, as a comparison with a text sees it: a field's text, a button's caption.
  virtual std::string ValueInComparisons() const { return {}; }

  // What the form, the focus and the user do to a control: only they can.

  /// Returns to the design, when the form loads.
  virtual void Reset(PassKey<fiscalon::Form> key);
  void FireLostFocus(PassKey<fiscalon::Form> key);
  /// The focus has come here.
  virtual void FocusCame(PassKey<Focus> /*key*/, FocusBy /*by*/) {}
  void FireMouseDown(PassKey<UserActs> key);
  /// Runs the handler, if the form has one. It may change the code.
  void FireKeyDown(PassKey<UserActs> key, int& keyCode, int shift);
  /// The same for the character.
  void FireKeyPress(PassKey<UserActs> key, int& character);
  /// Whether a key is as good as a click while the control has the focus. No handler hears of it.
  virtual bool IsClickedBy(PassKey<UserActs> /*key*/, int /*keyCode*/) const { return false; }
  /// The user has clicked the control, by mouse or by key.
  virtual void Clicked(PassKey<UserActs> /*key*/) {}
  /// What a key means to the control itself, when all handlers have let it through. The character is 0 for a key
  /// without one, and the code is 0 for a character without a key.
  virtual KeyOutcome KeyMeans(PassKey<UserActs> /*key*/, int /*keyCode*/, int /*character*/) { return {}; }

 protected:
  /// A control belongs to its form as long as both live.
  Control(fiscalon::Form& form, ControlKind kind, std::string name, const CommonDesign& design, CommonEvents events);

  /// Loads the form where it is not, since state exists only while it is.
  void Touch() const;
  /// Tells the front end that what it shows of this control has changed.
  void Changed();
  /// Runs a handler that the form has for an event of this control.
  void Fire(std::string_view event, const Handler& handler);
  /// The user goes here by a key and clicks: not where a check takes the focus back.
  void GoAndClick(FocusBy by);

 private:
  fiscalon::Form& form_;
  ControlKind kind_;
  std::string name_;
  CommonDesign design_;
  CommonEvents events_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace fiscalon
