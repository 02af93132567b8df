#include "core/forms/user_acts.h"

#include <algorithm>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/form_events.h"
#include "core/forms/list_control.h"

namespace fiscalon {
namespace {

bool IsToggle(const Control& control) {
  return control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton;
}

bool IsList(const Control& control) {
  return control.Kind() == ControlKind::DropDownList || control.Kind() == ControlKind::ListBox;
}

// Labels and frames have no access key, and no other control that takes the focus has a caption but the buttons.
int AccessKeyOf(const Control& control) {
  const auto* captioned = dynamic_cast<const Captioned*>(&control);
  return captioned == nullptr ? 0 : AccessKey(captioned->Caption());
}

}  // namespace

KeyOutcome UserActs::Key(const KeyStroke& stroke) {
  KeyOutcome outcome;
  form_.Act(Form::ActPart::First, [&] { outcome = Stroke(stroke); });
  form_.editingFollows_ = outcome.editing;
  return outcome;
}

KeyOutcome UserActs::Stroke(const KeyStroke& stroke) {
  if (!form_.IsUp() || DialogKey(stroke))
    return {};
  Control* const control = form_.ActiveControl();
  int keyCode = stroke.keyCode;
  form_.Run("Form", "KeyDown", [&] { form_.Form_KeyDown(keyCode, stroke.shift); });
  if (keyCode != 0 && control != nullptr && control->Handlers().keyDown && form_.IsUp())
    form_.Run(control->Name(), "KeyDown", [&] { control->Handlers().keyDown(keyCode, stroke.shift); });
  if (keyCode == 0 || !form_.IsUp())
    return {};
  int character = stroke.character;
  if (character != 0) {
    form_.Run("Form", "KeyPress", [&] { form_.Form_KeyPress(character); });
    if (character != 0 && control != nullptr && control->Handlers().keyPress && form_.IsUp())
      form_.Run(control->Name(), "KeyPress", [&] { control->Handlers().keyPress(character); });
    if (character == 0)
      return {};
  }
  // Its handlers may have hidden or disabled the control meanwhile.
  if (control == nullptr || !control->CanTakeFocus())
    return {};
  if (control->Kind() == ControlKind::TextField) {
    const bool alters = character != 0 || keyCode == key::kDelete;
    return {.editing = !alters || !static_cast<TextField*>(control)->Locked(), .character = character};
  }
  if (control->Kind() == ControlKind::OptionButton)
    MoveWithinGroup(*control, keyCode);
  else if (IsList(*control))
    MoveWithinList(static_cast<ListControl&>(*control), keyCode, character);
  return {};
}

bool UserActs::DialogKey(const KeyStroke& stroke) {
  // Ctrl and Alt together are AltGr, which types characters.
  if ((stroke.shift & shift_state::kControl) != 0)
    return false;
  if ((stroke.shift & shift_state::kAlt) != 0)
    return AccessKeyPressed(stroke);
  switch (stroke.keyCode) {
    case key::kTab:
      form_.FocusNext((stroke.shift & shift_state::kShift) != 0 ? -1 : +1);
      return true;
    case key::kEscape:
      return PressCancelButton();
    case key::kEnter:
    case key::kSpace:
      return PressFocused(stroke.keyCode);
    default:
      return false;
  }
}

bool UserActs::PressFocused(int keyCode) {
  Control* const control = form_.ActiveControl();
  if (control == nullptr)
    return false;
  const bool presses = control->Kind() == ControlKind::Button || (keyCode == key::kSpace && IsToggle(*control));
  if (presses)
    ClickInside(*control);
  return presses;
}

bool UserActs::AccessKeyPressed(const KeyStroke& stroke) {
  for (Control* control : form_.TabOrder()) {
    const int accessKey = AccessKeyOf(*control);
    if (accessKey == 0 || accessKey != stroke.keyCode || !control->CanTakeFocus())
      continue;
    form_.MoveFocus(*control, FocusBy::Mouse);
    form_.RunPosted();
    ClickInside(*control);
    return true;
  }
  return false;
}

bool UserActs::PressCancelButton() {
  for (Control* control : form_.Controls()) {
    if (control->Kind() != ControlKind::Button || !control->Designed().cancel || !control->CanTakeFocus())
      continue;
    static_cast<Button*>(control)->Click();
    return true;
  }
  return false;
}

void UserActs::MoveWithinGroup(Control& control, int keyCode) {
  const bool back = keyCode == key::kLeft || keyCode == key::kUp;
  if (!back && keyCode != key::kRight && keyCode != key::kDown)
    return;
  std::vector<Control*> group = form_.TabOrder();
  std::erase_if(group, [&](const Control* other) {
    return other->Kind() != ControlKind::OptionButton || other->Designed().frame != control.Designed().frame ||
           !other->CanTakeFocus();
  });
  const auto here = std::find(group.begin(), group.end(), &control) - group.begin();
  const auto size = static_cast<std::ptrdiff_t>(group.size());
  Control& next = *group[static_cast<size_t>((here + (back ? size - 1 : 1)) % size)];
  form_.MoveFocus(next, FocusBy::KeyboardOrCode);
  form_.RunPosted();
  ClickInside(next);
}

void UserActs::MoveWithinList(ListControl& list, int keyCode, int character) {
  const int last = list.ListCount() - 1;
  const int here = list.ListIndex();
  int row = here;
  switch (keyCode) {
    case key::kUp:
      row = std::max(here - 1, 0);
      break;
    case key::kDown:
      row = here + 1;
      break;
    case key::kHome:
      row = 0;
      break;
    case key::kEnd:
      row = last;
      break;
    default:
      // A letter goes to the next row that begins with it.
      for (int i = 1; i <= last + 1 && row == here && character != 0; ++i) {
        const int candidate = (here + i) % (last + 1);
        const std::string text = list.List(candidate);
        if (!text.empty() && Capital(text.front()) == Capital(static_cast<char>(character)))
          row = candidate;
      }
  }
  row = std::min(row, last);
  if (row != here && row >= 0)
    list.Pick(row);
}

void UserActs::EditText(TextField& field, std::string_view text, Selection selection) {
  const auto part = form_.editingFollows_ ? Form::ActPart::Further : Form::ActPart::First;
  form_.Act(part, [&] {
    if (!field.Locked())
      field.Edit(std::string(text), selection);
  });
}

void UserActs::SelectText(TextField& field, Selection selection) {
  if (form_.IsUp())
    field.selection_ = field.Clamped(selection);
}

bool UserActs::Press(Control& control) {
  bool clicks = false;
  form_.Act(Form::ActPart::First, [&] { clicks = PressInside(control); });
  return clicks;
}

bool UserActs::PressInside(Control& control) {
  if (!control.CanTakeFocus())
    return false;
  control.Fire("MouseDown", control.Handlers().mouseDown);
  if (!form_.IsUp())
    return false;
  if (control.CanTakeFocus())
    form_.MoveFocus(control, FocusBy::Mouse);
  form_.RunPosted();
  return form_.IsUp() && form_.ActiveControl() == &control;
}

void UserActs::Release(Control& control) {
  form_.Act(Form::ActPart::Further, [&] { ClickInside(control); });
}

void UserActs::Click(Control& control) {
  if (Press(control))
    Release(control);
}

void UserActs::ClickInside(Control& control) {
  if (!form_.IsUp() || form_.ActiveControl() != &control || !control.CanTakeFocus())
    return;
  if (control.Kind() == ControlKind::Button)
    static_cast<Button&>(control).Click();
  else if (control.Kind() == ControlKind::CheckBox)
    static_cast<CheckBox&>(control).Value(!static_cast<CheckBox&>(control).Value());
  else if (control.Kind() == ControlKind::OptionButton)
    static_cast<OptionButton&>(control).Value(true);
}

void UserActs::PickInside(ListControl& list, int row) {
  // What runs before the click may take rows away.
  if (row >= 0 && row < list.ListCount())
    list.Pick(row);
}

void UserActs::Pick(ListControl& list, int row) {
  form_.Act(Form::ActPart::Further, [&] {
    if (form_.ActiveControl() == &list && list.CanTakeFocus())
      PickInside(list, row);
  });
}

void UserActs::Choose(ListControl& list, int row) {
  form_.Act(Form::ActPart::First, [&] {
    if (PressInside(list))
      PickInside(list, row);
  });
}

void UserActs::BringFocus(Control& control) {
  form_.Act(Form::ActPart::First, [&] {
    if (control.CanTakeFocus())
      form_.MoveFocus(control, FocusBy::KeyboardOrCode);
  });
}

void UserActs::Close(int reason) {
  form_.Act(Form::ActPart::First, [&] {
    bool cancel = false;
    form_.Run("Form", "QueryUnload", [&] { form_.Form_QueryUnload(cancel, reason); });
    if (!cancel)
      form_.Unload();
  });
}

}  // namespace fiscalon
