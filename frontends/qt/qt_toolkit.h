#pragma once

#include <memory>

#include "core/forms/act_watcher.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

/// Shows forms as Qt 6 dialogs.
///
///     fiscalon::QtToolkit toolkit;
///     fiscalon::UseToolkit(&toolkit);
///
/// Uses the host's QApplication; a host that has none gets one that lives as long as the toolkit. Forms and boxes
/// stand over the host's active window. To be used on the application's thread.
class QtToolkit final : public Toolkit {
 public:
  /// Error 5 where the host's Qt application can't show widgets.
  QtToolkit();
  ~QtToolkit() override;

  /// False where there is no display to show anything on: then no toolkit can be made.
  static bool HasDisplay();

  /// Who hears of all that users do from now on, such as a recorder; null for nobody. Not owned.
  void Watch(ActWatcher* watcher);

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  /// Opens the file with the desktop's program for it. `file` may name a window behind a ">".
  void OpenHelp(std::string_view file, int32_t context) override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon
