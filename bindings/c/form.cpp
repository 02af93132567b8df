#include <utility>

#include "bindings/c/answer.h"
#include "bindings/c/form_user.h"
#include "core/forms/laid_out.h"
#include "core/forms/list_control.h"
#include "core/platform/code_page.h"
#include "core/screen.h"

/// What a played user does at a form, and sees of it.
namespace fiscalon::c {

namespace {

static_assert(static_cast<int>(ControlKind::Frame) == FISCALON_CONTROL_FRAME);
static_assert(static_cast<int>(ControlKind::DropDownList) == FISCALON_CONTROL_DROP_DOWN_LIST);

/// What is in the code page, as descriptions quote it.
std::string InQuotes(const std::string& name) {
  return "\"" + ToUtf8(name) + "\"";
}

/// Looks at a form that is down would load it again.
void ExpectUp(const FormUser& played) {
  if (!played.form.IsUp())
    Fail(FISCALON_ERROR_FORM_CLOSED, "The form " + InQuotes(played.form.Name()) + " is closed.");
}

/// What a user does or sees, on a form that must be up.
template <typename Act>
int DoAct(fiscalon_form* form, Act&& act) noexcept {
  return Answer([&] {
    const auto played = Of(form);
    ExpectUp(*played);
    act(*played);
  });
}

template <typename Get>
int GetSeen(fiscalon_form* form, const char** place, Get&& get) noexcept {
  return GetText(form, place, [&](FormUser& played) {
    ExpectUp(played);
    return get(played);
  });
}

Control& ControlNamed(const FormUser& played, const char* name) {
  const std::string wanted = FromHost(name);
  if (Control* const control = played.form.FindControl(wanted))
    return *control;
  Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL,
       InQuotes(played.form.Name()) + " has no control " + InQuotes(wanted) + ".");
}

ListControl& ListNamed(const FormUser& played, const char* name) {
  Control& control = ControlNamed(played, name);
  if (auto* const list = dynamic_cast<ListControl*>(&control))
    return *list;
  Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL,
       InQuotes(control.Name()) + " of " + InQuotes(played.form.Name()) + " is no list.");
}

void ExpectRow(const ListControl& list, int32_t row) {
  if (row < 0 || row >= list.ListCount())
    Raise(error_number::kSubscriptOutOfRange);
}

void Tell(FormUser& played, const Control& shown, fiscalon_control& told) {
  const ShownControl state = played.user.Shown(shown);
  played.controlName = ToHost(shown.Name());
  played.controlText = ToHost(state.text);
  played.controlSelection = ToHost(state.selection);
  told = {.size = sizeof(fiscalon_control),
          .name = played.controlName.c_str(),
          .kind = static_cast<int32_t>(shown.Kind()),
          .items = state.items,
          .text = played.controlText.c_str(),
          .selection = played.controlSelection.c_str(),
          .checked = state.checked ? 1 : 0,
          .locked = state.locked ? 1 : 0,
          .enabled = state.enabled ? 1 : 0,
          .visible = state.visible ? 1 : 0};
}

}  // namespace

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" {

int fiscalon_form_get_name(fiscalon_form* form, const char** name) {
  return GetText(form, name, [](FormUser& played) { return played.form.Name(); });
}
int fiscalon_form_is_up(fiscalon_form* form, int32_t* up) {
  return AnswerAt(up, [&] { return Of(form)->form.IsUp() ? 1 : 0; });
}
int fiscalon_form_get_chosen(fiscalon_form* form, int32_t* chosen) {
  return AnswerAt(
      chosen, [&] { return static_cast<const fiscalon::Screen&>(Of(form)->form).Chosen() == fiscalon::kTrue ? 1 : 0; });
}
int fiscalon_form_get_title(fiscalon_form* form, const char** title) {
  return GetSeen(form, title, [](FormUser& played) { return played.user.Title(); });
}
int fiscalon_form_get_focus(fiscalon_form* form, const char** control) {
  return GetSeen(form, control, [](FormUser& played) { return played.user.FocusName(); });
}
int fiscalon_form_get_status(fiscalon_form* form, const char** text) {
  return GetText(form, text,
                 [](FormUser& played) { return played.form.IsUp() ? fiscalon::StatusOf(played.form) : std::string(); });
}

int fiscalon_form_control_count(fiscalon_form* form, int32_t* count) {
  return AnswerAt(count, [&] { return static_cast<int32_t>(Of(form)->form.Controls().size()); });
}
int fiscalon_form_control_at(fiscalon_form* form, int64_t position, fiscalon_control* control) {
  return DoAct(form, [&](FormUser& played) {
    ExpectStruct(control);
    const auto& controls = played.form.Controls();
    if (std::cmp_less(position, 1) || std::cmp_greater(position, controls.size()))
      fiscalon::Raise(fiscalon::error_number::kSubscriptOutOfRange);
    Tell(played, *controls[static_cast<size_t>(position) - 1], *control);
  });
}
int fiscalon_form_control_of(fiscalon_form* form, const char* name, fiscalon_control* control) {
  return DoAct(form, [&](FormUser& played) {
    ExpectStruct(control);
    Tell(played, ControlNamed(played, name), *control);
  });
}
int fiscalon_form_get_row(fiscalon_form* form, const char* control, int32_t row, const char** text) {
  return GetSeen(form, text, [&](FormUser& played) {
    const fiscalon::ListControl& list = ListNamed(played, control);
    ExpectRow(list, row);
    return list.ShownRow(row);
  });
}

int fiscalon_form_type(fiscalon_form* form, const char* text) {
  return DoAct(form, [&](FormUser& played) {
    const std::string keys = FromHost(text);
    for (size_t i = 0; i < keys.size(); ++i) {
      if (!played.form.IsUp())
        Fail(FISCALON_ERROR_FORM_CLOSED,
             "The form " + InQuotes(played.form.Name()) + " was closed before " + InQuotes(keys.substr(i)) + ".");
      if (keys[i] == '\t')
        played.user.PressKey(*fiscalon::StrokeNamed("Tab"));
      else
        played.user.Type(keys[i]);
    }
  });
}
int fiscalon_form_press_key(fiscalon_form* form, const char* key) {
  return DoAct(form, [&](FormUser& played) {
    const std::string name = FromHost(key);
    const auto stroke = fiscalon::StrokeNamed(name);
    if (!stroke)
      Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL, "There is no key " + InQuotes(name) + ".");
    played.user.PressKey(*stroke);
  });
}
int fiscalon_form_press_mouse(fiscalon_form* form, const char* control) {
  return DoAct(form, [&](FormUser& played) { played.user.PressMouse(ControlNamed(played, control)); });
}
int fiscalon_form_click(fiscalon_form* form, const char* control) {
  return DoAct(form, [&](FormUser& played) { played.user.Click(ControlNamed(played, control)); });
}
int fiscalon_form_choose(fiscalon_form* form, const char* control, int32_t row) {
  return DoAct(form, [&](FormUser& played) {
    fiscalon::ListControl& list = ListNamed(played, control);
    ExpectRow(list, row);
    played.user.Choose(list, row);
  });
}
int fiscalon_form_paste(fiscalon_form* form, const char* text) {
  return DoAct(form, [&](FormUser& played) { played.user.Paste(FromHost(text)); });
}
int fiscalon_form_close(fiscalon_form* form, int32_t reason) {
  return DoAct(form, [&](FormUser& played) {
    if (reason < 0 || reason > static_cast<int32_t>(fiscalon::CloseReason::OwnerCloses))
      fiscalon::Raise(fiscalon::error_number::kInvalidProcedureCall);
    played.user.CloseWindow(static_cast<fiscalon::CloseReason>(reason));
  });
}

}  // extern "C"
