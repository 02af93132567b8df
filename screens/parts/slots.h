#pragma once

#include <string>

#include "core/forms/text_field.h"
#include "core/records/record_composer.h"
#include "core/values/money.h"

/// Slots of "F" records from what stands on a form. There are two rules for an amount, which differ below zero; each
/// screen has its own.
namespace fiscalon {

/// A whole number with zeros in front.
FreeFormatSlot NumberSlot(std::string number, double value);
FreeFormatSlot NumberSlot(std::string number, Money value);
/// A field's trimmed text.
FreeFormatSlot TextSlot(std::string number, const TextField& field);
/// A field's dollars in cents, by `AmountToField`: a negative amount is "-" and 17 digits.
FreeFormatSlot AmountSlot(std::string number, const TextField& field);
/// A field's dollars in cents, straight by the pattern of 18 digits: a negative amount is "-" and 18 digits, a
/// character too many.
FreeFormatSlot CentsSlot(std::string number, const TextField& field);
/// That for a field's trimmed text as the user's locale reads it. Error 13 for a text that is no number.
FreeFormatSlot LocaleCentsSlot(std::string number, const TextField& field);
/// A number with nothing behind it.
FreeFormatSlot ZeroSlot(std::string number);

}  // namespace fiscalon
