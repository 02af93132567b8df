#include "tests/frontends/win32/assistive_user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "core/platform/windows/wide_text.h"

namespace fiscalon::win32 {
namespace {

LONG RoleAsTold(ControlKind kind) {
  // clang-format off
  const std::map<ControlKind, LONG> roles = {
      {ControlKind::Label,        ROLE_SYSTEM_STATICTEXT},
      {ControlKind::TextField,    ROLE_SYSTEM_TEXT},
      {ControlKind::Button,       ROLE_SYSTEM_PUSHBUTTON},
      {ControlKind::CheckBox,     ROLE_SYSTEM_CHECKBUTTON},
      {ControlKind::OptionButton, ROLE_SYSTEM_RADIOBUTTON},
      {ControlKind::DropDownList, ROLE_SYSTEM_COMBOBOX},
      {ControlKind::ListBox,      ROLE_SYSTEM_LIST},
      {ControlKind::Frame,        ROLE_SYSTEM_GROUPING}};
  // clang-format on
  return roles.at(kind);
}

}  // namespace

AssistiveUser::AssistiveUser(AssistiveProgram& program, HWND form, const ToldScreen& expected, UserDriver& native)
    : program_(program), form_(form), expected_(expected), native_(native) {
  using RoleAndName = std::pair<LONG, std::wstring>;
  std::map<RoleAndName, std::vector<HWND>> found;
  for (const HWND window : program_.Within(form)) {
    const AccessibleThing thing = program_.Told(window);
    found[{thing.role, thing.name}].push_back(window);
  }
  for (const ToldScreen::Told& told : expected.controls) {
    std::vector<HWND>& windows = found[{RoleAsTold(told.kind), ToWide(FromUtf8(told.told))}];
    EXPECT_FALSE(windows.empty()) << "nothing of that role is named \"" << told.told << "\", for " << told.name;
    if (windows.empty())
      continue;
    windows_[told.name] = windows.front();
    windows.erase(windows.begin());
  }
  for (const auto& [thing, left] : found)
    for (const LONG role : {ROLE_SYSTEM_TEXT, ROLE_SYSTEM_COMBOBOX, ROLE_SYSTEM_CHECKBUTTON, ROLE_SYSTEM_RADIOBUTTON,
                            ROLE_SYSTEM_PUSHBUTTON, ROLE_SYSTEM_LIST})
      EXPECT_FALSE(thing.first == role && !left.empty()) << "not in the layout: " << FromWide(thing.second);
}

void AssistiveUser::GoTo(const std::string& name) {
  typedInto_.clear();
  EXPECT_TRUE(program_.TakeFocus(WindowOf(name))) << name;
}

void AssistiveUser::PressKey(const KeyStroke& stroke) {
  const bool isText = stroke.character >= ' ' && (stroke.shift & ~shift_state::kShift) == 0;
  if (isText)
    return Enter(std::string(1, static_cast<char>(stroke.character)));
  typedInto_.clear();
  native_.PressKey(stroke);
}

void AssistiveUser::Enter(std::string_view text) {
  const std::string name = FocusName();
  const auto told = std::find_if(expected_.controls.begin(), expected_.controls.end(),
                                 [&](const ToldScreen::Told& each) { return each.name == name; });
  std::wstring wide = ToWide(std::string(text));
  if (told != expected_.controls.end() && told->makesCapitals)
    ::CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  // The whole text is selected where the focus came by keyboard or by the form itself.
  const std::wstring before = std::exchange(typedInto_, name) == name ? program_.Told(WindowOf(name)).value : L"";
  EXPECT_TRUE(program_.PutValue(WindowOf(name), before + wide)) << name;
}

void AssistiveUser::Click(Control& control) {
  if (dynamic_cast<const AnyButton*>(&control) == nullptr)
    return GoTo(control.Name());
  typedInto_.clear();
  EXPECT_TRUE(program_.DoDefaultAction(WindowOf(control.Name()))) << control.Name();
}

void AssistiveUser::Choose(ListControl& list, int row) {
  typedInto_.clear();
  const HWND window = WindowOf(list.Name());
  const std::wstring words = ToWide(list.ShownRow(row));
  if (list.Kind() == ControlKind::DropDownList) {
    EXPECT_TRUE(program_.PutValue(window, words)) << list.Name();
    return;
  }
  EXPECT_EQ(program_.RowsOf(window).at(static_cast<size_t>(row)), words);
  EXPECT_TRUE(program_.SelectRow(window, row + 1)) << list.Name();
}

void AssistiveUser::Paste(std::string_view text) {
  typedInto_.clear();
  Enter(text);
}

std::string AssistiveUser::Title() {
  return FromWide(program_.Told(form_).name);
}

std::string AssistiveUser::FocusName() {
  // Mostly where it was.
  if (!focus_.empty() && program_.HasFocus(WindowOf(focus_)))
    return focus_;
  focus_.clear();
  for (const auto& [name, window] : windows_)
    if (program_.HasFocus(window)) {
      focus_ = name;
      break;
    }
  return focus_;
}

ShownControl AssistiveUser::Shown(const Control& control) {
  const AccessibleThing told = program_.Told(WindowOf(control.Name()));
  // What is selected, and how many rows drop down, these objects do not tell here.
  ShownControl shown = native_.Shown(control);
  if (told.role == ROLE_SYSTEM_LIST)
    shown.items = static_cast<int>(program_.RowsOf(WindowOf(control.Name())).size());
  shown.text = FromWide(
      told.role == ROLE_SYSTEM_TEXT || told.role == ROLE_SYSTEM_COMBOBOX || told.role == ROLE_SYSTEM_LIST ? told.value
                                                                                                          : told.name);
  shown.checked = told.Is(STATE_SYSTEM_CHECKED);
  shown.locked = told.role == ROLE_SYSTEM_TEXT && told.Is(STATE_SYSTEM_READONLY);
  shown.enabled = !told.Is(STATE_SYSTEM_UNAVAILABLE);
  shown.visible = !told.Is(STATE_SYSTEM_INVISIBLE);
  return shown;
}

}  // namespace fiscalon::win32
