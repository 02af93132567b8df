#pragma once

#include <memory>

#include "frontends/played/driven_toolkit.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {
class FormWindow;
}

namespace fiscalon {

/// The terminal front end without a person: forms and boxes on a pseudo-terminal, driven by the bytes that a terminal
/// sends and read off the cells that it shows. For scenarios, tests and pictures.
class PlayedTerminalToolkit final : public DrivenToolkit {
 public:
  /// Everything stands on the usual one whole, so that all of it can be read.
  static constexpr terminal::Size kLargeScreen = {.width = 300, .height = 100};

  explicit PlayedTerminalToolkit(terminal::Size size = kLargeScreen);
  ~PlayedTerminalToolkit() override;

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;

  // Of what is up.

  /// The form's window; null where none is up.
  terminal::FormWindow* Window() const;
  /// What the terminal shows.
  const terminal::Screen& Seen() const;
  /// Sends bytes as a terminal does, and has all come of them that they set off.
  void Send(std::string_view bytes);
  void Resize(terminal::Size size);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon
