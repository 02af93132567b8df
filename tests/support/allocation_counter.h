#pragma once

#include <cstddef>

namespace fiscalon {

/// How often this test program has allocated memory so far.
size_t Allocations();

}  // namespace fiscalon
