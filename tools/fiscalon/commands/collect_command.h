#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon collect CODE`: shows a screen to the user and hands out the records.
void DefineCollectCommand(CLI::App& command, Context& context);

}  // namespace fiscalon
