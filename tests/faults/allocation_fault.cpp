#include "tests/faults/allocation_fault.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace fiscalon {
namespace {

std::atomic<size_t> live = 0;
/// Counted while a fault stands.
std::atomic<size_t> made = 0;
/// 0 while none stands.
std::atomic<size_t> failing = 0;
std::atomic<bool> lasting = false;
std::atomic<bool> thrown = false;

bool Fails() {
  const size_t nth = failing;
  if (nth == 0)
    return false;
  const size_t count = ++made;
  return lasting ? count >= nth : count == nth;
}

void* Allocate(size_t size) {
  void* const memory = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
  live += memory == nullptr ? 0 : 1;
  return memory;
}

void Free(void* memory) {
  live -= memory == nullptr ? 0 : 1;
  std::free(memory);
}

}  // namespace

size_t LiveAllocations() {
  return live;
}

AllocationFault::AllocationFault(size_t nth, FaultLasts lasts) {
  made = 0;
  thrown = false;
  lasting = lasts == FaultLasts::FromThenOn;
  failing = nth;
}

AllocationFault::~AllocationFault() {
  failing = 0;
}

size_t AllocationFault::Allocations() const {
  return made;
}

bool AllocationFault::HasThrown() const {
  return thrown;
}

}  // namespace fiscalon

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return fiscalon::Allocate(size);
}
void* operator new(size_t size) {
  if (void* const memory = fiscalon::Allocate(size))
    return memory;
  fiscalon::thrown = true;
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
