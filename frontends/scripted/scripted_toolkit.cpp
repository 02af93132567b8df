#include "frontends/scripted/scripted_toolkit.h"

#include "core/forms/button.h"
#include "core/forms/text_field.h"

namespace fiscalon {

void ScriptedUser::PressKey(const KeyStroke& stroke) {
  Control* const control = form_.ActiveControl();
  const KeyOutcome outcome = acts_.Key(stroke);
  if (!outcome.editing || !form_.IsUp())
    return;
  auto& field = static_cast<TextField&>(*control);
  const EditedText edited = editor_.Key(field, stroke, outcome.character);
  // The caret moves in a locked field too.
  if (edited.text == field.Text())
    acts_.SelectText(field, edited.selection);
  else
    acts_.EditText(
        {.field = &field, .text = edited.text, .selection = edited.selection, .origin = EditAct::Origin::Key});
}

void ScriptedUser::PressMouse(Control& control) {
  acts_.Press(control);
}

void ScriptedUser::Click(Control& control) {
  acts_.Click(control);
}

void ScriptedUser::Choose(ListControl& list, int row) {
  acts_.Choose(list, row);
}

void ScriptedUser::Paste(std::string_view text) {
  auto* const field = dynamic_cast<TextField*>(form_.ActiveControl());
  if (field == nullptr || field->Locked())
    return;
  const EditedText edited = editor_.Paste(*field, text);
  acts_.EditText({.field = field, .text = edited.text, .selection = edited.selection});
}

void ScriptedUser::CloseWindow(CloseReason reason) {
  acts_.Close(reason);
}

std::string ScriptedUser::Title() {
  return form_.ShownCaption();
}

std::string ScriptedUser::FocusName() {
  return form_.ActiveControl() == nullptr ? std::string() : form_.ActiveControl()->Name();
}

ShownControl ScriptedUser::Shown(const Control& control) {
  ShownControl shown = {.enabled = control.EnabledInFrames(), .visible = control.VisibleInFrames()};
  switch (control.Kind()) {
    case ControlKind::Label:
    case ControlKind::Frame:
    case ControlKind::Button:
      shown.text = static_cast<const Captioned&>(control).ShownCaption();
      break;
    case ControlKind::CheckBox:
    case ControlKind::OptionButton: {
      const auto& toggle = static_cast<const ToggleButton&>(control);
      shown.text = toggle.ShownCaption();
      shown.checked = toggle.Value();
      break;
    }
    case ControlKind::TextField: {
      const auto& field = static_cast<const TextField&>(control);
      const Selection selection = field.Selected();
      shown.text = field.Text();
      shown.selection = shown.text.substr(static_cast<size_t>(selection.start), static_cast<size_t>(selection.length));
      shown.locked = field.Locked();
      break;
    }
    case ControlKind::DropDownList:
    case ControlKind::ListBox: {
      const auto& list = static_cast<const ListControl&>(control);
      shown.text = list.ShownText();
      shown.items = list.ListCount();
      break;
    }
  }
  return shown;
}

void ScriptedToolkit::ServeModal(Form& form) {
  if (Watcher() != nullptr)
    Watcher()->Opened(form);
  ScriptedUser user(form, Watcher());
  Drive(form, user);
}

MessageAnswer ScriptedToolkit::ShowMessage(const BoxRequest& box) {
  return Answered(box, AnswerTo(box));
}

}  // namespace fiscalon
