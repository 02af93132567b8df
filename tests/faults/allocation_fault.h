#pragma once

#include <cstddef>

#include "tests/faults/fault_lasts.h"

namespace fiscalon {

/// How many allocations of this test program are alive.
size_t LiveAllocations();

/// Whose allocations fail, and are counted, from now on: by the place in the code that asks for one. Null for all.
void FailOnly(bool (*isFor)(const void* caller));

/// While it stands, the n-th allocation from its beginning fails, 1 for the next one, on whatever thread. One at a
/// time.
class AllocationFault {
 public:
  explicit AllocationFault(size_t nth, FaultLasts lasts = FaultLasts::Once);
  ~AllocationFault();
  AllocationFault(const AllocationFault&) = delete;
  AllocationFault& operator=(const AllocationFault&) = delete;

  /// How many allocations were asked for since it stands, those that failed among them.
  size_t Allocations() const;
  /// Whether one failed that throws. Those that only ask for memory have another way if they get none.
  bool HasThrown() const;
};

}  // namespace fiscalon
