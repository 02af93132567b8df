#pragma once

#include <string_view>

#include "core/forms/control.h"

namespace fiscalon {

// Keys that pass a filter beside digits, Backspace and Enter.
inline constexpr std::string_view kDigitsAlone;
inline constexpr std::string_view kAmountKeys = ".,";

/// Whether a key makes a digit.
constexpr bool IsDigitKey(int character) {
  return character >= '0' && character <= '9';
}

/// Swallows a key that is none of the field's and gives the field the focus again.
void FilterKey(Control& field, int& character, std::string_view alsoAccepted);

// What a field of free text does with a key.

/// Swallows a double quote: records stand between two of them in their file.
void DropQuote(int& character);
/// Turns a small letter into its capital, accented ones too.
void Capitalize(int& character);

}  // namespace fiscalon
