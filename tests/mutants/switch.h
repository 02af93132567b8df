// What switched sources ask which of their changes is on. A program takes it from its surroundings, and tells there
// which ones it came by. (No `#pragma once`: hosts' headers are copies, and each would be another file.)
#ifndef FISCALON_TESTS_MUTANTS_SWITCH_H
#define FISCALON_TESTS_MUTANTS_SWITCH_H

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <type_traits>

namespace mutants {

/// The change that is on; 0 for none.
inline int chosen = 0;
inline constexpr int kMost = 1 << 16;
inline unsigned char reached[kMost] = {};

/// Before anything else that a program sets when it is loaded.
[[gnu::constructor(101)]] static void Choose() {
  const char* const number = std::getenv("FISCALON_MUTANT");
  chosen = number == nullptr ? 0 : std::atoi(number);
}

/// At its end a program adds a line of the numbers that it came by.
struct Report {
  ~Report() {
    const char* const name = std::getenv("FISCALON_MUTANTS_REACHED");
    if (name == nullptr)
      return;
    std::string line;
    for (int number = 0; number < kMost; ++number)
      if (reached[number] != 0)
        line += std::to_string(number) + ' ';
    line += '\n';
    if (const int file = open(name, O_WRONLY | O_APPEND | O_CREAT, 0600); file >= 0) {
      [[maybe_unused]] const auto written = write(file, line.data(), line.size());
      close(file);
    }
  }
};
inline Report report;

inline bool On(int number) {
  reached[number] = 1;
  return number == chosen;
}

/// For what the compiler may need already: it takes the source as it is.
constexpr bool Is(int number) {
  if (std::is_constant_evaluated())
    return false;
  return On(number);
}

}  // namespace mutants

#endif
