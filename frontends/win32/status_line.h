#pragma once

#include <string>

#include "frontends/win32/accessible_window.h"

namespace fiscalon::win32 {

/// The line below a form that says which entry keeps the focus. It is there from the first time that it says something,
/// and announced to users who do not see it.
class StatusLine final : private AccessibleSource {
 public:
  StatusLine() = default;
  StatusLine(const StatusLine&) = delete;
  StatusLine& operator=(const StatusLine&) = delete;

  /// Throws `std::system_error` where no window can be made. It goes with its parent, before this.
  void Create(HWND parent);
  HWND Window() const { return window_; }
  void Restyle(HFONT font) const;

  std::wstring Text() const { return TextOfWindow(window_); }
  /// Whether it is another text than before.
  bool Say(const std::wstring& text);
  /// Tells users who do not see the line.
  void Announce() const;

 private:
  // AccessibleSource
  ToldWindow Told() const override;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);

  HWND window_ = nullptr;
  WNDPROC native_ = nullptr;
  AccessibleObject accessible_{*this};
};

}  // namespace fiscalon::win32
