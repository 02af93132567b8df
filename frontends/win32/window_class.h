#pragma once

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// The window class of forms, which is there as long as the library is.
class WindowClass {
 public:
  /// As `CreateWindowExW` wants it. Throws `std::system_error`.
  static LPCWSTR Name(WNDPROC procedure);

 private:
  explicit WindowClass(WNDPROC procedure);
  ~WindowClass();

  ATOM atom_;
};

}  // namespace fiscalon::win32
