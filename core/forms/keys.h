#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// Key codes as `KeyDown` handlers see them. Letters and digits have the code of their capital character.
namespace key {
constexpr int kBackspace = 8;       ///< Backspace
constexpr int kTab = 9;             ///< Tab
constexpr int kLineFeed = 10;       ///< Ctrl+Enter, as a character
constexpr int kEnter = 13;          ///< Enter
constexpr int kShift = 16;          ///< Shift alone
constexpr int kControl = 17;        ///< Ctrl alone
constexpr int kAlt = 18;            ///< Alt alone
constexpr int kCapsLock = 20;       ///< Caps Lock
constexpr int kEscape = 27;         ///< Escape
constexpr int kSpace = 32;          ///< the space bar
constexpr int kPageUp = 33;         ///< Page Up
constexpr int kPageDown = 34;       ///< Page Down
constexpr int kEnd = 35;            ///< End
constexpr int kHome = 36;           ///< Home
constexpr int kLeft = 37;           ///< the arrow to the left
constexpr int kUp = 38;             ///< the arrow up
constexpr int kRight = 39;          ///< the arrow to the right
constexpr int kDown = 40;           ///< the arrow down
constexpr int kInsert = 45;         ///< Insert
constexpr int kDelete = 46;         ///< Delete
constexpr int kLeftSystem = 91;     ///< the system's own key on the left
constexpr int kRightSystem = 92;    ///< the system's own key on the right
constexpr int kF1 = 112;            ///< F1; the others follow
constexpr int kF24 = 135;           ///< F24, the last of them
constexpr int kNumLock = 144;       ///< Num Lock
constexpr int kScrollLock = 145;    ///< Scroll Lock
constexpr int kSemicolon = 186;     ///< the semicolon
constexpr int kEquals = 187;        ///< the equals sign
constexpr int kComma = 188;         ///< the comma
constexpr int kMinus = 189;         ///< the minus sign
constexpr int kPeriod = 190;        ///< the period
constexpr int kSlash = 191;         ///< the slash
constexpr int kBackquote = 192;     ///< the accent that leans back
constexpr int kOpenBracket = 219;   ///< the opening bracket
constexpr int kBackslash = 220;     ///< the backslash
constexpr int kCloseBracket = 221;  ///< the closing bracket
constexpr int kQuote = 222;         ///< the quote
/// Keys without a code of their own, such as letters composed of several strokes.
constexpr int kOther = 255;
}  // namespace key

/// Shift states as `KeyDown` handlers see them, added up.
namespace shift_state {
constexpr int kNone = 0;     ///< no key of these
constexpr int kShift = 1;    ///< Shift is down
constexpr int kControl = 2;  ///< Ctrl is down
constexpr int kAlt = 4;      ///< Alt is down
}  // namespace shift_state

/// One key of the keyboard going down.
struct KeyStroke {
  int keyCode = 0;                 ///< one of `key`, a letter or a digit
  int shift = shift_state::kNone;  ///< of `shift_state`, added up
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
