#include "frontends/win32/window_class.h"

namespace fiscalon::win32 {
namespace {

constexpr const wchar_t* kName = L"FiscalonForm";

}  // namespace

WindowClass::WindowClass(WNDPROC procedure) {
  WNDCLASSEXW description = {};
  description.cbSize = sizeof(description);
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = OwnModule();
  description.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  description.hbrBackground = ::GetSysColorBrush(COLOR_3DFACE);
  description.lpszClassName = kName;
  atom_ = ::RegisterClassExW(&description);
  if (atom_ == 0)
    ThrowLastError("forms can't be shown");
}

// A library that is loaded again has its procedure somewhere else.
WindowClass::~WindowClass() {
  ::UnregisterClassW(kName, OwnModule());
}

LPCWSTR WindowClass::Name(WNDPROC procedure) {
  static const WindowClass windowClass(procedure);
  return reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(windowClass.atom_));
}

}  // namespace fiscalon::win32
