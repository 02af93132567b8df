#include "validation/field_tests.h"

#include "core/records/field_values.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

bool IsFilled(std::string_view value, const Expectation&) {
  return !Trim(value).empty();
}

bool HasFullLength(std::string_view value, const Expectation&) {
  return Trim(value).size() >= kValueWidth;
}

bool IsNumber(std::string_view value, const Expectation&) {
  return IsNumeric(value);
}

bool IsNotNegative(std::string_view value, const Expectation&) {
  return Money::FromDouble(LeadingNumber(value)).ToDouble() / 100 >= 0;
}

bool HoldsDigits(std::string_view value, const Expectation&) {
  return IsAllDigits(value);
}

bool EqualsPayment(std::string_view value, const Expectation& expected) {
  return LeadingNumber(value) / 100 == expected.paymentAmount;
}

bool IsDateInRange(std::string_view value, const Expectation& expected) {
  return IsValidYYYYMMDD(Trim(value), expected.day->today);
}

bool IsWholeDollars(std::string_view value, const Expectation&) {
  return IsWholeHundreds(value);
}

bool IsAtLeastOne(std::string_view value, const Expectation&) {
  return LeadingNumber(value) >= 1;
}

bool IsBlankOrZero(std::string_view value, const Expectation&) {
  return Trim(value).empty() || (IsNumeric(value) && ToMoney(value) == Money{});
}

}  // namespace fiscalon
