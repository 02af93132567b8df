#include "frontends/win32/status_line.h"

#include <oleacc.h>

namespace fiscalon::win32 {

void StatusLine::Create(HWND parent) {
  window_ =
      ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0, parent, nullptr, OwnModule(), nullptr);
  if (window_ == nullptr)
    ThrowLastError("the form's status can't be shown");
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  native_ = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StatusLine::Procedure)));
}

void StatusLine::Restyle(HFONT font) const {
  ::SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

bool StatusLine::Say(const std::wstring& text) {
  if (Text() == text)
    return false;
  ::SetWindowTextW(window_, text.c_str());
  return true;
}

void StatusLine::Announce() const {
  ::ShowWindow(window_, SW_SHOWNA);
  ::NotifyWinEvent(EVENT_SYSTEM_ALERT, window_, OBJID_CLIENT, CHILDID_SELF);
}

ToldWindow StatusLine::Told() const {
  return {.role = ROLE_SYSTEM_ALERT, .name = Text()};
}

LRESULT CALLBACK StatusLine::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
  auto& line = *reinterpret_cast<StatusLine*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_GETOBJECT)
    if (const auto answer = line.accessible_.AnswerTo(window, wide, extra))
      return *answer;
  return ::CallWindowProcW(line.native_, window, message, wide, extra);
}

}  // namespace fiscalon::win32
