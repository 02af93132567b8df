#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/forms/keys.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

struct MouseInput {
  enum class What { Press, Drag, Release, WheelUp, WheelDown };

  What what = What::Press;
  Point at = {};
};

/// A text that was pasted as a whole, in the code page: a line end in it is no key.
struct PasteInput {
  std::string text = {};
};

/// What a user does at a terminal.
using Input = std::variant<KeyStroke, MouseInput, PasteInput>;

/// How a terminal's bytes mean characters beyond ASCII.
enum class Charset { Ascii, Latin1, Utf8 };

/// Makes keys, pastes and acts of the mouse of the bytes that a terminal sends, however they are cut. Bytes and
/// sequences that mean nothing are passed over.
class KeyDecoder {
 public:
  explicit KeyDecoder(Charset charset = Charset::Utf8) : charset_(charset) {}

  void Feed(std::string_view bytes);
  /// The next of what has come whole.
  std::optional<Input> Next();

  enum class Rest {
    None,
    /// Part of a key, or Escape alone: only whether more comes at once tells.
    Key,
    /// Part of a paste, which may take its time.
    Paste,
  };
  /// What has come of something that may go on.
  Rest Waiting() const;
  /// Nothing more comes: what waits is what it is.
  void NothingFollows() { complete_ = true; }

 private:
  /// What stands at the front of the rest, without a value for what means nothing. `length_` is how much of the bytes
  /// it takes, 0 where more must come.
  std::optional<Input> Take();
  std::optional<Input> TakeEscape();
  std::optional<Input> TakeSequence();
  /// The system's own console has another "[" before the letter of a function key, which stands at this place.
  std::optional<Input> TakeConsoleKey(size_t at);
  std::optional<Input> KeyOf(char letter, const std::vector<int>& numbers);
  std::optional<Input> TakeOldMouse();
  std::optional<Input> TakeCharacter();
  std::optional<Input> TakePaste();

  Charset charset_;
  std::string bytes_;
  /// How many of them are done.
  size_t taken_ = 0;
  std::string_view rest_;
  size_t length_ = 0;
  bool complete_ = false;
  bool pasting_ = false;
  std::string pasted_;
};

}  // namespace fiscalon::terminal
