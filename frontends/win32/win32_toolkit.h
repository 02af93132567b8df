#pragma once

#include <memory>

#include "core/forms/act_watcher.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

/// Shows forms as native windows, by the system's own controls.
///
///     fiscalon::Win32Toolkit toolkit;
///     fiscalon::UseToolkit(&toolkit);
///
/// Forms and boxes stand over the active window of the thread that shows them. They pump the thread's messages; a
/// message that ends the host is posted again.
class Win32Toolkit final : public Toolkit {
 public:
  Win32Toolkit();
  ~Win32Toolkit() override;

  /// Who hears of all that users do from now on, such as a recorder; null for nobody. Not owned.
  void Watch(ActWatcher* watcher);

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  /// Opens the file with the system's help viewer. `file` may name a window behind a ">".
  void OpenHelp(std::string_view file, int32_t context) override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon
