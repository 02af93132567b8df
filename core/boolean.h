#pragma once

#include <concepts>
#include <cstdint>

#include "core/platform/runtime_error.h"

namespace fiscalon {

/// The host's 16-bit booleans: True has all bits set. `WriteFile` and `Chosen` are tested for exactly True.
inline constexpr int16_t kTrue = -1;
inline constexpr int16_t kFalse = 0;  ///< no bit is set

/// A property of that type. A `bool` means True or False; a number stays that number, so that 1 is not True; anything
/// else does not compile. Error 6 for a number that 16 bits do not hold.
class Boolean {
 public:
  /// False.
  constexpr Boolean() = default;
  /// True or False.
  template <std::same_as<bool> Truth>
  constexpr Boolean(Truth value) : value_(value ? kTrue : kFalse) {}
  /// That number.
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) constexpr Boolean(Number value) : value_(static_cast<int16_t>(value)) {
    // All bits of 16 without a sign are True too.
    if (static_cast<Number>(value_) != value)
      Raise(error_number::kOverflow);
  }

  /// The number, which is true for C++ unless it is 0.
  constexpr operator int16_t() const { return value_; }

  /// Whether both are the same number.
  friend constexpr bool operator==(Boolean a, Boolean b) { return a.value_ == b.value_; }
  /// Whether it is exactly True or False, or that number.
  template <std::integral Number>
  friend constexpr bool operator==(Boolean a, Number b) {
    if constexpr (std::same_as<Number, bool>)
      return a.value_ == (b ? kTrue : kFalse);
    else
      return static_cast<int64_t>(a.value_) == static_cast<int64_t>(b);
  }

 private:
  int16_t value_ = kFalse;
};

}  // namespace fiscalon
