#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "core/platform/locale.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

/// Stops the run, and so keeps the input, where a law does not hold.
inline void Law(bool holds, const char* law) {
  if (holds)
    return;
  std::fprintf(stderr, "broken: %s\n", law);
  std::abort();
}

/// The result of a conversion; nothing where it raises an error. `errors` says which ones it may raise.
template <typename Convert, typename... Numbers>
auto ResultOf(Convert&& convert, Numbers... errors) -> std::optional<decltype(convert())> {
  try {
    return convert();
  } catch (const RuntimeError& error) {
    Law(((error.Number() == errors) || ...), "a conversion raises its own errors only");
    return std::nullopt;
  }
}

/// One of the built-in locales.
inline const Locale& LocaleOf(uint8_t choice) {
  static const Locale kLocales[] = {EnglishCanada(), EnglishUnitedStates(), FrenchCanada()};
  return kLocales[choice % 3];
}

inline std::string_view TextOf(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace fiscalon
