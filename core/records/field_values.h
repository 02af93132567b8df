#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/records/record_layout.h"
#include "core/values/money.h"

/// The texts that stand in fields of records: amounts in cents and numbers as digits, texts at a width.
namespace fiscalon {

/// The columns of a free-format value.
inline constexpr size_t kValueWidth = FieldNamed(kFreeFormatLayout, "FieldValue").Width();

/// A zero amount in a free-format value, and the pattern of all amounts in them.
inline constexpr std::string_view kZeroValue = "000000000000000000";
static_assert(kZeroValue.size() == kValueWidth);

/// Dollars times 100, multiplied as a 64-bit float. Error 6 where that is beyond `Money`.
Money Cents(std::string_view dollars);

/// The 18 characters of a free-format value: a whole number with zeros in front, a negative one as "-" and
/// 17 digits. Callers pass cents.
std::string AmountToField(Money amount);

/// A whole number with zeros in front, as many digits as the pattern of zeros has. A negative one has its minus sign
/// ahead of all digits, and so one character more.
std::string DigitsOf(double value, std::string_view pattern = kZeroValue);
std::string DigitsOf(Money value, std::string_view pattern = kZeroValue);

/// The text with as many of the first character of `fill` behind it as `width` needs, or its first `width`
/// characters. Error 5 for a negative width, and for nothing to fill with.
std::string PadRight(std::string_view text, int16_t width, std::string_view fill);

}  // namespace fiscalon
