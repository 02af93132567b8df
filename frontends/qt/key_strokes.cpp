#include "frontends/qt/key_strokes.h"

#include <algorithm>
#include <array>

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

/// A key that is known by its own name rather than by the character that it makes.
struct NamedKey {
  Qt::Key key;
  int keyCode;
  int character;
};

constexpr std::array kNamedKeys = {
    NamedKey{Qt::Key_Backspace, key::kBackspace, key::kBackspace},
    NamedKey{Qt::Key_Tab, key::kTab, key::kTab},
    NamedKey{Qt::Key_Backtab, key::kTab, key::kTab},
    NamedKey{Qt::Key_Return, key::kEnter, key::kEnter},
    NamedKey{Qt::Key_Enter, key::kEnter, key::kEnter},
    NamedKey{Qt::Key_Escape, key::kEscape, key::kEscape},
    NamedKey{Qt::Key_Space, key::kSpace, ' '},
    NamedKey{Qt::Key_PageUp, key::kPageUp, 0},
    NamedKey{Qt::Key_PageDown, key::kPageDown, 0},
    NamedKey{Qt::Key_End, key::kEnd, 0},
    NamedKey{Qt::Key_Home, key::kHome, 0},
    NamedKey{Qt::Key_Left, key::kLeft, 0},
    NamedKey{Qt::Key_Up, key::kUp, 0},
    NamedKey{Qt::Key_Right, key::kRight, 0},
    NamedKey{Qt::Key_Down, key::kDown, 0},
    NamedKey{Qt::Key_Insert, key::kInsert, 0},
    NamedKey{Qt::Key_Delete, key::kDelete, 0},
};

bool OnlyChangesOthers(int key) {
  constexpr std::array kModifiers = {Qt::Key_Shift,   Qt::Key_Control,   Qt::Key_Alt,     Qt::Key_Meta,
                                     Qt::Key_AltGr,   Qt::Key_Super_L,   Qt::Key_Super_R, Qt::Key_CapsLock,
                                     Qt::Key_NumLock, Qt::Key_ScrollLock};
  return std::find(kModifiers.begin(), kModifiers.end(), key) != kModifiers.end();
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? shift_state::kShift : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? shift_state::kControl : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? shift_state::kAlt : 0);
}

int LatinKeyCode(int key) {
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
    return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
    return key::kF1 + key - Qt::Key_F1;
  return key::kOther;
}

/// Ctrl and Alt make shortcuts of these keys. Ctrl+Enter is a line feed.
int CharacterOf(const NamedKey& named, int shift) {
  if (named.keyCode == key::kEnter && (shift & (shift_state::kControl | shift_state::kAlt)) == shift_state::kControl)
    return key::kLineFeed;
  return (shift & (shift_state::kControl | shift_state::kAlt)) == 0 ? named.character : 0;
}

/// What a key types: nothing with Ctrl or Alt alone, which make shortcuts; Ctrl and Alt together are AltGr.
QString TypedText(const QKeyEvent& event) {
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  const bool alt = event.modifiers().testFlag(Qt::AltModifier);
  const QString text = event.text();
  return control == alt && !text.isEmpty() && text.front().isPrint() ? text : QString();
}

}  // namespace

std::optional<KeyStroke> StrokeOf(const QKeyEvent& event) {
  if (OnlyChangesOthers(event.key()))
    return std::nullopt;
  const int shift = ShiftState(event.modifiers());
  for (const NamedKey& named : kNamedKeys)
    if (named.key == event.key())
      return KeyStroke{.keyCode = named.keyCode, .shift = shift, .character = CharacterOf(named, shift)};
  const std::string typed = FromQt(TypedText(event));
  if (typed.size() != 1)
    return KeyStroke{.keyCode = LatinKeyCode(event.key()), .shift = shift};
  KeyStroke stroke = fiscalon::StrokeOf(typed.front());
  // The keyboard knows better than the character which keys were held, Caps Lock for one.
  stroke.shift = shift;
  return stroke;
}

QtKey QtKeyOf(const KeyStroke& stroke) {
  QtKey result;
  result.modifiers.setFlag(Qt::ShiftModifier, (stroke.shift & shift_state::kShift) != 0);
  result.modifiers.setFlag(Qt::ControlModifier, (stroke.shift & shift_state::kControl) != 0);
  result.modifiers.setFlag(Qt::AltModifier, (stroke.shift & shift_state::kAlt) != 0);
  if (stroke.keyCode == key::kEnter && stroke.character == key::kLineFeed)
    result.text = QStringLiteral("\r");
  else if (stroke.character != 0)
    result.text = ToQt(std::string(1, static_cast<char>(stroke.character)));
  // A character is a key of its own only where it is no control character: "." is not Delete.
  const auto named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(), [&](const NamedKey& each) {
    return each.keyCode == stroke.keyCode && CharacterOf(each, stroke.shift) == stroke.character;
  });
  if (named != kNamedKeys.end())
    result.key =
        named->key == Qt::Key_Tab && result.modifiers.testFlag(Qt::ShiftModifier) ? Qt::Key_Backtab : named->key;
  else if (LatinKeyCode(stroke.keyCode) != key::kOther)
    result.key = static_cast<Qt::Key>(stroke.keyCode);
  else if (!result.text.isEmpty())
    result.key = static_cast<Qt::Key>(result.text.front().toUpper().unicode());
  return result;
}

}  // namespace fiscalon::qt
