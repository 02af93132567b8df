#pragma once

#include <string_view>

#include "core/platform/locale.h"
#include "core/values/money.h"

namespace fiscalon {

/// The amount that a whole text writes down under a locale, rounded to four decimals, halves to even. The text
/// may have white space around it, one sign on either side or parentheses for a negative, the currency symbol,
/// group separators behind its first digit, and an exponent. Error 13 for a text that is no number, 6 for one
/// out of the range of `Money`.
Money ToMoney(std::string_view text, const Locale& locale);

/// Whether `ToMoney` takes the text. Allocates nothing and throws nothing.
bool IsNumeric(std::string_view text, const Locale& locale) noexcept;

}  // namespace fiscalon
