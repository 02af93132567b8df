#pragma once

#include <vector>

#include "core/forms/act_watcher.h"
#include "core/forms/form_observer.h"
#include "frontends/played/user_driver.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {
class FormWindow;
}

namespace fiscalon {

/// The native front end without a person: real windows and boxes, driven by messages and read off the controls. For
/// scenarios, tests and pictures. Needs no display where the system can do without.
class PlayedWin32Toolkit final : public DrivenToolkit, private FormObserver {
 public:
  /// `dotsPerInch` 0: the scale of the screen.
  explicit PlayedWin32Toolkit(int dotsPerInch = 0);

  void Opening(Form& form) override;
  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  void OpenHelp(std::string_view file, int32_t context) override;

  /// Who hears of all that the played user does; null for nobody. Not owned.
  void Watch(ActWatcher* watcher) { watcher_ = watcher; }

  /// The window of the form that is up; null where none is.
  win32::FormWindow* Window() const { return windows_.empty() ? nullptr : windows_.back(); }

 private:
  void HandlerRuns(std::string_view object, std::string_view event) override;

  int dotsPerInch_;
  std::vector<win32::FormWindow*> windows_;
  ActWatcher* watcher_ = nullptr;
};

}  // namespace fiscalon
