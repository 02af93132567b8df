#pragma once

#include <termios.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "frontends/terminal/key_decoder.h"
#include "frontends/terminal/screen_writer.h"
#include "frontends/terminal/signal_watch.h"
#include "frontends/terminal/terminal_description.h"

namespace fiscalon::terminal {

/// The terminal has gone, or somebody has ended what goes on there. It is no error of a form: no handler goes on after
/// it.
class TerminalLost : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a terminal is, and how it wants to be written to.
struct TerminalKind {
  std::string name = {};
  TerminalDescription::Colours colours = TerminalDescription::Colours::Yes;
  Charset charset = Charset::Utf8;

  /// As the environment says: TERM, NO_COLOR, and the user's locale.
  static TerminalKind OfUser();
};

/// A terminal that forms are shown on: its modes, its bytes, and the signals that concern it. It is given back as it
/// was at the end, at an error, and whenever the user leaves it for a while. Whatever it does, nothing here waits for
/// it but `WaitForWork`.
class Terminal {
 public:
  /// Whose signals are the program's own.
  enum class Signals { Watched, LeftAlone };

  /// Throws `std::runtime_error`, in one line, where it can't show forms.
  Terminal(int input, int output, const TerminalKind& kind, Signals signals = Signals::Watched);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void Enter();
  void Leave();
  bool IsEntered() const { return entered_; }

  Size Extent() const;
  /// Has it show a screen, as soon as it takes what is on the way to it. False where that is not yet so.
  bool Show(const Screen& screen);
  void Beep();

  /// What the user has done next, of what has arrived.
  std::optional<Input> Next();
  /// No more bytes are on the way: what may go on does not.
  void NothingFollows() { decoder_.NothingFollows(); }

  /// Waits until there is something to take in, or to show anew. Throws `TerminalLost` where the terminal is gone, or a
  /// signal ends what goes on: then the terminal has been given back, and the host has had its way with the signal.
  void WaitForWork();
  /// The same without waiting: takes in what is there, and writes what goes.
  void Work();

  size_t BytesRead() const { return bytesRead_; }
  size_t BytesWritten() const { return bytesWritten_; }
  bool IsWriting() const { return !pending_.empty(); }

 private:
  void Receive();
  void Send();
  void Write(std::string_view bytes) { pending_ += bytes; }
  /// Not longer than that, whatever becomes of it.
  void SendFor(std::chrono::milliseconds time);
  void MindSignals();
  void Suspend();
  [[noreturn]] void End(int signal);

  int input_;
  int output_;
  /// Of our own, so that nobody else's reading and writing changes; closed at the end.
  int ownOutput_ = -1;
  TerminalDescription description_;
  ScreenWriter writer_;
  KeyDecoder decoder_;
  Signals signals_;
  std::unique_ptr<SignalWatch> watch_;
  termios before_ = {};
  bool entered_ = false;
  bool isGone_ = false;
  std::string pending_;
  size_t bytesRead_ = 0;
  size_t bytesWritten_ = 0;
};

}  // namespace fiscalon::terminal
