#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon show FILE`: prints the records of a file taken apart, and what is wrong with them.
void DefineShowCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
