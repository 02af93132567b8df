#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace fiscalon {

/// What an act comes to while this process may open one file more, and no second one.
template <typename Act>
auto WithoutRoomForFiles(const Act& act) {
  rlimit before = {};
  ::getrlimit(RLIMIT_NOFILE, &before);
  const int next = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
  ::close(next);
  const rlimit few = {.rlim_cur = static_cast<rlim_t>(next) + 1, .rlim_max = before.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &few);
  auto result = act();
  ::setrlimit(RLIMIT_NOFILE, &before);
  return result;
}

}  // namespace fiscalon
