#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// Key codes as `KeyDown` handlers see them. Letters and digits have the code of their capital character.
namespace key {
constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kLineFeed = 10;
constexpr int kEnter = 13;
constexpr int kShift = 16;
constexpr int kControl = 17;
constexpr int kAlt = 18;
constexpr int kCapsLock = 20;
constexpr int kEscape = 27;
constexpr int kSpace = 32;
constexpr int kPageUp = 33;
constexpr int kPageDown = 34;
constexpr int kEnd = 35;
constexpr int kHome = 36;
constexpr int kLeft = 37;
constexpr int kUp = 38;
constexpr int kRight = 39;
constexpr int kDown = 40;
constexpr int kInsert = 45;
constexpr int kDelete = 46;
constexpr int kLeftSystem = 91;
constexpr int kRightSystem = 92;
constexpr int kF1 = 112;
constexpr int kF24 = 135;
constexpr int kNumLock = 144;
constexpr int kScrollLock = 145;
constexpr int kSemicolon = 186;
constexpr int kEquals = 187;
constexpr int kComma = 188;
constexpr int kMinus = 189;
constexpr int kPeriod = 190;
constexpr int kSlash = 191;
constexpr int kBackquote = 192;
constexpr int kOpenBracket = 219;
constexpr int kBackslash = 220;
constexpr int kCloseBracket = 221;
constexpr int kQuote = 222;
/// Keys without a code of their own, such as letters composed of several strokes.
constexpr int kOther = 255;
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
  /// The character that the key makes, in the code page (Backspace is 8, Enter 13, Ctrl+Enter a line feed); 0 where it
  /// makes none.
  int character = 0;
};

/// What is left for a front end to do after a keystroke has run through the form.
struct KeyOutcome {
  /// False: nothing is left. The form has dealt with the key, a handler dropped it, or the field is locked. True: the
  /// key is left to the field that had the focus when it went down, wherever handlers have moved the focus since.
  bool editing = false;
  /// The character that the field's own editing takes, perhaps another than was typed: Enter (13) is a line end. 0 for
  /// a key without one, such as Delete or Left.
  int character = 0;
  /// Of `UserActs::KeyDown` alone. True: the character that the key makes, if any, is to be reported. False: it is not,
  /// since the key was done, or ended, or is the editor's with all that it makes.
  bool characterFollows = false;
};

/// A key that only changes others goes down by itself, such as Shift.
bool IsModifierAlone(int keyCode);
/// The stroke is a command of native text editors: copy, cut, paste, undo, redo, select all.
bool IsEditorCommand(const KeyStroke& stroke);
/// Neither of these is a key to any handler of a form, on any front end.
bool ReachesHandlers(const KeyStroke& stroke);

/// The capital of an ASCII letter, any other character as it is: the same under every locale of the host.
int Capital(char character);

/// The stroke that types one character of the code page.
KeyStroke StrokeOf(char character);

/// The stroke of a named key: Tab, Shift+Tab, Enter, Shift+Enter, Ctrl+Enter, Escape, Backspace, Delete, Space, Left,
/// Right, Up, Down, Home, End, Alt+LETTER. Nothing for any other name.
std::optional<KeyStroke> StrokeNamed(std::string_view name);

/// The access key of a caption: the capital of the character behind "&", or 0. "&&" is an ampersand that is shown.
int AccessKey(std::string_view caption);
/// The caption as it reads, without the marks of access keys.
std::string WithoutAccessMarks(std::string_view caption);

}  // namespace fiscalon
