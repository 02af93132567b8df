#pragma once

#include <string>

#include "frontends/terminal/key_decoder.h"
#include "frontends/terminal/screen.h"
#include "frontends/terminal/terminal_description.h"

namespace fiscalon::terminal {

/// The bytes that have a terminal show a screen.
class ScreenWriter {
 public:
  ScreenWriter(const TerminalDescription& description, Charset charset)
      : description_(description), charset_(charset) {}

  /// Of what differs from the screen that was written last.
  std::string Update(const Screen& screen);
  /// The terminal shows anything at all: the next update writes everything.
  void Forget() { shown_ = Screen(); }

 private:
  void AppendGlyph(std::string& bytes, char32_t glyph) const;

  const TerminalDescription& description_;
  Charset charset_;
  Screen shown_;
};

}  // namespace fiscalon::terminal
