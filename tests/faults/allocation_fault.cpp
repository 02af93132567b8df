#include "tests/faults/allocation_fault.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace fiscalon {
namespace {

std::atomic<size_t> liveAllocations = 0;
/// Counted while a fault stands.
std::atomic<size_t> madeUnderFault = 0;
/// 0 while none stands.
std::atomic<size_t> failingAllocation = 0;
std::atomic<bool> faultLasts = false;
std::atomic<bool> faultThrown = false;
std::atomic<bool (*)(const void* caller)> failsFor = nullptr;

bool Fails(const void* caller) {
  const size_t nth = failingAllocation;
  if (nth == 0)
    return false;
  if (const auto isFor = failsFor.load(); isFor != nullptr && !isFor(caller))
    return false;
  const size_t count = ++madeUnderFault;
  return faultLasts ? count >= nth : count == nth;
}

void* Allocate(size_t size, const void* caller) {
  void* const memory = Fails(caller) ? nullptr : std::malloc(size == 0 ? 1 : size);
  liveAllocations += memory == nullptr ? 0 : 1;
  return memory;
}

void Free(void* memory) {
  liveAllocations -= memory == nullptr ? 0 : 1;
  std::free(memory);
}

}  // namespace

size_t LiveAllocations() {
  return liveAllocations;
}

void FailOnly(bool (*isFor)(const void* caller)) {
  failsFor = isFor;
}

AllocationFault::AllocationFault(size_t nth, FaultLasts lasts) {
  madeUnderFault = 0;
  faultThrown = false;
  faultLasts = lasts == FaultLasts::FromThenOn;
  failingAllocation = nth;
}

AllocationFault::~AllocationFault() {
  failingAllocation = 0;
}

size_t AllocationFault::Allocations() const {
  return madeUnderFault;
}

bool AllocationFault::HasThrown() const {
  return faultThrown;
}

}  // namespace fiscalon

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return fiscalon::Allocate(size, __builtin_return_address(0));
}
void* operator new(size_t size) {
  if (void* const memory = fiscalon::Allocate(size, __builtin_return_address(0)))
    return memory;
  fiscalon::faultThrown = true;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  fiscalon::Free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  fiscalon::Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  fiscalon::Free(memory);
}
