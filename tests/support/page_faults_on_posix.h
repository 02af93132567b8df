#pragma once

#include <sys/resource.h>

#include <string_view>

namespace fiscalon {

/// How many pages the system must find for this process while each page of the bytes is looked at.
inline long FaultsOfLookingAt(std::string_view bytes) {
  const auto faults = [] {
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt + usage.ru_majflt;
  };
  const long before = faults();
  constexpr size_t kSmallestPage = 4096;
  for (size_t at = 0; at < bytes.size(); at += kSmallestPage)
    static_cast<void>(*static_cast<const volatile char*>(&bytes[at]));
  return faults() - before;
}

}  // namespace fiscalon
