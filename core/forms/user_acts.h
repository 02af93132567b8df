#pragma once

#include <string_view>

#include "core/forms/close_reason.h"
#include "core/forms/keys.h"
#include "core/forms/pass_key.h"
#include "core/forms/text_field.h"

namespace fiscalon {

class EventQueue;
class Focus;
class Form;
class ListControl;

/// The acts of the user on a form that is up: the one way in for front ends (`Form::Acts`). An act runs all events that
/// it sends and posts before it returns. No act throws: an error that leaves a handler ends the show and comes out of
/// `Form::ShowModal`, and so does the `FormMisuse` of a control of another form or a row that is not there. Acts on a
/// form that is not up, or while an act is under way, do nothing.
///
/// A front end's duties:
/// - Every key comes here before any widget: Tab, Enter, Escape and access keys included.
/// - The focus is where the form has it, after each act and at `FormObserver::FocusMoved`. Moves of the platform's own
///   are undone; only those that a user has asked for in another way than by key or mouse are acts (`BringFocus`).
/// - After each act, and after each `EditText`, widgets show what the controls hold, which may be something else than
///   what they were given; and the form may be down.
/// - A press that answers false must not click, natively either.
class UserActs {
 public:
  /// Each form makes its own.
  UserActs(Form& form, Focus& focus, EventQueue& queue) : form_(form), focus_(focus), queue_(queue) {}
  UserActs(const UserActs&) = delete;
  UserActs& operator=(const UserActs&) = delete;

  /// A key goes down. Dialog keys are done here; other keys run through the handlers, and for a text field the
  /// front end's own editing then takes the outcome's character and reports the result with `EditText`.
  KeyOutcome Key(const KeyStroke& stroke);

  // The same for a front end that gets a key and its character apart. A character without a key, such as a composed
  // one, needs no `KeyDown`.
  /// The key: whether its character is to be reported too stands in the outcome.
  KeyOutcome KeyDown(int keyCode, int shift);
  /// The character, in the code page.
  KeyOutcome Character(int character);

  /// The front end's editing (a typed character, a paste, an undo, an input method) has made this of a field's text. A
  /// locked field keeps its text; what the edit put in is cut where it exceeds the field's limit, and in a field of one
  /// line at its first line end.
  void EditText(TextField& field, std::string_view text, Selection selection);
  /// The caret or the selection of a field was moved.
  void SelectText(TextField& field, Selection selection);

  /// The mouse button goes down on a control: its `MouseDown`, then the focus, then what was posted. Whether a
  /// release there would click.
  bool Press(Control& control);
  /// The mouse button comes up again on the control that was pressed: clicks it if it still has the focus.
  void Release(Control& control);
  /// Presses and releases in one: a click of an assistive program.
  void Click(Control& control);

  /// A row of a list is picked after the list was pressed, or dropped down by a key: selects it if the list still has
  /// the focus.
  void Pick(ListControl& list, int row);
  /// A list is pressed and a row of it picked.
  void Choose(ListControl& list, int row);

  /// The focus came to a control by a way of the front end's own, such as an assistive program.
  void BringFocus(Control& control);

  /// The window closes.
  void Close(CloseReason reason);

  /// The form goes up: an act that gives the first focus, and activates the form.
  void Open(PassKey<Form> key, const Handler& activate);

  // Within an act that is under way.

  /// A handler has posted a keystroke.
  void PostedStroke(PassKey<Form> /*key*/, const KeyStroke& stroke) { Stroke(stroke); }
  /// The user goes to a control by a key of another one and clicks: not where a check takes the focus back.
  void GoAndClick(PassKey<Control> /*key*/, Control& control, FocusBy by) { GoAndClick(control, by); }

 private:
  /// A click is a press and a release, a typed character is a key and its editing: one act each.
  enum class ActPart { First, Further };
  /// One act, from its first event to the last that it posted. An error that leaves it ends the show and is kept for
  /// `Form::ShowModal` to throw.
  template <class Call>
  void Act(ActPart part, Call&& call);

  // A keystroke inside an act that is under way.
  KeyOutcome Stroke(const KeyStroke& stroke);
  /// Dialog keys and the `KeyDown` handlers, which may change the code. Whether the key goes on.
  bool KeyGoesOn(Control* control, const KeyStroke& stroke, int& keyCode);
  /// The `KeyPress` handlers, and what the character means to the control.
  KeyOutcome Typed(Control* control, int keyCode, int character);
  KeyOutcome Meaning(Control* control, int keyCode, int character) const;
  bool DialogKey(const KeyStroke& stroke);
  bool ClickByKey(int keyCode);
  bool AccessKeyPressed(const KeyStroke& stroke);
  bool PressCancelButton();

  // Parts of an act that is under way.
  bool PressAndFocus(Control& control);
  void ClickIfFocused(Control& control);
  void GoAndClick(Control& control, FocusBy by);
  void PickIfThere(ListControl& list, int row);

  void ExpectOwn(const Control& control) const;

  Form& form_;
  Focus& focus_;
  EventQueue& queue_;
  bool acting_ = false;
  /// The key before was left to a field: what its editor makes of it belongs to the same act.
  bool editingFollows_ = false;
  /// The key before goes on with its character, on the control that had the focus then.
  bool characterFollows_ = false;
  Control* keyControl_ = nullptr;
};

}  // namespace fiscalon
