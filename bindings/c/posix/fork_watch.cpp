#include "bindings/c/fork_watch.h"

#include <pthread.h>

#include <new>

namespace fiscalon::c {

void OnFork(void (*before)(), void (*inParent)(), void (*inChild)()) {
  if (pthread_atfork(before, inParent, inChild) != 0)
    throw std::bad_alloc();
}

}  // namespace fiscalon::c
