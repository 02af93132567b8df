#include "frontends/terminal/key_bytes.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/platform/code_page.h"

namespace fiscalon::terminal {
namespace {

struct SentKey {
  int keyCode;
  /// Between "CSI" and the modifiers, and behind them.
  const char* number;
  char last;
};
constexpr std::array kSentKeys = {
    SentKey{key::kUp, "1", 'A'},       SentKey{key::kDown, "1", 'B'},   SentKey{key::kRight, "1", 'C'},
    SentKey{key::kLeft, "1", 'D'},     SentKey{key::kHome, "1", 'H'},   SentKey{key::kEnd, "1", 'F'},
    SentKey{key::kInsert, "2", '~'},   SentKey{key::kDelete, "3", '~'}, SentKey{key::kPageUp, "5", '~'},
    SentKey{key::kPageDown, "6", '~'}, SentKey{key::kF1, "11", '~'},    SentKey{key::kF1 + 3, "14", '~'},
};

int ModifiersOf(int shift) {
  return 1 + ((shift & shift_state::kShift) != 0 ? 1 : 0) + ((shift & shift_state::kAlt) != 0 ? 2 : 0) +
         ((shift & shift_state::kControl) != 0 ? 4 : 0);
}

std::string Numbered(int number, int shift) {
  return "\x1B[" + std::to_string(number) + ";" + std::to_string(ModifiersOf(shift)) + "u";
}

/// Ctrl and a letter. What the terminal keeps for itself, or means otherwise, goes by the other keys for it.
std::string ControlBytes(const KeyStroke& stroke) {
  switch (stroke.keyCode) {
    case 'C':
      return BytesOf({.keyCode = key::kInsert, .shift = shift_state::kControl});
    case 'V':
      return BytesOf({.keyCode = key::kInsert, .shift = shift_state::kShift});
    case 'Z':
      return "\x1F";
    default:
      return std::string(1, static_cast<char>(stroke.keyCode - 'A' + 1));
  }
}

}  // namespace

std::string BytesOf(const KeyStroke& stroke) {
  const int shift = stroke.shift;
  switch (stroke.keyCode) {
    case key::kTab:
      return shift == shift_state::kShift ? "\x1B[Z" : "\t";
    case key::kEnter:
      return shift == shift_state::kNone ? "\r" : Numbered(key::kEnter, shift);
    case key::kEscape:
      return "\x1B";
    case key::kBackspace:
      return shift == shift_state::kNone ? "\x7F" : Numbered(127, shift);
    default:
      break;
  }
  const bool sendsCharacter = stroke.character >= ' ' && (shift & ~shift_state::kShift) == 0;
  if (sendsCharacter)
    return ToUtf8(std::string(1, static_cast<char>(stroke.character)));
  const auto* const sent = std::find_if(kSentKeys.begin(), kSentKeys.end(),
                                        [&](const SentKey& row) { return row.keyCode == stroke.keyCode; });
  if (sent != kSentKeys.end()) {
    const bool plain = shift == shift_state::kNone;
    const std::string number = plain && sent->last != '~' ? "" : sent->number;
    return "\x1B[" + number + (plain ? "" : ";" + std::to_string(ModifiersOf(shift))) + sent->last;
  }
  const bool isLetter = stroke.keyCode >= 'A' && stroke.keyCode <= 'Z';
  if (isLetter && shift == shift_state::kControl)
    return ControlBytes(stroke);
  if (isLetter && (shift & shift_state::kAlt) != 0) {
    const int letter = (shift & shift_state::kShift) != 0 ? stroke.keyCode : std::tolower(stroke.keyCode);
    return std::string("\x1B") + static_cast<char>(letter);
  }
  return {};
}

std::string BytesOf(MouseAct act, Point at) {
  const char* const button = act == MouseAct::WheelUp ? "64" : act == MouseAct::WheelDown ? "65" : "0";
  return std::string("\x1B[<") + button + ";" + std::to_string(at.x + 1) + ";" + std::to_string(at.y + 1) +
         (act == MouseAct::Release ? "m" : "M");
}

std::string BytesOfPaste(std::string_view text) {
  return "\x1B[200~" + ToUtf8(text) + "\x1B[201~";
}

}  // namespace fiscalon::terminal
