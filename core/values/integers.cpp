#include "core/values/integers.h"

#include <cmath>
#include <limits>

#include "core/platform/runtime_error.h"
#include "core/values/number_reader.h"

namespace fiscalon {

namespace {

template <typename Integer>
Integer Checked(int64_t value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
    Raise(error_number::kOverflow);
  return static_cast<Integer>(value);
}

/// The current rounding of a process is to nearest, halves to even, unless someone has changed it.
template <typename Integer>
Integer Rounded(double value) {
  constexpr double kFarBeyond = 1e10;
  // Written so that what is no number fails too.
  if (!(std::fabs(value) < kFarBeyond))
    Raise(error_number::kOverflow);
  return Checked<Integer>(std::llrint(value));
}

}  // namespace

int32_t ToInt32(double value) {
  return Rounded<int32_t>(value);
}

int16_t ToInt16(double value) {
  return Rounded<int16_t>(value);
}

int16_t ToInt16(std::string_view text, const Locale& locale) {
  DecimalText number;
  if (!ReadNumber(text, locale, number))
    Raise(error_number::kTypeMismatch);
  const std::optional<int64_t> value = number.ScaledHalfEven(0);
  if (!value)
    Raise(error_number::kOverflow);
  return Checked<int16_t>(*value);
}

int16_t CheckedAdd(int16_t a, int16_t b) {
  return Checked<int16_t>(int64_t{a} + b);
}
int32_t CheckedAdd(int32_t a, int32_t b) {
  return Checked<int32_t>(int64_t{a} + b);
}
int16_t CheckedSubtract(int16_t a, int16_t b) {
  return Checked<int16_t>(int64_t{a} - b);
}
int32_t CheckedSubtract(int32_t a, int32_t b) {
  return Checked<int32_t>(int64_t{a} - b);
}

}  // namespace fiscalon
