#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <string>

#include "tests/faults/allocation_fault.h"

namespace fiscalon {

/// Something that a host does with the library, and may do again.
class HostWork {
 public:
  virtual ~HostWork() = default;

  /// Does it, and tells all that has come of it.
  virtual std::string Do() = 0;
};

using BeginWork = std::function<std::unique_ptr<HostWork>()>;

/// Fails the n-th allocation of the work, and does it again. False where the work makes fewer allocations.
inline bool WithstandsFailure(size_t nth, FaultLasts lasts, const BeginWork& begin, const std::string& expected) {
  const std::unique_ptr<HostWork> work = begin();
  std::string outcome;
  bool reached = false;
  bool thrown = false;
  bool caught = false;
  {
    const AllocationFault fault(nth, lasts);
    try {
      outcome = work->Do();
    } catch (const std::bad_alloc&) {
      caught = true;
    }
    reached = fault.Allocations() >= nth;
    thrown = fault.HasThrown();
  }
  EXPECT_EQ(caught, thrown) << "allocation " << nth;
  if (caught)
    outcome = work->Do();
  EXPECT_EQ(outcome, expected) << "allocation " << nth;
  return reached;
}

/// Does the work once for each allocation that it makes, and fails that one: the host must get `std::bad_alloc`, the
/// same work done again must come out as undisturbed work does, and nothing may leak.
inline void ExpectEachAllocationMayFail(FaultLasts lasts, const BeginWork& begin) {
  const std::string expected = begin()->Do();
  ASSERT_FALSE(expected.empty());
  bool reached = true;
  for (size_t nth = 1; reached && !testing::Test::HasFailure(); ++nth) {
    const size_t live = LiveAllocations();
    reached = WithstandsFailure(nth, lasts, begin, expected);
    EXPECT_EQ(LiveAllocations(), live) << "allocation " << nth;
  }
}

}  // namespace fiscalon
