#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon play FILE...`: plays scenarios and says which of them passed.
void DefinePlayCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
