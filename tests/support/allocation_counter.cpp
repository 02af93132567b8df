#include "tests/support/allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace fiscalon {
namespace {

std::atomic<size_t> allocationsMade = 0;

}  // namespace

size_t Allocations() {
  return allocationsMade;
}

}  // namespace fiscalon

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  ++fiscalon::allocationsMade;
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new(size_t size) {
  if (void* const memory = operator new(size, std::nothrow))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}
