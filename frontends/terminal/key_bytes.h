#pragma once

#include <string>
#include <string_view>

#include "core/forms/keys.h"
#include "frontends/terminal/screen.h"

/// What terminals send for what a user does: the other way round from `KeyDecoder`.
namespace fiscalon::terminal {

/// Empty for a key that terminals have nothing to send for.
std::string BytesOf(const KeyStroke& stroke);

enum class MouseAct { Press, Release, WheelUp, WheelDown };
std::string BytesOf(MouseAct act, Point at);

/// A text in the code page.
std::string BytesOfPaste(std::string_view text);

}  // namespace fiscalon::terminal
