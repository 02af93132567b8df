#include "core/values/money.h"

#include <cmath>
#include <limits>

#include "core/platform/runtime_error.h"
#include "core/values/scaled_float.h"

namespace fiscalon {

namespace {

constexpr int64_t kLargest = std::numeric_limits<int64_t>::max();
constexpr int64_t kSmallest = std::numeric_limits<int64_t>::min();

}  // namespace

Money Money::FromDouble(double value) {
  const double magnitude = std::fabs(value);
  // Written so that what is no number fails too.
  if (!(magnitude < kScaledBound))
    Raise(error_number::kOverflow);
  const WideInteger units = ScaledHalfEven(magnitude, kDecimals);
  const bool negative = value < 0;
  if (units > static_cast<uint64_t>(kLargest) + (negative ? 1 : 0))
    Raise(error_number::kOverflow);
  const auto bits = static_cast<uint64_t>(units);
  return FromUnits(static_cast<int64_t>(negative ? 0 - bits : bits));
}

Money Money::operator-() const {
  return Money() - *this;
}

Money operator+(Money a, Money b) {
  if (b.units_ > 0 ? a.units_ > kLargest - b.units_ : a.units_ < kSmallest - b.units_)
    Raise(error_number::kOverflow);
  return Money(a.units_ + b.units_);
}

Money operator-(Money a, Money b) {
  if (b.units_ < 0 ? a.units_ > kLargest + b.units_ : a.units_ < kSmallest + b.units_)
    Raise(error_number::kOverflow);
  return Money(a.units_ - b.units_);
}

}  // namespace fiscalon
