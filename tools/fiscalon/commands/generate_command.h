#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon generate`: makes a batch for trials, with planted defects and the list of them.
void DefineGenerateCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
