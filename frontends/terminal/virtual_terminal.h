#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

/// A terminal without a window: the other side of a pseudo-terminal, with the screen that what is written there comes
/// to. It is an xterm-256color that knows UTF-8.
class VirtualTerminal {
 public:
  /// Throws `std::runtime_error` where the system gives none.
  explicit VirtualTerminal(Size size);
  ~VirtualTerminal();
  VirtualTerminal(const VirtualTerminal&) = delete;
  VirtualTerminal& operator=(const VirtualTerminal&) = delete;

  /// The program's side.
  int ProgramsSide() const;
  /// The user's side. Whoever shares it with a program of its own lets go of the program's side.
  int UsersSide() const;
  void LetGoOfProgramsSide();
  /// As where a line is cut.
  void HangUp();

  void Resize(Size size);
  /// Sends as much as goes at once; the rest is the caller's.
  size_t Send(std::string_view bytes) const;
  /// Takes in what the program has written so far. False once nothing more can come.
  bool Receive();
  size_t BytesReceived() const;

  /// What a user sees.
  const Screen& Seen() const;
  /// How often it has rung.
  int Rings() const;
  /// The program's screen, and not what was there before it.
  bool IsOnOtherScreen() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon::terminal
