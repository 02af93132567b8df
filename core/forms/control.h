#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace fiscalon {

class Form;

enum class ControlKind { Label, TextField, Button, CheckBox, OptionButton, DropDownList, ListBox, Frame };
enum class Alignment { Left, Right };

using Handler = std::function<void()>;
/// The character by reference: 0 drops it, another value replaces it.
using KeyPressHandler = std::function<void(int& character)>;
/// The key code by reference: 0 ends the key's way. The shift state as in keys.h.
using KeyDownHandler = std::function<void(int& keyCode, int shift)>;

/// The handlers that a form has for a control's events.
struct Events {
  Handler change = {};
  KeyDownHandler keyDown = {};
  KeyPressHandler keyPress = {};
  Handler lostFocus = {};
  Handler mouseDown = {};
  Handler click = {};
};

class Control;

/// A control as the form's definition has it: the state to which loading the form returns it.
struct Design {
  static constexpr int kNoTabIndex = -1;
  static constexpr int kNoLimit = 0;

  std::string caption = {};
  int tabIndex = kNoTabIndex;
  /// Characters that can be typed or pasted into a text field.
  int maxLength = kNoLimit;
  Alignment alignment = Alignment::Left;
  bool tabStop = true;
  bool enabled = true;
  bool visible = true;
  /// A text field that the user can't change. Shown shaded.
  bool locked = false;
  bool multiLine = false;
  /// A button that Escape presses.
  bool cancel = false;
  /// A caption that stands out, such as the label of a total.
  bool bold = false;
  bool fixedPitch = false;
  /// The frame that the control lies in; it hides and disables with the frame.
  const Control* frame = nullptr;
};

using LabelDesign = Design;
using FieldDesign = Design;
using ButtonDesign = Design;
using ToggleDesign = Design;
using FieldEvents = Events;
using ButtonEvents = Events;

/// One control of a form. Touching the state of a control of an unloaded form loads the form.
class Control {
 public:
  Control(Form& form, ControlKind kind, std::string name, const Design& design, Events events);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// The name as handlers bear it; members of control arrays are named "Box(3)".
  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  const Design& Designed() const { return design_; }
  fiscalon::Form& Owner() const { return form_; }

  bool Enabled() const;
  void Enabled(bool enabled);
  bool Visible() const;
  void Visible(bool visible);

  /// As the user sees it: a control that lies in a frame is there, and takes input, with the frame alone.
  bool EnabledInFrames() const;
  bool VisibleInFrames() const;

  /// Visible and enabled, with all that it lies in, on a form that is up, and of a kind that has keyboard input.
  bool CanTakeFocus() const;

  /// Moves the focus here. Nothing happens where it is already, or before the form is shown. Error 5 where
  /// the control can't take the focus.
  void SetFocus();

  /// What the control holds, as a comparison with a text sees it: a field's text, a button's caption.
  virtual std::string DefaultValue() const { return {}; }

  const Events& Handlers() const { return events_; }

 protected:
  friend class fiscalon::Form;
  friend class UserActs;

  /// Returns to the design, when the form loads.
  virtual void Reset();
  /// Loads the form where it is not, since state exists only while it is.
  void Touch() const;
  /// Tells the front end that what it shows of this control has changed.
  void Changed();
  /// Runs a handler that the form has for an event of this control.
  void Fire(std::string_view event, const Handler& handler);

 private:
  fiscalon::Form& form_;
  ControlKind kind_;
  std::string name_;
  Design design_;
  Events events_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace fiscalon
