#pragma once

#include "core/module_state.h"

namespace fiscalon {

/// The process's module state, to change: for core, and for tests that set what no host can. Everyone else sets it by
/// core/host_setup.h, by `Levyra` and by the routines of module_state.h; tools/lib/check_layers.py sees to that.
ModuleState& ModuleToChange();

}  // namespace fiscalon
