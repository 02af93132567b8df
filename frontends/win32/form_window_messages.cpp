// What a form's window makes of Windows' messages.

#include <stdexcept>
#include <utility>

#include "core/forms/scoped_value.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/key_strokes.h"

namespace fiscalon::win32 {
namespace {

/// WM_DPICHANGED of systems that scale by monitor.
constexpr UINT kScaleChanged = 0x02E0;

/// Posted by the form to itself: an assistive program has asked for an act.
constexpr UINT kAsked = WM_APP + 1;

POINT PointOf(LPARAM extra) {
  return {static_cast<short>(LOWORD(extra)), static_cast<short>(HIWORD(extra))};
}

bool IsKeyDown(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

}  // namespace

void FormWindow::Dispatch(const MSG& message) {
  Control* control = ControlOf(message.hwnd);
  ControlView* view = control == nullptr ? nullptr : &ViewOf(*control);
  if (IsKeyDown(message.message) && (view != nullptr || message.hwnd == window_ || message.hwnd == body_))
    PressKey(view, message);
  else
    LetPass(message);
}

void FormWindow::LetPass(const MSG& message) {
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

bool FormWindow::GoesToForm(ControlView*& view) {
  if (!form_.IsUp() || acts_.Acting())
    return false;
  Control* const active = form_.ActiveControl();
  if (view != nullptr && active != &view->Model()) {
    // Whoever sends keys to a control that has not the focus means that control.
    acts_.BringFocus(view->Model());
    return form_.IsUp() && form_.ActiveControl() == &view->Model();
  }
  if (view == nullptr && active != nullptr)
    view = &ViewOf(*active);
  return true;
}

std::vector<wchar_t> FormWindow::CharactersMadeBy(const MSG& message) const {
  ::TranslateMessage(&message);
  std::vector<wchar_t> units;
  MSG made = {};
  // Those of dead keys are none yet, and those made with Alt are commands.
  while (::PeekMessageW(&made, message.hwnd, WM_CHAR, WM_DEADCHAR, PM_REMOVE) != FALSE)
    if (made.message == WM_CHAR)
      units.push_back(static_cast<wchar_t>(made.wParam));
  while (::PeekMessageW(&made, message.hwnd, WM_SYSCHAR, WM_SYSDEADCHAR, PM_REMOVE) != FALSE) continue;
  return units;
}

void FormWindow::PressKey(ControlView* view, const MSG& message) {
  const auto keyCode = static_cast<int>(message.wParam);
  follows_ = Follows::Nothing;
  if (IsForSystem(view, keyCode)) {
    const ScopedValue passing(letsPass_, true);
    return LetPass(message);
  }
  const int shift = ShiftStateNow();
  const std::vector<wchar_t> units = CharactersMadeBy(message);
  if (!GoesToForm(view))
    return;
  KeyStroke stroke = {.keyCode = keyCode, .shift = shift};
  if (!units.empty())
    stroke.character = CharacterOf(units.front(), shift).value_or(0);
  const KeyOutcome outcome = acts_.Key(stroke);
  if (outcome.editing && form_.IsUp() && view != nullptr)
    view->Edit(outcome, stroke, message.lParam);
  // A dead key that makes no new character with this one gives both.
  for (size_t i = 1; i < units.size(); ++i) CharacterWasSent(view, units[i], message.lParam);
}

void FormWindow::KeyWasSent(ControlView* view, int keyCode, LPARAM extra) {
  if (!GoesToForm(view))
    return;
  const KeyStroke stroke = {.keyCode = keyCode, .shift = ShiftStateNow()};
  const KeyOutcome outcome = acts_.KeyDown(stroke.keyCode, stroke.shift);
  follows_ = outcome.characterFollows ? Follows::ItsCharacter : Follows::Dropped;
  if (outcome.editing && form_.IsUp() && view != nullptr)
    view->Edit(outcome, stroke, extra);
}

void FormWindow::CharacterWasSent(ControlView* view, wchar_t unit, LPARAM extra) {
  const Follows follows = std::exchange(follows_, Follows::Nothing);
  const int shift = ShiftStateNow();
  const auto character = CharacterOf(unit, shift);
  if (follows == Follows::Dropped || !character || !form_.IsUp() || acts_.Acting())
    return;
  KeyOutcome outcome;
  KeyStroke stroke = StrokeOf(static_cast<char>(*character));
  if (follows == Follows::ItsCharacter) {
    outcome = acts_.Character(*character);
  } else {
    if (!GoesToForm(view))
      return;
    outcome = acts_.Key(stroke);
  }
  if (outcome.editing && form_.IsUp() && view != nullptr)
    view->Edit(outcome, stroke, extra);
}

bool FormWindow::IsForSystem(const ControlView* view, int keyCode) const {
  const int shift = ShiftStateNow();
  return IsSystemKey(keyCode, shift) || HasNoCode(keyCode) || (view != nullptr && view->KeepsKey(keyCode, shift));
}

bool FormWindow::HearKey(ControlView* view, UINT message, WPARAM wide, LPARAM extra) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      if (letsPass_ || IsForSystem(view, static_cast<int>(wide)))
        return false;
      KeyWasSent(view, static_cast<int>(wide), extra);
      return true;
    case WM_CHAR:
      // An open list has its keys for itself, and what they type.
      if (view != nullptr && view->KeepsKey(0, shift_state::kNone))
        return false;
      CharacterWasSent(view, static_cast<wchar_t>(wide), extra);
      return true;
    case WM_SYSCHAR:
      // Alt+Space opens the window's menu; of other keys with Alt nothing is left, and no beep.
      return wide != ' ';
    case WM_DEADCHAR:
    case WM_SYSDEADCHAR:
      return true;
    default:
      return false;
  }
}

LRESULT FormWindow::Hear(ControlView& view, UINT message, WPARAM wide, LPARAM extra) {
  if (HearKey(&view, message, wide, extra))
    return 0;
  switch (message) {
    case WM_GETOBJECT:
      if (const auto answer = view.AnswerForObject(wide, extra))
        return *answer;
      break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      if (view.MousePressed(message, PointOf(extra)))
        return 0;
      break;
    case WM_LBUTTONUP:
      if (view.MouseReleased(PointOf(extra)))
        return 0;
      break;
    case WM_MOUSEWHEEL:
      if (!view.TurnsByWheel())
        return ::SendMessageW(body_, message, wide, extra);
      break;
    case WM_SETFOCUS: {
      const LRESULT result = view.Message(message, wide, extra);
      FocusArrived(view);
      return result;
    }
    default:
      break;
  }
  return view.Message(message, wide, extra);
}

void FormWindow::FocusArrived(const ControlView& view) {
  // Windows moves the focus off a control that is hidden or disabled; the form has its own rule and says where to.
  if (movingFocus_ || acts_.Acting() || !form_.IsUp() || form_.ActiveControl() == &view.Model())
    return;
  acts_.BringFocus(view.Model());
}

bool FormWindow::IsAtRest() const {
  return form_.IsUp() && !acts_.Acting() && ::IsWindowEnabled(window_) != FALSE;
}

bool FormWindow::DoLater(std::function<void()> act) {
  if (!IsAtRest())
    return false;
  asked_.push_back(std::move(act));
  const bool isPosted = ::PostMessageW(window_, kAsked, 0, 0) != FALSE;
  if (!isPosted)
    asked_.pop_back();
  return isPosted;
}

void FormWindow::DoWhatWasAsked() {
  while (!asked_.empty() && IsAtRest()) {
    const std::function<void()> act = std::move(asked_.front());
    asked_.pop_front();
    act();
  }
}

void FormWindow::AskAgain() {
  if (!asked_.empty())
    ::PostMessageW(window_, kAsked, 0, 0);
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(extra);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* form = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form == nullptr)
    return ::DefWindowProcW(window, message, wide, extra);
  try {
    return form->HearOwn(window, message, wide, extra);
  } catch (...) {
    form->HasFailed();
    return 0;
  }
}

LRESULT FormWindow::HearOwn(HWND window, UINT message, WPARAM wide, LPARAM extra) {
  if (HearKey(nullptr, message, wide, extra))
    return 0;
  switch (message) {
    case WM_GETOBJECT:
      if (const auto answer = window == window_ ? accessible_.AnswerTo(window, wide, extra) : std::nullopt)
        return *answer;
      break;
    case WM_ACTIVATE:
      // Windows would give the focus to the window itself.
      if (LOWORD(wide) != WA_INACTIVE) {
        AlignFocus();
        return 0;
      }
      break;
    case WM_SETFOCUS:
      AlignFocus();
      return 0;
    case WM_DESTROY:
      if (window == window_ && form_.IsUp())
        throw std::runtime_error("the form's window is gone");
      break;
    case WM_ENABLE:
      if (window == window_ && wide == FALSE)
        acts_.Interrupted();
      else if (window == window_)
        AskAgain();
      break;
    case kAsked:
      DoWhatWasAsked();
      return 0;
    case WM_COMMAND:
      if (Control* control = ControlOf(reinterpret_cast<HWND>(extra)); control != nullptr && form_.IsUp())
        ViewOf(*control).Notified(HIWORD(wide));
      return 0;
    case WM_VSCROLL:
      ScrollBy(LOWORD(wide));
      return 0;
    case WM_MOUSEWHEEL:
      ScrollTo(scrolled_ -
               ::MulDiv(static_cast<short>(HIWORD(wide)), 3 * fonts_->LineHeight(FontKind::Plain), WHEEL_DELTA));
      return 0;
    case WM_SYSCOMMAND:
      if (constexpr WPARAM kCommand = 0xFFF0; (wide & kCommand) == SC_CLOSE) {
        if (!acts_.Acting())
          acts_.Close(CloseReason::CloseBox);
        return 0;
      }
      break;
    case WM_CLOSE:
      // The close box comes as a command: this is a program that has the window closed.
      if (!acts_.Acting())
        acts_.Close(CloseReason::TaskManager);
      return 0;
    case WM_QUERYENDSESSION:
      if (!acts_.Acting())
        acts_.Close(CloseReason::SystemEnds);
      return form_.IsUp() ? FALSE : TRUE;
    case kScaleChanged:
      if (window == window_)
        Rescale(LOWORD(wide));
      return 0;
    case WM_SETTINGCHANGE:
      if (window == window_ && wide == SPI_SETNONCLIENTMETRICS)
        Rescale(fonts_->DotsPerInch());
      break;
    default:
      break;
  }
  return ::DefWindowProcW(window, message, wide, extra);
}

}  // namespace fiscalon::win32
