#pragma once

#include <cstdint>
#include <ostream>

#include "core/platform/runtime_error.h"

namespace fiscalon {

/// The number of the run-time error that an act raises; 0 where it raises none.
template <typename Act>
int32_t ErrorOf(Act&& act) {
  try {
    act();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace fiscalon
