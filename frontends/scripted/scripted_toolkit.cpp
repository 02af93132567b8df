#include "frontends/scripted/scripted_toolkit.h"

#include "core/forms/button.h"
#include "core/forms/text_field.h"
#include "frontends/scripted/field_editing.h"

namespace fiscalon {
namespace {

/// What a key that the form has left to a field makes of it.
EditedText Edited(const TextField& field, const KeyStroke& stroke, int character) {
  // There is no clipboard, and nothing is undone.
  if (IsEditorCommand(stroke)) {
    const bool selectsAll = stroke.keyCode == 'A';
    return {.text = field.Text(),
            .selection = selectsAll ? Selection{.length = static_cast<int>(field.Text().size())} : field.Selected()};
  }
  if (character == key::kEnter)
    return InsertText(field, "\r\n");
  if (character >= ' ')
    return InsertText(field, std::string(1, static_cast<char>(character)));
  return EditByKey(field, character == 0 ? stroke.keyCode : character);
}

}  // namespace

void ScriptedUser::Type(char character) {
  PressKey(StrokeOf(character));
}

void ScriptedUser::PressKey(const KeyStroke& stroke) {
  UserActs& acts = form_.Acts();
  Control* const control = form_.ActiveControl();
  const KeyOutcome outcome = acts.Key(stroke);
  if (!outcome.editing || !form_.IsUp())
    return;
  auto& field = static_cast<TextField&>(*control);
  const EditedText edited = Edited(field, stroke, outcome.character);
  // The caret moves in a locked field too.
  if (edited.text == field.Text())
    acts.SelectText(field, edited.selection);
  else
    acts.EditText(field, edited.text, edited.selection);
}

void ScriptedUser::PressMouse(Control& control) {
  form_.Acts().Press(control);
}

void ScriptedUser::Click(Control& control) {
  form_.Acts().Click(control);
}

void ScriptedUser::Choose(ListControl& list, int row) {
  form_.Acts().Choose(list, row);
}

void ScriptedUser::Paste(std::string_view text) {
  auto* const field = dynamic_cast<TextField*>(form_.ActiveControl());
  if (field == nullptr || field->Locked())
    return;
  const EditedText edited = InsertText(*field, text);
  form_.Acts().EditText(*field, edited.text, edited.selection);
}

void ScriptedUser::CloseWindow(int reason) {
  form_.Acts().Close(static_cast<CloseReason>(reason));
}

std::string ScriptedUser::Title() {
  return form_.Caption();
}

std::string ScriptedUser::FocusName() {
  return form_.ActiveControl() == nullptr ? std::string() : form_.ActiveControl()->Name();
}

std::string ScriptedUser::Text(Control& control) {
  const auto* captioned = dynamic_cast<const Captioned*>(&control);
  return captioned != nullptr ? captioned->Caption() : control.ValueInComparisons();
}

std::string ScriptedUser::SelectedText(Control& control) {
  const auto* field = dynamic_cast<const TextField*>(&control);
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
  const auto* toggle = dynamic_cast<const ToggleButton*>(&control);
  return toggle != nullptr && toggle->Value();
}

bool ScriptedUser::Locked(Control& control) {
  const auto* field = dynamic_cast<const TextField*>(&control);
  return field != nullptr && field->Locked();
}

int ScriptedUser::Items(Control& control) {
  const auto* list = dynamic_cast<const ListControl*>(&control);
  return list == nullptr ? 0 : list->ListCount();
}

void ScriptedToolkit::Opening(Form& form) {
  form.Observe(this);
}

void ScriptedToolkit::ServeModal(Form& form) {
  ScriptedUser user(form);
  if (onForm)
    Call(onForm, form, user);
}

MessageAnswer ScriptedToolkit::ShowMessage(const BoxRequest& box) {
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
