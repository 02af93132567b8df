#pragma once

#include <array>
#include <csignal>
#include <optional>

namespace fiscalon::terminal {

/// While it lives, the signals that concern a program with a screen are noted, and what the host has made of them comes
/// back when it goes. A signal that the host ignores stays ignored. There is one at a time.
class SignalWatch {
 public:
  SignalWatch();
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

  /// Can be read from while a signal is noted.
  int Descriptor() const;
  /// The signal that was noted first.
  std::optional<int> Next() const;

  /// One that ends a program.
  static bool Ends(int signal);

 private:
  static constexpr std::array kWatched = {SIGINT, SIGQUIT, SIGTERM, SIGHUP, SIGTSTP, SIGCONT, SIGWINCH};

  std::array<struct sigaction, kWatched.size()> before_ = {};
};

}  // namespace fiscalon::terminal
