#pragma once

#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/shown_again.h"

namespace fiscalon {

inline Held HeldNow() {
  const auto entriesOf = [](const char* folder) {
    return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
  };
  Held held = {{"file descriptors", entriesOf("/proc/self/fd")},
               {"threads", entriesOf("/proc/self/task")},
               {"bytes allocated", ::mallinfo2().uordblks}};
#ifndef __SANITIZE_ADDRESS__
  // The sanitizer keeps what was given back for a while.
  size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> held["resident bytes"];
  held["resident bytes"] *= static_cast<size_t>(::sysconf(_SC_PAGESIZE));
#endif
  return held;
}

/// Caches settle late. In the long run the smallest allocation that each show leaks is more than this.
inline Held AllowedMore() {
  const size_t perShow = 16;
  return {{"bytes allocated", 65'000 + perShow * static_cast<size_t>(TimesShownAgain())}, {"resident bytes", 4 << 20U}};
}

}  // namespace fiscalon
