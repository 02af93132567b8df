#include "frontends/win32/key_strokes.h"

#include "core/platform/windows/wide_text.h"

namespace fiscalon::win32 {
namespace {

bool IsHeld(int key) {
  return ::GetKeyState(key) < 0;
}

}  // namespace

int ShiftStateNow() {
  return (IsHeld(VK_SHIFT) ? shift_state::kShift : 0) | (IsHeld(VK_CONTROL) ? shift_state::kControl : 0) |
         (IsHeld(VK_MENU) ? shift_state::kAlt : 0);
}

std::optional<int> CharacterOf(wchar_t unit, int shift) {
  // One half of a character that the code page has not: the other half stands for both.
  if (IS_HIGH_SURROGATE(unit))
    return std::nullopt;
  if (unit >= L' ' && unit != 127)
    return static_cast<unsigned char>(FromWide({&unit, 1}).front());
  const bool control = (shift & shift_state::kControl) != 0;
  switch (unit) {
    case key::kLineFeed:
      return key::kLineFeed;
    case key::kBackspace:
    case key::kTab:
    case key::kEnter:
    case key::kEscape:
      return control ? std::nullopt : std::optional<int>(unit);
    default:
      return std::nullopt;
  }
}

bool IsSystemKey(int keyCode, int shift) {
  if (shift == shift_state::kAlt)
    return keyCode == VK_F4 || keyCode == VK_SPACE;
  return keyCode == VK_APPS || (shift == shift_state::kShift && keyCode == VK_F10);
}

bool HasNoCode(int keyCode) {
  return keyCode == VK_PACKET || keyCode == VK_PROCESSKEY;
}

}  // namespace fiscalon::win32
