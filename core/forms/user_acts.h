#pragma once

#include <string>
#include <string_view>

#include "core/forms/form.h"
#include "core/forms/keys.h"
#include "core/forms/text_field.h"

namespace fiscalon {

class ListControl;

/// What is left for a front end to do after a keystroke has run through the form.
struct KeyOutcome {
  /// False: nothing is left. The form has dealt with the key, a handler dropped it, or the field is locked. True: the
  /// key is left to the field that had the focus when it went down, wherever handlers have moved the focus since.
  bool editing = false;
  /// The character that the field's own editing takes, perhaps another than was typed; 0 for a key without one,
  /// such as Delete or Left.
  int character = 0;
};

/// The acts of the user on a form that is up: the one way in for front ends. An act runs all events that it
/// sends and posts before it returns. No act throws: an error that leaves a handler ends the show and comes out of
/// `Form::ShowModal`. Acts on a form that is not up do nothing.
class UserActs {
 public:
  explicit UserActs(Form& form) : form_(form) {}

  /// A key goes down. Dialog keys are done here; other keys run through the handlers, and for a text field the
  /// front end's own editing then takes the outcome's character and reports the result with `EditText`.
  KeyOutcome Key(const KeyStroke& stroke);

  /// The front end's editing (a typed character, a paste, an undo, an input method) has made this of a field's text. A
  /// locked field keeps its text, and what the edit put in is cut where it exceeds the field's limit.
  void EditText(TextField& field, std::string_view text, Selection selection);
  /// The caret or the selection of a field was moved.
  void SelectText(TextField& field, Selection selection);

  /// The mouse button goes down on a control: its `MouseDown`, then the focus, then what was posted. Whether a
  /// release there would click.
  bool Press(Control& control);
  /// The mouse button comes up again on the control that was pressed: clicks it if it still has the focus.
  void Release(Control& control);
  void Click(Control& control);

  /// A row of a list is picked after the list was pressed, or dropped down by a key: selects it if the list still has
  /// the focus.
  void Pick(ListControl& list, int row);
  /// A list is pressed and a row of it picked.
  void Choose(ListControl& list, int row);

  /// The focus came to a control by a way of the front end's own, such as an assistive program.
  void BringFocus(Control& control);

  /// The window closes. Reasons: 0 the window's close command, 1 code, 2 the system ends, 3 the task manager,
  /// 4 the parent window closes, 5 the owner closes.
  void Close(int reason);

 private:
  friend class Form;

  /// A keystroke inside an act that is under way.
  KeyOutcome Stroke(const KeyStroke& stroke);
  bool DialogKey(const KeyStroke& stroke);
  bool PressFocused(int keyCode);
  bool AccessKeyPressed(const KeyStroke& stroke);
  bool PressCancelButton();
  /// The key itself, past all handlers, on controls whose reaction is the form's.
  void MoveWithinGroup(Control& control, int keyCode);
  static void MoveWithinList(ListControl& list, int keyCode, int character);

  bool PressInside(Control& control);
  void ClickInside(Control& control);
  static void PickInside(ListControl& list, int row);

  Form& form_;
};

}  // namespace fiscalon
