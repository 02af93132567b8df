#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// Key codes as `KeyDown` handlers see them. Letters and digits have the code of their capital character.
namespace key {
constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kSpace = 32;
constexpr int kEnd = 35;
constexpr int kHome = 36;
constexpr int kLeft = 37;
constexpr int kUp = 38;
constexpr int kRight = 39;
constexpr int kDown = 40;
constexpr int kDelete = 46;
}  // namespace key

/// Shift states as `KeyDown` handlers see them, added up.
namespace shift_state {
constexpr int kNone = 0;
constexpr int kShift = 1;
constexpr int kControl = 2;
constexpr int kAlt = 4;
}  // namespace shift_state

/// One key of the keyboard going down.
struct KeyStroke {
  int keyCode = 0;
  int shift = shift_state::kNone;
  /// The character that the key makes, in the code page (Backspace is 8, Enter 13); 0 where it makes none.
  int character = 0;
};

/// The capital of an ASCII letter, any other character as it is: the same under every locale of the host.
int Capital(char character);

/// The stroke that types one character of the code page.
KeyStroke StrokeOf(char character);

/// The stroke of a named key: Tab, Shift+Tab, Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down,
/// Home, End, Shift+Enter, Ctrl+Enter, Alt+LETTER. Nothing for any other name.
std::optional<KeyStroke> StrokeNamed(std::string_view name);

/// The access key of a caption: the capital of the character behind "&", or 0. "&&" is an ampersand that is shown.
int AccessKey(std::string_view caption);
/// The caption as it reads, without the marks of access keys.
std::string WithoutAccessMarks(std::string_view caption);

}  // namespace fiscalon
