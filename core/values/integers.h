#pragma once

#include <cstdint>
#include <string_view>

#include "core/platform/locale.h"

namespace fiscalon {

/// The nearest integer, halves to even. Error 6 out of range.
int32_t ToInt32(double value);
int16_t ToInt16(double value);

/// The integer that a whole text writes down, halves to even; the text is read as `ToMoney` reads it. Error 13
/// for a text that is no number, 6 out of range.
int16_t ToInt16(std::string_view text, const Locale& locale);

/// Sum and difference in the width of the operands. Error 6 out of range.
int16_t CheckedAdd(int16_t a, int16_t b);
int32_t CheckedAdd(int32_t a, int32_t b);
int16_t CheckedSubtract(int16_t a, int16_t b);
int32_t CheckedSubtract(int32_t a, int32_t b);

}  // namespace fiscalon
