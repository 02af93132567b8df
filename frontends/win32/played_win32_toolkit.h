#pragma once

#include <vector>

#include "frontends/played/driven_toolkit.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {
class FormWindow;
}

namespace fiscalon {

/// The native front end without a person: real windows and boxes, driven by messages and read off the controls. For
/// scenarios, tests and pictures. Needs no display where the system can do without.
class PlayedWin32Toolkit final : public DrivenToolkit {
 public:
  /// `dotsPerInch` 0: the scale of the screen.
  explicit PlayedWin32Toolkit(int dotsPerInch = 0);

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;

  /// The window of the form that is up; null where none is.
  win32::FormWindow* Window() const { return windows_.empty() ? nullptr : windows_.back(); }

 private:
  int dotsPerInch_;
  std::vector<win32::FormWindow*> windows_;
};

}  // namespace fiscalon
