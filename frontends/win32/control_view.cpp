#include "frontends/win32/control_view.h"

#include <oleacc.h>

#include <utility>

#include "core/forms/form.h"
#include "core/forms/watched_acts.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/button_views.h"
#include "frontends/win32/caption_views.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/list_views.h"
#include "frontends/win32/text_view.h"

namespace fiscalon::win32 {
namespace {

int WidthOf(const RECT& place) {
  return place.right - place.left;
}

int HeightOf(const RECT& place) {
  return place.bottom - place.top;
}

LONG RoleOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return ROLE_SYSTEM_STATICTEXT;
    case ControlKind::TextField:
      return ROLE_SYSTEM_TEXT;
    case ControlKind::Button:
      return ROLE_SYSTEM_PUSHBUTTON;
    case ControlKind::CheckBox:
      return ROLE_SYSTEM_CHECKBUTTON;
    case ControlKind::OptionButton:
      return ROLE_SYSTEM_RADIOBUTTON;
    case ControlKind::DropDownList:
      return ROLE_SYSTEM_COMBOBOX;
    case ControlKind::ListBox:
      return ROLE_SYSTEM_LIST;
    case ControlKind::Frame:
      break;
  }
  return ROLE_SYSTEM_GROUPING;
}

}  // namespace

void ControlView::Create(HWND parent, const RECT& place, const DialogFonts& fonts, FormWindow& owner) {
  const Design design = Designed();
  const RECT room = RoomFor(place, fonts);
  // What is right from the beginning needs no second message.
  const DWORD state = (control_.VisibleInFrames() ? WS_VISIBLE : 0) | (control_.EnabledInFrames() ? 0 : WS_DISABLED);
  window_ = ::CreateWindowExW(design.extendedStyle, design.windowClass, L"", WS_CHILD | state | design.style, room.left,
                              room.top, WidthOf(room), HeightOf(room), parent, nullptr, OwnModule(), nullptr);
  if (window_ == nullptr)
    ThrowLastError("a control of the form can't be shown");
  owner_ = &owner;
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  native_ = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlView::Procedure)));
  Restyle(fonts);
  Made();
}

LRESULT CALLBACK ControlView::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
  auto& view = *reinterpret_cast<ControlView*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  try {
    return view.owner_->Hear(view, message, wide, extra);
  } catch (...) {
    view.owner_->HasFailed();
    return 0;
  }
}

void ControlView::Place(const RECT& place, const DialogFonts& fonts) {
  const RECT room = RoomFor(place, fonts);
  ::SetWindowPos(window_, nullptr, room.left, room.top, WidthOf(room), HeightOf(room),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void ControlView::Restyle(const DialogFonts& fonts) {
  ::SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Font(Font())), FALSE);
}

ShownControl ControlView::Shown() const {
  ShownControl shown = Content();
  const LONG_PTR style = ::GetWindowLongPtrW(window_, GWL_STYLE);
  shown.enabled = (style & WS_DISABLED) == 0;
  shown.visible = (style & WS_VISIBLE) != 0;
  return shown;
}

bool ControlView::IsUsable() const {
  const LONG_PTR style = ::GetWindowLongPtrW(window_, GWL_STYLE);
  return (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

void ControlView::Name(std::wstring name, std::wstring description) {
  const auto set = [this](std::wstring& text, std::wstring&& to, DWORD event) {
    if (text == to)
      return;
    text = std::move(to);
    if (window_ != nullptr)
      ::NotifyWinEvent(event, window_, OBJID_CLIENT, CHILDID_SELF);
  };
  set(name_, std::move(name), EVENT_OBJECT_NAMECHANGE);
  set(description_, std::move(description), EVENT_OBJECT_DESCRIPTIONCHANGE);
}

ToldWindow ControlView::Told() const {
  const ShownControl shown = Shown();
  const auto* captioned = dynamic_cast<const Captioned*>(&control_);
  ToldWindow told = {.role = RoleOf(control_.Kind()),
                     .name = name_.empty() && captioned != nullptr ? ToWide(captioned->PlainCaption()) : name_,
                     .description = description_,
                     .accessKey = control_.AccessKey()};
  const auto decide = [&told](LONG state, bool holds) {
    told.decided |= state;
    told.states |= holds ? state : 0;
  };
  decide(STATE_SYSTEM_UNAVAILABLE, !shown.enabled);
  decide(STATE_SYSTEM_INVISIBLE, !shown.visible);
  decide(STATE_SYSTEM_READONLY, shown.locked || control_.Kind() == ControlKind::Label);
  decide(STATE_SYSTEM_CHECKED, shown.checked);
  decide(STATE_SYSTEM_FOCUSABLE, control_.TakesKeys());
  decide(STATE_SYSTEM_FOCUSED, ::GetFocus() == window_);
  return told;
}

AccessibleSource::Answer ControlView::FocusLater() {
  return control_.TakesKeys() ? DoLater([this] { ::SetFocus(window_); }) : E_ACCESSDENIED;
}

HRESULT ControlView::DoLater(std::function<void()> act) {
  const bool isAsked = IsUsable() && owner_->DoLater([this, act = std::move(act)] {
    if (IsUsable())
      act();
  });
  return isAsked ? S_OK : E_ACCESSDENIED;
}

POINT ControlView::PointToPress() const {
  RECT area = {};
  ::GetClientRect(window_, &area);
  return {area.right / 2, area.bottom / 2};
}

void ControlView::Refresh() {
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window_, GWL_STYLE));
  const bool enabled = control_.EnabledInFrames();
  if (enabled == ((style & WS_DISABLED) != 0))
    ::EnableWindow(window_, enabled ? TRUE : FALSE);
  const bool visible = control_.VisibleInFrames();
  if (visible != ((style & WS_VISIBLE) != 0))
    ::ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

LRESULT ControlView::Native(UINT message, WPARAM wide, LPARAM extra) const {
  return ::CallWindowProcW(native_, window_, message, wide, extra);
}

LRESULT ControlView::Message(UINT message, WPARAM wide, LPARAM extra) {
  const LRESULT result = Native(message, wide, extra);
  // Another program's text: captions are the form's.
  if (message == WM_SETTEXT && control_.Owner().IsUp())
    Refresh();
  return result;
}

bool ControlView::MousePressed(UINT message, POINT /*place*/) {
  const bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  return !left || Press() == AfterPress::Over;
}

ControlView::AfterPress ControlView::Press() {
  const int before = acts_.Interruptions();
  if (!acts_.Press(control_))
    return AfterPress::Over;
  // Where the button is still down the window goes on as if nothing had been between.
  const bool isOver = acts_.Interruptions() != before && ::GetKeyState(VK_LBUTTON) >= 0;
  return isOver ? AfterPress::Interrupted : AfterPress::Goes;
}

bool ControlView::IsActive() const {
  return control_.Owner().IsUp() && control_.Owner().ActiveControl() == &control_;
}

void ControlView::ShowText(const std::wstring& text) {
  if (TextOfWindow(window_) != text)
    Native(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::unique_ptr<ControlView> MakeView(Control& control, WatchedActs& acts) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return std::make_unique<LabelView>(static_cast<Label&>(control), acts);
    case ControlKind::Frame:
      return std::make_unique<FrameView>(static_cast<Frame&>(control), acts);
    case ControlKind::Button:
      return std::make_unique<ButtonView>(static_cast<Button&>(control), acts);
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
      return std::make_unique<ToggleView>(static_cast<ToggleButton&>(control), acts);
    case ControlKind::DropDownList:
      return std::make_unique<DropDownView>(static_cast<DropDownList&>(control), acts);
    case ControlKind::ListBox:
      return std::make_unique<ListBoxView>(static_cast<ListBox&>(control), acts);
    case ControlKind::TextField:
      break;
  }
  return std::make_unique<TextView>(static_cast<TextField&>(control), acts);
}

}  // namespace fiscalon::win32
