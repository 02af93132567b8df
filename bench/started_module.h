#pragma once

#include <memory>

#include "core/module_state.h"

namespace fiscalon {

/// The library as freshly loaded, on June 15, 2026, under English (Canada).
inline void StartModule() {
  ResetModule();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {2026, 6, 15}});
  TheModule().locale = EnglishCanada();
}

}  // namespace fiscalon
