#include "frontends/win32/win32_driver.h"

#include <array>
#include <utility>

#include "core/forms/list_control.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/caption_views.h"
#include "frontends/win32/form_window.h"

namespace fiscalon::win32 {
namespace {

/// Keys that are held while messages are dealt with. Posted messages alone do not change what the thread takes for
/// held.
class HeldKeys {
 public:
  explicit HeldKeys(std::initializer_list<std::pair<int, bool>> keys) {
    for (const auto& [key, held] : keys) any_ = any_ || held;
    if (!any_)
      return;
    ::GetKeyboardState(before_.data());
    std::array<BYTE, 256> state = before_;
    constexpr BYTE kDown = 0x80;
    for (const auto& [key, held] : keys) state[static_cast<size_t>(key)] = held ? kDown : 0;
    ::SetKeyboardState(state.data());
  }
  ~HeldKeys() {
    if (any_)
      ::SetKeyboardState(before_.data());
  }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  bool any_ = false;
  std::array<BYTE, 256> before_ = {};
};

void PutOnClipboard(const std::wstring& text) {
  if (::OpenClipboard(nullptr) == FALSE)
    return;
  ::EmptyClipboard();
  const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  if (const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes); memory != nullptr) {
    text.copy(static_cast<wchar_t*>(::GlobalLock(memory)), text.size());
    static_cast<wchar_t*>(::GlobalLock(memory))[text.size()] = L'\0';
    ::GlobalUnlock(memory);
    ::GlobalUnlock(memory);
    ::SetClipboardData(CF_UNICODETEXT, memory);
  }
  ::CloseClipboard();
}

std::wstring RowOf(HWND list, UINT selected, UINT length, UINT text) {
  const LRESULT row = ::SendMessageW(list, selected, 0, 0);
  if (row < 0)
    return {};
  std::wstring result(static_cast<size_t>(::SendMessageW(list, length, static_cast<WPARAM>(row), 0)) + 1, L'\0');
  ::SendMessageW(list, text, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(result.data()));
  result.pop_back();
  return result;
}

bool HasStyle(HWND window, LONG_PTR style) {
  return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

DWORD EndOfText(HWND editor) {
  return static_cast<DWORD>(::SendMessageW(editor, WM_GETTEXTLENGTH, 0, 0));
}

struct Span {
  DWORD start = 0;
  DWORD end = 0;
};

Span SpanOf(HWND editor) {
  Span span;
  ::SendMessageW(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&span.start), reinterpret_cast<LPARAM>(&span.end));
  return span;
}

LPARAM PlaceIn(POINT place) {
  return MAKELPARAM(place.x, place.y);
}

}  // namespace

HWND Win32Driver::WindowOf(const Control& control) const {
  return window_.ViewOf(control).Window();
}

void Win32Driver::ComeToFront() const {
  if (::GetActiveWindow() != window_.Window() && ::IsWindowEnabled(window_.Window()) != FALSE)
    ::SetActiveWindow(window_.Window());
}

void Win32Driver::ServeMessages() {
  constexpr UINT kAllButPainting = PM_REMOVE | PM_QS_INPUT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, kAllButPainting) != FALSE) window_.Dispatch(message);
}

void Win32Driver::Type(char character) {
  PressKey(StrokeOf(character));
}

void Win32Driver::PressKey(const KeyStroke& stroke) {
  ComeToFront();
  HWND focus = ::GetFocus();
  if (focus == nullptr)
    focus = window_.Window();
  // A letter beyond ASCII is composed of several strokes and has no key of its own.
  if (stroke.keyCode == key::kOther) {
    ::PostMessageW(focus, WM_CHAR, ToWide(std::string(1, static_cast<char>(stroke.character))).front(), 1);
    return ServeMessages();
  }
  const bool alt = (stroke.shift & shift_state::kAlt) != 0;
  const HeldKeys held({{VK_SHIFT, (stroke.shift & shift_state::kShift) != 0},
                       {VK_CONTROL, (stroke.shift & shift_state::kControl) != 0},
                       {VK_MENU, alt}});
  const auto code = static_cast<WPARAM>(stroke.keyCode);
  const auto scan = static_cast<LPARAM>(::MapVirtualKeyW(static_cast<UINT>(stroke.keyCode), MAPVK_VK_TO_VSC)) << 16;
  constexpr LPARAM kOnce = 1, kWithAlt = LPARAM{1} << 29, kUp = LPARAM{3} << 30;
  const LPARAM extra = kOnce | scan | (alt ? kWithAlt : 0);
  ::PostMessageW(focus, alt ? WM_SYSKEYDOWN : WM_KEYDOWN, code, extra);
  ::PostMessageW(focus, alt ? WM_SYSKEYUP : WM_KEYUP, code, extra | kUp);
  ServeMessages();
}

std::optional<POINT> Win32Driver::Point(const Control& control) const {
  const HWND window = WindowOf(control);
  // What is disabled lets the mouse through to what lies behind, which is the form.
  if (!HasStyle(window, WS_VISIBLE) || HasStyle(window, WS_DISABLED))
    return std::nullopt;
  RECT area = {};
  ::GetClientRect(window, &area);
  if (control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton)
    return POINT{area.bottom / 2, area.bottom / 2};
  return POINT{area.right / 2, area.bottom / 2};
}

void Win32Driver::PressAndRelease(const Control& control, POINT place, Release release) {
  const HWND window = WindowOf(control);
  const bool isField = control.Kind() == ControlKind::TextField;
  ComeToFront();
  const bool hadFocus = ::GetFocus() == window;
  const Span before = isField ? SpanOf(window) : Span{};
  {
    const HeldKeys held({{VK_LBUTTON, true}});
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PlaceIn(place));
    ServeMessages();
  }
  constexpr POINT kBeside = {-100, -100};
  ::PostMessageW(window, WM_LBUTTONUP, 0, PlaceIn(release == Release::Within || isField ? place : kBeside));
  ServeMessages();
  if (!isField || FocusName() != control.Name())
    return;
  // Where a check has shown a box, the mouse selects nothing any more.
  if (const Span after = SpanOf(window); after.start != after.end)
    return;
  // Scenarios point behind the last character, which may lie beyond what the field shows; and in a field that has
  // the focus already they leave the selection alone.
  const DWORD end = EndOfText(window);
  const Span wanted = hadFocus ? before : Span{.start = end, .end = end};
  ::SendMessageW(window, EM_SETSEL, wanted.start, static_cast<LPARAM>(wanted.end));
}

void Win32Driver::PressMouse(Control& control) {
  const auto place = Point(control);
  if (!place)
    return;
  PressAndRelease(control, *place, Release::Beside);
  if (control.Kind() == ControlKind::DropDownList)
    ::SendMessageW(WindowOf(control), CB_SHOWDROPDOWN, FALSE, 0);
}

void Win32Driver::Click(Control& control) {
  // Which row a click in a list would hit is not for a scenario to know: it chooses rows by their texts.
  if (control.Kind() == ControlKind::ListBox || control.Kind() == ControlKind::DropDownList)
    return PressMouse(control);
  if (const auto place = Point(control))
    PressAndRelease(control, *place, Release::Within);
}

void Win32Driver::Choose(ListControl& list, int row) {
  list.ExpectRow(row);
  auto place = Point(list);
  if (!place)
    return;
  const HWND window = WindowOf(list);
  if (list.Kind() == ControlKind::ListBox) {
    ::SendMessageW(window, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
    RECT area = {};
    ::SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    place = POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  }
  PressAndRelease(list, *place, Release::Within);
  if (list.Kind() == ControlKind::DropDownList && ::SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) != 0)
    PickDroppedDown(window, row);
}

void Win32Driver::PickDroppedDown(HWND dropDown, int row) {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof(info);
  ::GetComboBoxInfo(dropDown, &info);
  ::SendMessageW(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
  RECT area = {};
  ::SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const LPARAM place = PlaceIn({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
  ::PostMessageW(info.hwndList, WM_MOUSEMOVE, 0, place);
  ::PostMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, place);
  ::PostMessageW(info.hwndList, WM_LBUTTONUP, 0, place);
  ServeMessages();
}

void Win32Driver::Paste(std::string_view text) {
  PutOnClipboard(ToWide(text));
  PressKey({.keyCode = 'V', .shift = shift_state::kControl});
}

void Win32Driver::CloseWindow(int reason) {
  switch (const auto closeReason = static_cast<CloseReason>(reason)) {
    case CloseReason::CloseBox:
      ::PostMessageW(window_.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
      return ServeMessages();
    case CloseReason::SystemEnds:
      ::SendMessageW(window_.Window(), WM_QUERYENDSESSION, 0, 0);
      return;
    case CloseReason::TaskManager:
      ::PostMessageW(window_.Window(), WM_CLOSE, 0, 0);
      return ServeMessages();
    default:
      return window_.CloseFor(closeReason);
  }
}

std::string Win32Driver::Title() {
  return FromWide(TextOfWindow(window_.Window()));
}

std::string Win32Driver::FocusName() {
  ComeToFront();
  const Control* control = window_.ControlOf(::GetFocus());
  return control == nullptr ? std::string() : control->Name();
}

std::string Win32Driver::Text(Control& control) {
  const HWND window = WindowOf(control);
  switch (control.Kind()) {
    case ControlKind::DropDownList:
      return FromWide(RowOf(window, CB_GETCURSEL, CB_GETLBTEXTLEN, CB_GETLBTEXT));
    case ControlKind::ListBox:
      return FromWide(RowOf(window, LB_GETCURSEL, LB_GETTEXTLEN, LB_GETTEXT));
    case ControlKind::Frame:
      return FromWide(AsCaption(TextOfWindow(window)));
    default:
      return FromWide(TextOfWindow(window));
  }
}

std::string Win32Driver::SelectedText(Control& control) {
  if (control.Kind() != ControlKind::TextField)
    return {};
  const Span span = SpanOf(WindowOf(control));
  return FromWide(TextOfWindow(WindowOf(control)).substr(span.start, span.end - span.start));
}

bool Win32Driver::Enabled(Control& control) {
  return ::IsWindowEnabled(WindowOf(control)) != FALSE;
}

bool Win32Driver::Visible(Control& control) {
  return HasStyle(WindowOf(control), WS_VISIBLE);
}

bool Win32Driver::Checked(Control& control) {
  const bool toggle = control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton;
  return toggle && ::SendMessageW(WindowOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

bool Win32Driver::Locked(Control& control) {
  return control.Kind() == ControlKind::TextField && HasStyle(WindowOf(control), ES_READONLY);
}

int Win32Driver::Items(Control& control) {
  if (control.Kind() == ControlKind::DropDownList)
    return static_cast<int>(::SendMessageW(WindowOf(control), CB_GETCOUNT, 0, 0));
  if (control.Kind() == ControlKind::ListBox)
    return static_cast<int>(::SendMessageW(WindowOf(control), LB_GETCOUNT, 0, 0));
  return 0;
}

}  // namespace fiscalon::win32
