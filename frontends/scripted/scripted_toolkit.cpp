#include "frontends/scripted/scripted_toolkit.h"

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/text_field.h"
#include "core/forms/user_acts.h"
#include "frontends/scripted/field_editing.h"

namespace fiscalon {
namespace {

const TextField* AsTextField(const Control* control) {
  return control != nullptr && control->Kind() == ControlKind::TextField ? static_cast<const TextField*>(control)
                                                                         : nullptr;
}

}  // namespace

void ScriptedUser::Type(char character) {
  PressKey(StrokeOf(character));
}

void ScriptedUser::PressKey(const KeyStroke& stroke) {
  UserActs acts(form_);
  Control* const control = form_.ActiveControl();
  const KeyOutcome outcome = acts.Key(stroke);
  if (!outcome.editing || !form_.IsUp())
    return;
  auto& field = static_cast<TextField&>(*control);
  const bool inserts = outcome.character >= ' ' || (outcome.character == key::kEnter && field.Designed().multiLine);
  const EditedText edited = inserts ? InsertText(field, outcome.character == key::kEnter
                                                            ? std::string("\n")
                                                            : std::string(1, static_cast<char>(outcome.character)))
                                    : EditByKey(field, outcome.character == 0 ? stroke.keyCode : outcome.character);
  acts.EditText(field, edited.text, edited.selection);
}

void ScriptedUser::PressMouse(Control& control) {
  UserActs(form_).Press(control);
}

void ScriptedUser::Click(Control& control) {
  UserActs(form_).Click(control);
}

void ScriptedUser::Choose(ListControl& list, int row) {
  UserActs(form_).Choose(list, row);
}

void ScriptedUser::Paste(std::string_view text) {
  Control* const control = form_.ActiveControl();
  if (control == nullptr || control->Kind() != ControlKind::TextField || static_cast<TextField*>(control)->Locked())
    return;
  auto& field = static_cast<TextField&>(*control);
  const EditedText edited = InsertText(field, text);
  UserActs(form_).EditText(field, edited.text, edited.selection);
}

void ScriptedUser::CloseWindow(int reason) {
  UserActs(form_).Close(reason);
}

std::string ScriptedUser::Title() {
  return form_.Caption();
}

std::string ScriptedUser::FocusName() {
  return form_.ActiveControl() == nullptr ? std::string() : form_.ActiveControl()->Name();
}

std::string ScriptedUser::Text(Control& control) {
  if (control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton)
    return static_cast<ToggleButton&>(control).Caption();
  return control.DefaultValue();
}

std::string ScriptedUser::SelectedText(Control& control) {
  const TextField* field = AsTextField(&control);
  if (field == nullptr)
    return {};
  const Selection selection = field->Selected();
  return field->Text().substr(static_cast<size_t>(selection.start), static_cast<size_t>(selection.length));
}

bool ScriptedUser::Enabled(Control& control) {
  return control.EnabledInFrames();
}

bool ScriptedUser::Visible(Control& control) {
  return control.VisibleInFrames();
}

bool ScriptedUser::Checked(Control& control) {
  const bool toggles = control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton;
  return toggles && static_cast<ToggleButton&>(control).Value();
}

bool ScriptedUser::Locked(Control& control) {
  const TextField* field = AsTextField(&control);
  return field != nullptr && field->Locked();
}

int ScriptedUser::Items(Control& control) {
  const bool lists = control.Kind() == ControlKind::DropDownList || control.Kind() == ControlKind::ListBox;
  return lists ? static_cast<ListControl&>(control).ListCount() : 0;
}

void ScriptedToolkit::Opening(Form& form) {
  form.Observe(this);
}

void ScriptedToolkit::ServeModal(Form& form) {
  ScriptedUser user(form);
  if (onForm)
    Call(onForm, form, user);
}

MessageAnswer ScriptedToolkit::ShowMessage(const MessageBox& box) {
  return onMessage ? Call(onMessage, box) : box.DefaultAnswer();
}

void ScriptedToolkit::Beep() {
  if (onBeep)
    Call(onBeep);
}

void ScriptedToolkit::OpenHelp(std::string_view file, int32_t context) {
  if (onHelp)
    Call(onHelp, file, context);
}

void ScriptedToolkit::HandlerRuns(std::string_view object, std::string_view event) {
  if (onEvent)
    Call(onEvent, std::string(object).append("_").append(event));
}

}  // namespace fiscalon
