#pragma once

#include <memory>

#include "core/host_setup.h"

namespace fiscalon {

/// The library as freshly loaded, on June 15, 2026, under English (Canada).
inline void StartModule() {
  ResetModule();
  UseFixedClock({.date = {2026, 6, 15}});
  UseLocale(EnglishCanada());
}

}  // namespace fiscalon
