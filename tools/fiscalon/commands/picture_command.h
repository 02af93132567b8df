#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon picture CODE --out FILE.png`: draws a screen as its Qt dialog looks, without a display.
void DefinePictureCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
