#pragma once

#include <string_view>

#include "core/forms/control.h"

namespace fiscalon {

// Keys that pass a filter beside digits, Backspace and Enter.
inline constexpr std::string_view kDigitsAlone;
inline constexpr std::string_view kAmountKeys = ".,";

/// Swallows a key that is none of the field's and gives the field the focus again.
void FilterKey(Control& field, int& character, std::string_view alsoAccepted);

}  // namespace fiscalon
