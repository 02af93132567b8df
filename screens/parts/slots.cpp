#include "screens/parts/slots.h"

#include <utility>

#include "core/platform/runtime_error.h"
#include "core/records/field_values.h"
#include "core/user_locale.h"
#include "core/values/decimal_text.h"
#include "core/values/number_reader.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

// A 64-bit float, since the product with 100 is made before it becomes money.
double LocaleNumber(std::string_view text) {
  DecimalText number;
  if (!ReadNumber(text, TheModule().locale, number))
    Raise(error_number::kTypeMismatch);
  const std::optional<double> value = number.ToDouble();
  if (!value)
    Raise(error_number::kOverflow);
  return *value;
}

}  // namespace

FreeFormatSlot NumberSlot(std::string number, double value) {
  return {.fieldNum = std::move(number), .fieldValue = DigitsOf(value)};
}

FreeFormatSlot NumberSlot(std::string number, Money value) {
  return {.fieldNum = std::move(number), .fieldValue = DigitsOf(value)};
}

FreeFormatSlot TextSlot(std::string number, const TextField& field) {
  return {.fieldNum = std::move(number), .fieldValue = std::string(Trim(field.Text()))};
}

FreeFormatSlot AmountSlot(std::string number, const TextField& field) {
  return {.fieldNum = std::move(number), .fieldValue = AmountToField(Cents(field.Text()))};
}

FreeFormatSlot CentsSlot(std::string number, const TextField& field) {
  return NumberSlot(std::move(number), Cents(field.Text()));
}

FreeFormatSlot LocaleCentsSlot(std::string number, const TextField& field) {
  return NumberSlot(std::move(number), Money::FromDouble(LocaleNumber(Trim(field.Text())) * 100));
}

FreeFormatSlot ZeroSlot(std::string number) {
  return {.fieldNum = std::move(number), .fieldValue = std::string(kZeroValue)};
}

}  // namespace fiscalon
