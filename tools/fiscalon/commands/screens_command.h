#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon screens`: the screen codes, their forms, and what each collects.
void DefineScreensCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
