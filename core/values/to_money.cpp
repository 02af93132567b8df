#include "core/values/to_money.h"

#include "core/platform/runtime_error.h"
#include "core/values/number_reader.h"

namespace fiscalon {

Money ToMoney(std::string_view text, const Locale& locale) {
  DecimalText number;
  if (!ReadNumber(text, locale, number))
    Raise(error_number::kTypeMismatch);
  const std::optional<int64_t> units = number.ScaledHalfEven(Money::kDecimals);
  if (!units)
    Raise(error_number::kOverflow);
  return Money::FromUnits(*units);
}

bool IsNumeric(std::string_view text, const Locale& locale) noexcept {
  DecimalText number;
  return ReadNumber(text, locale, number) && number.ScaledHalfEven(Money::kDecimals).has_value();
}

}  // namespace fiscalon
