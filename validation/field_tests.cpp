#include "validation/field_tests.h"

#include <algorithm>
#include <cmath>

#include "core/records/field_values.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

JudgingDay JudgingDayOf(const Date& today) {
  // Earlier years are read with a century of their own, so the quick tests leave them alone.
  constexpr int kFirstQuickYear = 100;
  const int month = today.year * 12 + today.month - 1;
  return {.today = today,
          .firstYear = std::max(today.year - kYearsAround, kFirstQuickYear),
          .lastYear = today.year + kYearsAround,
          .firstMonth = std::max(month - kRemittanceMonthsBack, kFirstQuickYear * 12),
          .lastMonth = month};
}

uint64_t CentsOfDollars(double dollars) {
  constexpr double kFifteenDigits = 1e15;
  const double cents = std::nearbyint(dollars * 100);
  if (!(cents >= 0 && cents < kFifteenDigits) || cents / 100 != dollars)
    return kNoCents;
  return static_cast<uint64_t>(cents);
}

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

bool IsRemittanceType(std::string_view value, const Expectation&) {
  const double type = LeadingNumber(value);
  return type >= 1 && type <= 6;
}

bool IsBlankOrZero(std::string_view value, const Expectation&) {
  return Trim(value).empty() || (IsNumeric(value) && ToMoney(value) == Money{});
}

}  // namespace fiscalon
