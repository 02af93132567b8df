#include "frontends/win32/form_window.h"

#include <oleacc.h>

#include <algorithm>
#include <system_error>

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/laid_out.h"
#include "core/forms/scoped_value.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/common_controls.h"
#include "frontends/win32/dialog_layout.h"
#include "frontends/win32/window_class.h"

namespace fiscalon::win32 {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

/// In dialog units.
constexpr int kAboveStatus = 4;

bool IsSame(const RECT& a, const RECT& b) {
  return ::EqualRect(&a, &b) != FALSE;
}

/// The part of the screen that no task bar covers.
RECT RoomBeside(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

/// Gives a window its size, with a frame around what it holds, and a place on the screen.
void PlaceWindow(HWND window, SIZE client, SIZE frame) {
  const HWND owner = ::GetWindow(window, GW_OWNER);
  const RECT room = RoomBeside(owner == nullptr ? window : owner);
  SIZE size = {client.cx + frame.cx, client.cy + frame.cy};
  if (size.cy > room.bottom - room.top) {
    size.cy = room.bottom - room.top;
    size.cx += ::GetSystemMetrics(SM_CXVSCROLL);
  }
  // In the middle of the owner, and on the screen. A window that is up grows to the right and downwards.
  RECT middle = room;
  if (owner != nullptr && ::IsIconic(owner) == FALSE)
    ::GetWindowRect(owner, &middle);
  POINT corner = {(middle.left + middle.right - size.cx) / 2, (middle.top + middle.bottom - size.cy) / 2};
  if (RECT current = {}; ::IsWindowVisible(window) != FALSE && ::GetWindowRect(window, &current) != FALSE)
    corner = {current.left, current.top};
  ::SetWindowPos(window, nullptr, std::max(room.left, std::min(corner.x, room.right - size.cx)),
                 std::max(room.top, std::min(corner.y, room.bottom - size.cy)), size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

FormWindow::FormWindow(Form& form, HWND owner, ActWatcher* watcher, int dotsPerInch)
    : form_(form),
      acts_(form, watcher, [this] { Settle(); }),
      fonts_(std::make_unique<DialogFonts>(dotsPerInch > 0 ? dotsPerInch : DotsPerInchOf(owner))) {
  try {
    MakeWindows(owner);
    MakeViews();
  } catch (...) {
    if (window_ != nullptr)
      ::DestroyWindow(window_);
    throw;
  }
  if (owner != nullptr && ::IsWindowEnabled(owner) != FALSE) {
    owner_ = owner;
    ::EnableWindow(owner_, FALSE);
  }
  form_.Observe(this);
}

FormWindow::~FormWindow() {
  form_.Observe(nullptr);
  movingFocus_ = true;
  // An owner that is enabled first is the next active window.
  if (owner_ != nullptr)
    ::EnableWindow(owner_, TRUE);
  const bool wasActive = ::GetActiveWindow() == window_;
  ::DestroyWindow(window_);
  if (owner_ != nullptr && wasActive)
    ::SetActiveWindow(owner_);
}

void FormWindow::MakeWindows(HWND owner) {
  const CommonControls look;
  window_ = ::CreateWindowExW(kExtendedStyle, WindowClass::Name(&FormWindow::Procedure), L"", kStyle, 0, 0, 0, 0, owner,
                              nullptr, OwnModule(), this);
  if (window_ == nullptr)
    ThrowLastError("the form's window can't be shown");
  body_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, WindowClass::Name(&FormWindow::Procedure), L"", WS_CHILD | WS_VISIBLE,
                            0, 0, 0, 0, window_, nullptr, OwnModule(), this);
  if (body_ == nullptr)
    ThrowLastError("the form's window can't be shown");
  status_.Create(window_);
  status_.Restyle(fonts_->Font(FontKind::Plain));
  // Access keys are underlined and the focus is marked from the beginning.
  ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
  CaptionChanged();
}

void FormWindow::MakeViews() {
  for (Control* control : form_.Controls()) views_[control] = MakeView(*control, acts_);
  for (const Control* control : StandingOut(form_)) ViewOf(*control).StandOut();
  // Places first: windows are made where they stand.
  LayOut();
  const CommonControls look;
  const auto& buttons = form_.FormLayout().buttons;
  for (Control* control : InReadingOrder()) {
    const bool isInRow = std::find(buttons.begin(), buttons.end(), control) != buttons.end();
    ViewOf(*control).Create(isInRow ? window_ : body_, places_[control], *fonts_, *this);
    ViewOf(*control).Refresh();
  }
}

std::vector<Control*> FormWindow::InReadingOrder() const {
  std::vector<Control*> order;
  const auto add = [&](Control* control) {
    if (control != nullptr && std::find(order.begin(), order.end(), control) == order.end())
      order.push_back(control);
  };
  for (const LaidOutGroup& group : LaidOut(form_)) {
    if (group.frame != nullptr)
      add(&form_.ControlNamed(group.frame->Name()));
    add(group.heading);
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) {
        add(cell.caption);
        add(cell.field);
        add(cell.hint);
      }
  }
  // The buttons, and frames without a place: these are no boxes, they only hide and disable with what they hold.
  for (Control* control : form_.FormLayout().buttons) add(control);
  for (Control* control : form_.Controls()) add(control);
  return order;
}

void FormWindow::LayOut() {
  layoutIsOld_ = false;
  const DialogLayout layout(form_, *fonts_, [this](const Control& control) { return ViewOf(control).Wanted(*fonts_); });
  const SIZE margin = layout.Margin(), body = layout.Body(), row = layout.ButtonRow();
  // A window that is up grows, but does not shrink under the mouse.
  const LONG width = std::max(std::max(body.cx, row.cx) + 2 * margin.cx, client_.cx);
  const LONG height =
      std::max(body.cy + row.cy + (body.cy > 0 && row.cy > 0 ? 3 : 2) * margin.cy, client_.cy - roomOfStatus_);
  roomOfStatus_ = RoomOfStatus(width - 2 * margin.cx);
  FitWindow({width, height + roomOfStatus_});
  RECT client = {};
  ::GetClientRect(window_, &client);
  const int rowTop = client.bottom - margin.cy - roomOfStatus_ - row.cy;

  // Everything without a scroll bar where the screen has room for it.
  const int shown = rowTop - (row.cy > 0 ? margin.cy : 0);
  const int whole = body.cy + margin.cy;
  ::SetWindowPos(body_, nullptr, 0, 0, client.right, shown, SWP_NOZORDER | SWP_NOACTIVATE);
  SCROLLINFO scroll = {};
  scroll.cbSize = sizeof(scroll);
  scroll.fMask = SIF_RANGE | SIF_PAGE;
  scroll.nMax = shown < whole ? whole : 0;
  scroll.nPage = static_cast<UINT>(shown);
  ::SetScrollInfo(body_, SB_VERT, &scroll, TRUE);
  if (shown >= whole)
    scrolled_ = 0;

  PlaceControls(layout.Places(), {margin.cx, margin.cy - scrolled_});
  PlaceControls(layout.Buttons(client.right - 2 * margin.cx), {margin.cx, rowTop});
  ::SetWindowPos(status_.Window(), nullptr, margin.cx, client.bottom - margin.cy - heightOfStatus_,
                 client.right - 2 * margin.cx, heightOfStatus_, SWP_NOZORDER | SWP_NOACTIVATE);
  std::vector<RECT> lines = layout.Lines();
  for (RECT& line : lines) ::OffsetRect(&line, margin.cx, margin.cy - scrolled_);
  PlaceLines(lines);
  NameFields();
}

void FormWindow::NameFields() {
  for (const ToldField& told : ToldFields(form_)) ViewOf(*told.field).Name(ToWide(told.name), ToWide(told.description));
}

int FormWindow::RoomOfStatus(int width) {
  // Its place stays when it is silent again: buttons must not move under a mouse that is down.
  const std::wstring text = status_.Text();
  if (!text.empty())
    heightOfStatus_ = std::max(heightOfStatus_, fonts_->HeightWithin(width, text));
  return heightOfStatus_ == 0 ? 0 : heightOfStatus_ + fonts_->Y(kAboveStatus);
}

void FormWindow::ShowStatus() {
  const std::wstring text = ToWide(StatusOf(form_));
  if (!status_.Say(text))
    return;
  NameFields();
  if (text.empty())
    return;
  layoutIsOld_ = true;
  status_.Announce();
}

void FormWindow::SetHint(const ControlView& view, const std::wstring& text) {
  constexpr int kWidestHint = 200;
  hints_.Set(window_, view.Window(), text, fonts_->X(kWidestHint));
}

void FormWindow::FitWindow(SIZE client) {
  const RECT before = {0, 0, client_.cx, client_.cy};
  const RECT wanted = {0, 0, client.cx, client.cy};
  if (IsSame(before, wanted))
    return;
  client_ = client;
  const RECT around = WindowAround(wanted, kStyle, kExtendedStyle, fonts_->DotsPerInch());
  const SIZE frame = {around.right - around.left - client.cx, around.bottom - around.top - client.cy};
  PlaceWindow(window_, client, frame);
  // The frame is what it is, whatever the system has said beforehand.
  RECT whole = {}, inside = {};
  ::GetWindowRect(window_, &whole);
  ::GetClientRect(window_, &inside);
  const SIZE real = {whole.right - whole.left - inside.right, whole.bottom - whole.top - inside.bottom};
  if (real.cx != frame.cx || real.cy != frame.cy)
    PlaceWindow(window_, client, real);
}

void FormWindow::PlaceControls(const std::map<const Control*, RECT>& places, POINT corner) {
  for (const auto& [control, place] : places) {
    RECT moved = place;
    ::OffsetRect(&moved, corner.x, corner.y);
    RECT& current = places_[control];
    if (IsSame(current, moved))
      continue;
    current = moved;
    if (ViewOf(*control).Window() != nullptr)
      ViewOf(*control).Place(moved, *fonts_);
  }
}

void FormWindow::PlaceLines(const std::vector<RECT>& lines) {
  while (lines_.size() < lines.size())
    lines_.push_back(::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_ETCHEDHORZ, 0, 0, 0, 0, body_,
                                       nullptr, OwnModule(), nullptr));
  for (size_t i = 0; i < lines_.size(); ++i) {
    const RECT line = i < lines.size() ? lines[i] : RECT{};
    ::SetWindowPos(lines_[i], HWND_BOTTOM, line.left, line.top, line.right - line.left, line.bottom - line.top,
                   SWP_NOACTIVATE);
  }
}

void FormWindow::Rescale(int dotsPerInch) {
  try {
    fonts_ = std::make_unique<DialogFonts>(dotsPerInch);
  } catch (const std::system_error&) {
    // In letters of the wrong size a form can be filled in.
    return;
  }
  for (const auto& [control, view] : views_) view->Restyle(*fonts_);
  status_.Restyle(fonts_->Font(FontKind::Plain));
  client_ = {};
  heightOfStatus_ = roomOfStatus_ = 0;
  LayOut();
  // What fits into its field may be another.
  for (const auto& [control, view] : views_) view->Refresh();
  ::InvalidateRect(window_, nullptr, TRUE);
}

void FormWindow::ScrollTo(int place) {
  SCROLLINFO scroll = {};
  scroll.cbSize = sizeof(scroll);
  scroll.fMask = SIF_POS;
  scroll.nPos = place;
  ::SetScrollInfo(body_, SB_VERT, &scroll, TRUE);
  ::GetScrollInfo(body_, SB_VERT, &scroll);
  const int by = scrolled_ - scroll.nPos;
  if (by == 0)
    return;
  scrolled_ = scroll.nPos;
  ::ScrollWindowEx(body_, 0, by, nullptr, nullptr, nullptr, nullptr, SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  for (auto& [control, shown] : places_)
    if (::GetParent(ViewOf(*control).Window()) == body_)
      ::OffsetRect(&shown, 0, by);
}

void FormWindow::ScrollBy(WORD request) {
  SCROLLINFO scroll = {};
  scroll.cbSize = sizeof(scroll);
  scroll.fMask = SIF_ALL;
  ::GetScrollInfo(body_, SB_VERT, &scroll);
  const int line = fonts_->LineHeight(FontKind::Plain), page = static_cast<int>(scroll.nPage);
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(scrolled_ - line);
    case SB_LINEDOWN:
      return ScrollTo(scrolled_ + line);
    case SB_PAGEUP:
      return ScrollTo(scrolled_ - page);
    case SB_PAGEDOWN:
      return ScrollTo(scrolled_ + page);
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(scroll.nMax);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(scroll.nTrackPos);
    default:
      return;
  }
}

void FormWindow::ShowWhole(HWND control) {
  if (::GetParent(control) != body_)
    return;
  RECT client = {}, place = {};
  ::GetClientRect(body_, &client);
  ::GetWindowRect(control, &place);
  ::MapWindowPoints(nullptr, body_, reinterpret_cast<POINT*>(&place), 2);
  if (place.top < 0)
    ScrollTo(scrolled_ + place.top);
  else if (place.bottom > client.bottom)
    ScrollTo(scrolled_ + place.bottom - client.bottom);
}

void FormWindow::Present() {
  ::ShowWindow(window_, SW_SHOW);
  ::SetForegroundWindow(window_);
  ::SetActiveWindow(window_);
  AlignFocus();
}

void FormWindow::Serve() {
  Present();
  MSG message = {};
  while (form_.IsUp()) {
    const BOOL more = ::GetMessageW(&message, nullptr, 0, 0);
    if (more < 0)
      ThrowLastError("the form hears no more of its user");
    if (more == 0) {
      // The host ends: its own loop must hear of it.
      ::PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
  Rethrow();
}

void FormWindow::HasFailed() {
  if (!failure_)
    failure_ = std::current_exception();
  form_.Hide();
  // The window, which else would hear of it, may be gone.
  ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

void FormWindow::Rethrow() const {
  if (failure_)
    std::rethrow_exception(failure_);
}

void FormWindow::Settle() {
  if (!form_.IsUp())
    return;
  ShowStatus();
  if (layoutIsOld_)
    LayOut();
  AlignFocus();
  AskAgain();
}

void FormWindow::AlignFocus() {
  // While a box is up it has the focus, and gives it back.
  if (!form_.IsUp() || ::IsWindowEnabled(window_) == FALSE)
    return;
  Control* active = form_.ActiveControl();
  const HWND wanted = active == nullptr ? window_ : ViewOf(*active).Window();
  if (::GetFocus() == wanted)
    return;
  {
    const ScopedValue moving(movingFocus_, true);
    ::SetFocus(wanted);
  }
  if (active == nullptr || !form_.IsUp())
    return;
  ViewOf(*active).Refresh();
  ShowWhole(wanted);
}

Control* FormWindow::ControlOf(HWND window) const {
  for (const auto& [control, view] : views_)
    if (view->Window() == window)
      return &view->Model();
  return nullptr;
}

void FormWindow::CloseFor(CloseReason reason) {
  acts_.Close(reason);
}

void FormWindow::ControlChanged(const Control& control) {
  ControlView& view = ViewOf(control);
  const auto isShown = [&] { return (::GetWindowLongPtrW(view.Window(), GWL_STYLE) & WS_VISIBLE) != 0; };
  const bool wasShown = isShown();
  // What has just been shown must not flash where it stood long ago.
  if (wasShown != control.VisibleInFrames() || control.Kind() == ControlKind::Label)
    layoutIsOld_ = true;
  view.Refresh();
  if (control.Kind() == ControlKind::Frame)
    for (const auto& [other, inner] : views_)
      if (other->EnclosingFrame() == &control)
        inner->Refresh();
  if (!acts_.Acting())
    Settle();
}

void FormWindow::FocusMoved(const Control& /*control*/, FocusBy by) {
  acts_.FocusMoved(by);
  AlignFocus();
}

void FormWindow::CaptionChanged() {
  ::SetWindowTextW(window_, ToWide(form_.ShownCaption()).c_str());
}

ToldWindow FormWindow::Told() const {
  return {.role = ROLE_SYSTEM_DIALOG, .name = TextOfWindow(window_)};
}

std::vector<HWND> FormWindow::ToldWindows() const {
  std::vector<HWND> windows;
  for (const Control* control : InReadingOrder()) windows.push_back(ViewOf(*control).Window());
  windows.push_back(status_.Window());
  return windows;
}

void FormWindow::ShowEnded() {
  // A message that was sent may have ended it, and no other may come.
  ::PostMessageW(window_, WM_NULL, 0, 0);
}

void FormWindow::HandlerRuns(std::string_view object, std::string_view event) {
  if (onHandler)
    onHandler(object, event);
}

}  // namespace fiscalon::win32
