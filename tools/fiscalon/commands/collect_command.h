#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon collect CODE`: shows a screen to the user and hands out the records.
void AddCollectCommand(CLI::App& app, Context& context);

}  // namespace fiscalon
