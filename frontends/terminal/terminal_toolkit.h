#pragma once

#include <memory>
#include <string>

#include "core/forms/act_watcher.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

/// Shows forms on a character terminal, that of standard input and output.
///
///     fiscalon::TerminalToolkit toolkit;
///     fiscalon::UseToolkit(&toolkit);
///
/// While a form or a box is up the terminal is the toolkit's; in between, and after the last, it is as it was. SIGINT,
/// SIGTERM and SIGHUP give it back first and then do what the host has them do: where the program goes on, the form
/// comes down with an exception that is no `RuntimeError`. To be used on one thread.
class TerminalToolkit final : public Toolkit {
 public:
  /// Throws `std::runtime_error`, in one line of UTF-8, where there is no terminal that can show forms.
  TerminalToolkit();
  ~TerminalToolkit() override;

  /// Why no toolkit can be made, in one line; empty where one can.
  static std::string Hindrance();

  /// The title of boxes that have none of their own: the host application's name. In the code page.
  void NameApplication(const std::string& name);
  /// Who hears of all that users do from now on, such as a recorder; null for nobody. Not owned.
  void Watch(ActWatcher* watcher);

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  /// Opens the file with the desktop's program for it, where there is a desktop; says where it is otherwise. `file` may
  /// name a window behind a ">".
  void OpenHelp(std::string_view file, int32_t context) override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon
