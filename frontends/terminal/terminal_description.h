#pragma once

#include <optional>
#include <string>

#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

/// Which control sequences a kind of terminal knows, as the system's terminal database has it.
class TerminalDescription {
 public:
  enum class Colours { No, Yes };

  /// Of the terminal of that name, such as "xterm-256color". Throws `std::runtime_error`, in one line, where the
  /// database has none of that name, or the terminal can't place its cursor.
  explicit TerminalDescription(const std::string& name, Colours colours = Colours::Yes);

  std::string CursorTo(Point point) const;
  /// Everything that is written from there on looks so.
  std::string Look(Style style) const;

  std::string clear;
  std::string showCursor;
  std::string hideCursor;
  std::string ring;
  /// To a screen of our own and back to what was there, with what terminals of today are asked for: pastes as a whole,
  /// the mouse, and the keys that others are told apart by.
  std::string enter;
  std::string leave;
  /// Where the system does not tell.
  Size usualSize = {.width = 80, .height = 24};

 private:
  std::string cursorTo_;
  std::string plain_;
  std::string bold_;
  std::string underline_;
  std::string reverse_;
  std::string faint_;
  std::string accent_;
  std::string alarm_;
};

}  // namespace fiscalon::terminal
