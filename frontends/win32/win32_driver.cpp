#include "frontends/win32/win32_driver.h"

#include <array>
#include <utility>

#include "core/platform/windows/wide_text.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/list_views.h"
#include "frontends/win32/text_view.h"

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

LPARAM PlaceIn(POINT place) {
  return MAKELPARAM(place.x, place.y);
}

}  // namespace

void Win32Driver::ComeToFront() const {
  if (::GetActiveWindow() != window_.Window() && ::IsWindowEnabled(window_.Window()) != FALSE)
    ::SetActiveWindow(window_.Window());
}

void Win32Driver::ServeMessages() {
  constexpr UINT kAllButPainting = PM_REMOVE | PM_QS_INPUT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, kAllButPainting) != FALSE) window_.Dispatch(message);
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

std::optional<POINT> Win32Driver::Point(const ControlView& view) {
  // What is disabled lets the mouse through to what lies behind, which is the form.
  return view.IsUsable() ? std::optional(view.PointToPress()) : std::nullopt;
}

void Win32Driver::PressAndRelease(const ControlView& view, POINT place, Release release) {
  const HWND window = view.Window();
  const auto* editor = dynamic_cast<const TextView*>(&view);
  ComeToFront();
  const bool hadFocus = ::GetFocus() == window;
  const Selection before = editor == nullptr ? Selection{} : editor->NativeSelection();
  {
    const HeldKeys held({{VK_LBUTTON, true}});
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PlaceIn(place));
    ServeMessages();
  }
  constexpr POINT kBeside = {-100, -100};
  // Beside an editor the mouse would drag a selection.
  const bool beside = release == Release::Beside && editor == nullptr;
  ::PostMessageW(window, WM_LBUTTONUP, 0, PlaceIn(beside ? kBeside : place));
  ServeMessages();
  if (editor == nullptr || FocusName() != view.Model().Name())
    return;
  // Where a check has shown a box, the mouse selects nothing any more.
  if (editor->NativeSelection().length > 0)
    return;
  // Scenarios point behind the last character, which may lie beyond what the field shows; and in a field that has
  // the focus already they leave the selection alone.
  const Selection end = {.start = static_cast<int>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0))};
  const Selection wanted = hadFocus ? before : end;
  ::SendMessageW(window, EM_SETSEL, static_cast<WPARAM>(wanted.start), wanted.End());
}

void Win32Driver::PressMouse(Control& control) {
  const ControlView& view = window_.ViewOf(control);
  const auto place = Point(view);
  if (!place)
    return;
  PressAndRelease(view, *place, Release::Beside);
  const auto* list = dynamic_cast<const AnyListView*>(&view);
  if (list != nullptr && list->Rows() != view.Window())
    ::SendMessageW(view.Window(), CB_SHOWDROPDOWN, FALSE, 0);
}

void Win32Driver::Click(Control& control) {
  // Which row a click in a list would hit is not for a scenario to know: it chooses rows by their texts.
  if (dynamic_cast<const ListControl*>(&control) != nullptr)
    return PressMouse(control);
  const ControlView& view = window_.ViewOf(control);
  if (const auto place = Point(view))
    PressAndRelease(view, *place, Release::Within);
}

void Win32Driver::Choose(ListControl& list, int row) {
  list.ExpectRow(row);
  const auto& view = dynamic_cast<const AnyListView&>(window_.ViewOf(list));
  const auto place = Point(view);
  if (!place)
    return;
  if (view.Rows() == nullptr)
    PressAndRelease(view, *place, Release::Within);
  if (const HWND rows = view.Rows())
    PickIn(rows, view, row);
}

void Win32Driver::PickIn(HWND rows, const ControlView& view, int row) {
  ::SendMessageW(rows, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
  RECT area = {};
  ::SendMessageW(rows, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const POINT place = {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  if (rows == view.Window())
    return PressAndRelease(view, place, Release::Within);
  ::PostMessageW(rows, WM_MOUSEMOVE, 0, PlaceIn(place));
  ::PostMessageW(rows, WM_LBUTTONDOWN, MK_LBUTTON, PlaceIn(place));
  ::PostMessageW(rows, WM_LBUTTONUP, 0, PlaceIn(place));
  ServeMessages();
}

void Win32Driver::Paste(std::string_view text) {
  PutOnClipboard(ToWide(text));
  PressKey({.keyCode = 'V', .shift = shift_state::kControl});
}

void Win32Driver::CloseWindow(CloseReason reason) {
  switch (reason) {
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
      return window_.CloseFor(reason);
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

ShownControl Win32Driver::Shown(const Control& control) {
  return window_.ViewOf(control).Shown();
}

}  // namespace fiscalon::win32
