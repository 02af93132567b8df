#pragma once

#include <optional>

#include "core/forms/keys.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// Which of Shift, Ctrl and Alt are held, as `KeyDown` handlers see them.
int ShiftStateNow();

/// The character of a message, in the code page, with what was held; nothing for one that no editor takes, such as
/// what Ctrl makes of a letter.
std::optional<int> CharacterOf(wchar_t unit, int shift);

/// Keys that are the system's own: they close the window and open its menu, or the editor's.
bool IsSystemKey(int keyCode, int shift);
/// The key stands for a character alone, or for an input method's own work.
bool HasNoCode(int keyCode);

}  // namespace fiscalon::win32
