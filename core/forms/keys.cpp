#include "core/forms/keys.h"

#include <algorithm>
#include <array>

namespace fiscalon {
namespace {

struct NamedStroke {
  std::string_view name;
  KeyStroke stroke;
};

constexpr std::array kNamedStrokes = {
    NamedStroke{"Tab", {.keyCode = key::kTab, .character = key::kTab}},
    NamedStroke{"Shift+Tab", {.keyCode = key::kTab, .shift = shift_state::kShift, .character = key::kTab}},
    NamedStroke{"Enter", {.keyCode = key::kEnter, .character = key::kEnter}},
    NamedStroke{"Shift+Enter", {.keyCode = key::kEnter, .shift = shift_state::kShift, .character = key::kEnter}},
    NamedStroke{"Ctrl+Enter", {.keyCode = key::kEnter, .shift = shift_state::kControl, .character = key::kLineFeed}},
    NamedStroke{"Escape", {.keyCode = key::kEscape, .character = key::kEscape}},
    NamedStroke{"Backspace", {.keyCode = key::kBackspace, .character = key::kBackspace}},
    NamedStroke{"Delete", {.keyCode = key::kDelete}},
    NamedStroke{"Space", {.keyCode = key::kSpace, .character = ' '}},
    NamedStroke{"Left", {.keyCode = key::kLeft}},
    NamedStroke{"Right", {.keyCode = key::kRight}},
    NamedStroke{"Up", {.keyCode = key::kUp}},
    NamedStroke{"Down", {.keyCode = key::kDown}},
    NamedStroke{"Home", {.keyCode = key::kHome}},
    NamedStroke{"End", {.keyCode = key::kEnd}},
};

struct PunctuationKey {
  char plain;
  char shifted;
  int keyCode;
};

// Key codes of a North American keyboard, so that a typed "." is not mistaken for Delete, whose code it has as a
// character.
constexpr std::array kPunctuationKeys = {
    PunctuationKey{';', ':', key::kSemicolon},  PunctuationKey{'=', '+', key::kEquals},
    PunctuationKey{',', '<', key::kComma},      PunctuationKey{'-', '_', key::kMinus},
    PunctuationKey{'.', '>', key::kPeriod},     PunctuationKey{'/', '?', key::kSlash},
    PunctuationKey{'`', '~', key::kBackquote},  PunctuationKey{'[', '{', key::kOpenBracket},
    PunctuationKey{'\\', '|', key::kBackslash}, PunctuationKey{']', '}', key::kCloseBracket},
    PunctuationKey{'\'', '"', key::kQuote}};

constexpr std::string_view kShiftedDigits = ")!@#$%^&*(";

bool IsAsciiLetter(char character) {
  return Capital(character) >= 'A' && Capital(character) <= 'Z';
}

}  // namespace

bool IsModifierAlone(int keyCode) {
  constexpr std::array kModifiers = {key::kShift,      key::kControl,     key::kAlt,     key::kCapsLock,
                                     key::kLeftSystem, key::kRightSystem, key::kNumLock, key::kScrollLock};
  return std::find(kModifiers.begin(), kModifiers.end(), keyCode) != kModifiers.end();
}

bool IsEditorCommand(const KeyStroke& stroke) {
  // Select all, copy, paste, cut, redo, undo. With Shift too: on some desktops that is redo, or a paste of plain text.
  constexpr std::array kWithControl = {int{'A'}, int{'C'}, int{'V'}, int{'X'}, int{'Y'}, int{'Z'}, key::kInsert};
  constexpr std::array kWithShift = {key::kInsert, key::kDelete};
  const auto isOneOf = [&](const auto& keys) {
    return std::find(keys.begin(), keys.end(), stroke.keyCode) != keys.end();
  };
  // Ctrl and Alt together are AltGr, which types characters.
  if ((stroke.shift & shift_state::kAlt) != 0)
    return false;
  if ((stroke.shift & shift_state::kControl) != 0)
    return isOneOf(kWithControl);
  // A character has the key's code by chance.
  return stroke.shift == shift_state::kShift && stroke.character == 0 && isOneOf(kWithShift);
}

bool ReachesHandlers(const KeyStroke& stroke) {
  return !IsModifierAlone(stroke.keyCode) && !IsEditorCommand(stroke);
}

int Capital(char character) {
  const bool small = character >= 'a' && character <= 'z';
  return static_cast<unsigned char>(small ? character - 'a' + 'A' : character);
}

KeyStroke StrokeOf(char character) {
  const int code = static_cast<unsigned char>(character);
  if (character == '\r' || character == '\n')
    return {.keyCode = key::kEnter, .character = key::kEnter};
  if (character >= 'A' && character <= 'Z')
    return {.keyCode = code, .shift = shift_state::kShift, .character = code};
  if (const auto digit = kShiftedDigits.find(character); digit != std::string_view::npos)
    return {.keyCode = '0' + static_cast<int>(digit), .shift = shift_state::kShift, .character = code};
  for (const PunctuationKey& punctuation : kPunctuationKeys) {
    if (character == punctuation.plain)
      return {.keyCode = punctuation.keyCode, .character = code};
    if (character == punctuation.shifted)
      return {.keyCode = punctuation.keyCode, .shift = shift_state::kShift, .character = code};
  }
  // A letter beyond ASCII has no key of its own on that keyboard: it arrives as composed text.
  return {.keyCode = code < 128 ? Capital(character) : key::kOther, .character = code};
}

std::optional<KeyStroke> StrokeNamed(std::string_view name) {
  for (const NamedStroke& named : kNamedStrokes)
    if (named.name == name)
      return named.stroke;
  constexpr std::string_view kAlt = "Alt+";
  if (name.size() == kAlt.size() + 1 && name.starts_with(kAlt) && IsAsciiLetter(name.back()))
    return KeyStroke{.keyCode = Capital(name.back()), .shift = shift_state::kAlt};
  return std::nullopt;
}

int AccessKey(std::string_view caption) {
  for (size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&')
      continue;
    if (caption[i + 1] != '&')
      return Capital(caption[i + 1]);
    ++i;
  }
  return 0;
}

std::string WithoutAccessMarks(std::string_view caption) {
  std::string plain;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size())
      ++i;
    plain += caption[i];
  }
  return plain;
}

}  // namespace fiscalon
