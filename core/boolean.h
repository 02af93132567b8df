#pragma once

#include <cstdint>

namespace fiscalon {

/// The host's 16-bit booleans: True has all bits set. `WriteFile` and `Chosen` are tested for exactly True.
inline constexpr int16_t kTrue = -1;
inline constexpr int16_t kFalse = 0;

}  // namespace fiscalon
