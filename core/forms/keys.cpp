#include "core/forms/keys.h"

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
    NamedStroke{"Shift+Enter", {.keyCode = key::kEnter, .shift = shift_state::kShift, .character = key::kEnter}},
    NamedStroke{"Ctrl+Enter", {.keyCode = key::kEnter, .shift = shift_state::kControl, .character = '\n'}},
};

struct PunctuationKey {
  char plain;
  char shifted;
  int keyCode;
};

// Key codes of a North American keyboard, so that a typed "." is not mistaken for Delete (46).
constexpr std::array kPunctuationKeys = {
    PunctuationKey{';', ':', 186}, PunctuationKey{'=', '+', 187}, PunctuationKey{',', '<', 188},
    PunctuationKey{'-', '_', 189}, PunctuationKey{'.', '>', 190}, PunctuationKey{'/', '?', 191},
    PunctuationKey{'`', '~', 192}, PunctuationKey{'[', '{', 219}, PunctuationKey{'\\', '|', 220},
    PunctuationKey{']', '}', 221}, PunctuationKey{'\'', '"', 222}};

constexpr std::string_view kShiftedDigits = ")!@#$%^&*(";

bool IsAsciiLetter(char character) {
  return Capital(character) >= 'A' && Capital(character) <= 'Z';
}

}  // namespace

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
  return {.keyCode = code < 128 ? Capital(character) : 255, .character = code};
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
