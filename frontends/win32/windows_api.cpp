#include "frontends/win32/windows_api.h"

#include <system_error>

namespace fiscalon::win32 {

HINSTANCE OwnModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

void ThrowLastError(const char* what) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

std::wstring TextOfWindow(HWND window) {
  std::wstring text(static_cast<size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  const LRESULT length =
      ::SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return text;
}

}  // namespace fiscalon::win32
