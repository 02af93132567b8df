#pragma once

#include "core/screen.h"

namespace fiscalon {

/// Enter, without Shift, Ctrl or Alt, moves on like Tab: what a form's key down does.
void EnterAsTab(Screen& form, int& keyCode, int shift);

/// The same as what a form's key press does: any character 13 moves on.
void EnterAsTab(Screen& form, int& character);

}  // namespace fiscalon
