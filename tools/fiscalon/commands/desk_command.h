#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `desk`: a payment to change, and screens to show with it.
void DefineDeskCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
