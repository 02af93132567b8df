#pragma once

#include <CLI/CLI.hpp>

#include "tools/fiscalon/context.h"

namespace fiscalon {

/// `fiscalon screens`: the screen codes, their forms, what each collects, and whether this version has the form.
void AddScreensCommand(CLI::App& app, Context& context);

}  // namespace fiscalon
