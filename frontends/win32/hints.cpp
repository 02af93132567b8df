#include "frontends/win32/hints.h"

#include <commctrl.h>

#include "frontends/win32/common_controls.h"

namespace fiscalon::win32 {
namespace {

/// The entry of a control. Its size is that of all versions of the common controls.
TTTOOLINFOW EntryOf(HWND form, HWND control) {
  TTTOOLINFOW entry = {};
  entry.cbSize = TTTOOLINFOW_V1_SIZE;
  entry.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  entry.hwnd = form;
  entry.uId = reinterpret_cast<UINT_PTR>(control);
  return entry;
}

}  // namespace

void Hints::Set(HWND form, HWND control, const std::wstring& text, int widest) {
  if (window_ == nullptr) {
    if (text.empty())
      return;
    const CommonControls look;
    window_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, OwnModule(),
                                nullptr);
    if (window_ == nullptr)
      return;
  }
  TTTOOLINFOW entry = EntryOf(form, control);
  ::SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&entry));
  if (text.empty())
    return;
  std::wstring shown = text;
  entry.lpszText = shown.data();
  ::SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, widest);
  ::SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&entry));
}

}  // namespace fiscalon::win32
