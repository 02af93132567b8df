#include "core/forms/user_acts.h"

#include "core/forms/button.h"
#include "core/forms/form_events.h"
#include "core/forms/form_misuse.h"
#include "core/forms/list_control.h"

namespace fiscalon {

void UserActs::Open(PassKey<Form> /*key*/, const Handler& activate) {
  Act(ActPart::First, [&] {
    focus_.MoveToFirst();
    activate();
  });
}

KeyOutcome UserActs::Key(const KeyStroke& stroke) {
  KeyOutcome outcome;
  Act(ActPart::First, [&] { outcome = Stroke(stroke); });
  editingFollows_ = outcome.editing;
  return outcome;
}

KeyOutcome UserActs::KeyDown(int keyCode, int shift) {
  KeyOutcome outcome;
  Control* const control = form_.ActiveControl();
  Act(ActPart::First, [&] {
    const KeyStroke stroke = {.keyCode = keyCode, .shift = shift};
    if (!ReachesHandlers(stroke)) {
      outcome = Stroke(stroke);
    } else if (KeyGoesOn(control, stroke, keyCode)) {
      outcome = Meaning(control, keyCode, 0);
      outcome.characterFollows = true;
    }
  });
  editingFollows_ = outcome.editing;
  characterFollows_ = outcome.characterFollows;
  keyControl_ = control;
  return outcome;
}

KeyOutcome UserActs::Character(int character) {
  KeyOutcome outcome;
  const auto part = characterFollows_ ? ActPart::Further : ActPart::First;
  Control* const control = characterFollows_ ? keyControl_ : form_.ActiveControl();
  Act(part, [&] { outcome = Typed(control, 0, character); });
  editingFollows_ = outcome.editing;
  return outcome;
}

KeyOutcome UserActs::Stroke(const KeyStroke& stroke) {
  if (!form_.IsUp())
    return {};
  Control* const control = form_.ActiveControl();
  if (!ReachesHandlers(stroke))
    return IsEditorCommand(stroke) ? Meaning(control, stroke.keyCode, 0) : KeyOutcome();
  int keyCode = stroke.keyCode;
  if (!KeyGoesOn(control, stroke, keyCode))
    return {};
  return stroke.character == 0 ? Meaning(control, keyCode, 0) : Typed(control, keyCode, stroke.character);
}

bool UserActs::KeyGoesOn(Control* control, const KeyStroke& stroke, int& keyCode) {
  if (DialogKey(stroke))
    return false;
  keyCode = stroke.keyCode;
  form_.FireKeyDown({}, keyCode, stroke.shift);
  if (keyCode != 0 && control != nullptr && form_.IsUp())
    control->FireKeyDown({}, keyCode, stroke.shift);
  return keyCode != 0 && form_.IsUp();
}

KeyOutcome UserActs::Typed(Control* control, int keyCode, int character) {
  // Enter confirms an entry, and its handler may go on from it.
  if (character == key::kEnter)
    focus_.UserGoesOn();
  form_.FireKeyPress({}, character);
  if (character != 0 && control != nullptr && form_.IsUp())
    control->FireKeyPress({}, character);
  return character == 0 ? KeyOutcome() : Meaning(control, keyCode, character);
}

KeyOutcome UserActs::Meaning(Control* control, int keyCode, int character) const {
  // Handlers may have hidden or disabled the control meanwhile.
  return control == nullptr || !control->CanTakeFocus() ? KeyOutcome() : control->KeyMeans({}, keyCode, character);
}

bool UserActs::DialogKey(const KeyStroke& stroke) {
  // Ctrl and Alt together are AltGr, which types characters.
  if ((stroke.shift & shift_state::kControl) != 0)
    return false;
  if ((stroke.shift & shift_state::kAlt) != 0)
    return AccessKeyPressed(stroke);
  switch (stroke.keyCode) {
    case key::kTab:
      focus_.UserGoesOn();
      focus_.MoveToNext((stroke.shift & shift_state::kShift) != 0 ? -1 : +1);
      return true;
    case key::kEscape:
      return PressCancelButton();
    default:
      return ClickByKey(stroke.keyCode);
  }
}

bool UserActs::ClickByKey(int keyCode) {
  Control* const control = form_.ActiveControl();
  if (control == nullptr || !control->IsClickedBy({}, keyCode))
    return false;
  ClickIfFocused(*control);
  return true;
}

bool UserActs::AccessKeyPressed(const KeyStroke& stroke) {
  for (Control* control : form_.TabOrder()) {
    const int accessKey = control->AccessKey();
    if (accessKey == 0 || accessKey != stroke.keyCode || !control->CanTakeFocus())
      continue;
    GoAndClick(*control, FocusBy::Mouse);
    return true;
  }
  return false;
}

bool UserActs::PressCancelButton() {
  bool has = false;
  for (Control* control : form_.Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (button == nullptr || !button->Designed().cancel)
      continue;
    has = true;
    if (!button->CanTakeFocus())
      continue;
    control->Clicked({});
    break;
  }
  return has;
}

void UserActs::EditText(TextField& field, std::string_view text, Selection selection) {
  const auto part = editingFollows_ ? ActPart::Further : ActPart::First;
  Act(part, [&] {
    ExpectOwn(field);
    if (!field.Locked())
      field.Edit({}, std::string(text), selection);
  });
}

void UserActs::SelectText(TextField& field, Selection selection) {
  if (form_.IsUp())
    field.Select({}, selection);
}

bool UserActs::Press(Control& control) {
  bool clicks = false;
  Act(ActPart::First, [&] { clicks = PressAndFocus(control); });
  return clicks;
}

bool UserActs::PressAndFocus(Control& control) {
  ExpectOwn(control);
  if (!control.CanTakeFocus())
    return false;
  control.FireMouseDown({});
  if (!form_.IsUp())
    return false;
  focus_.UserGoesOn(&control);
  if (control.CanTakeFocus())
    focus_.Move(control, FocusBy::Mouse);
  form_.RunPosted({});
  return form_.IsUp() && form_.ActiveControl() == &control;
}

void UserActs::Release(Control& control) {
  Act(ActPart::Further, [&] { ClickIfFocused(control); });
}

void UserActs::Click(Control& control) {
  if (Press(control))
    Release(control);
}

void UserActs::ClickIfFocused(Control& control) {
  if (form_.IsUp() && form_.ActiveControl() == &control && control.CanTakeFocus())
    control.Clicked({});
}

void UserActs::GoAndClick(Control& control, FocusBy by) {
  focus_.UserGoesOn(&control);
  focus_.Move(control, by);
  form_.RunPosted({});
  ClickIfFocused(control);
}

void UserActs::PickIfThere(ListControl& list, int row) {
  // What ran since the user pointed at the row may have taken rows away.
  if (form_.ActiveControl() == &list && list.CanTakeFocus() && row < list.ListCount())
    list.Pick({}, row);
}

void UserActs::Pick(ListControl& list, int row) {
  Act(ActPart::Further, [&] {
    ExpectOwn(list);
    list.ExpectRow(row);
    PickIfThere(list, row);
  });
}

void UserActs::Choose(ListControl& list, int row) {
  Act(ActPart::First, [&] {
    ExpectOwn(list);
    list.ExpectRow(row);
    if (PressAndFocus(list))
      PickIfThere(list, row);
  });
}

void UserActs::BringFocus(Control& control) {
  Act(ActPart::First, [&] {
    ExpectOwn(control);
    focus_.UserGoesOn(&control);
    if (control.CanTakeFocus())
      focus_.Move(control, FocusBy::KeyboardOrCode);
  });
}

void UserActs::Close(CloseReason reason) {
  Act(ActPart::First, [&] {
    if (form_.MayUnload({}, reason))
      form_.Unload();
  });
}

void UserActs::ExpectOwn(const Control& control) const {
  if (&control.Owner() != &form_)
    throw FormMisuse(form_.Name(), control.Name(), "is a control of " + control.Owner().Name());
}

}  // namespace fiscalon
