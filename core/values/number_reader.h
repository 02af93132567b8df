#pragma once

#include <string_view>

#include "core/platform/locale.h"
#include "core/values/decimal_text.h"

namespace fiscalon {

/// Reads a whole text as a number under a locale, by the grammar of `ToMoney`, whatever its size. False where it
/// is none; `number` is then of no use. It has to be fresh. A text with the currency symbol is read by the separators
/// of money first: "Currency" is read back as the amount that it shows.
bool ReadNumber(std::string_view text, const Locale& locale, DecimalText& number) noexcept;

/// The same for the plain form that no locale decides: blanks around, one leading sign, digits with one "." among
/// them, an exponent.
bool ReadPlainNumber(std::string_view text, DecimalText& number) noexcept;

}  // namespace fiscalon
