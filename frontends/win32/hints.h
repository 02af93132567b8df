#pragma once

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// The texts that a form shows while the mouse rests over a control.
class Hints {
 public:
  Hints() = default;
  Hints(const Hints&) = delete;
  Hints& operator=(const Hints&) = delete;

  /// Of a control of the form's window, in lines of no more than that many pixels; an empty text for none. Where the
  /// system has no such windows nothing is shown.
  void Set(HWND form, HWND control, const std::wstring& text, int widest);

 private:
  /// Belongs to the form's window and goes with it.
  HWND window_ = nullptr;
};

}  // namespace fiscalon::win32
