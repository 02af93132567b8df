#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon validate`: judges the records of one payment, or of a whole batch.
void DefineValidateCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
