#include "validation/field_tests.h"

#include <algorithm>

#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "validation/plain_digits.h"

namespace fiscalon {

namespace {

constexpr size_t kValueWidth = 18;

/// The largest whole number that `Money` holds: more is no number in the sense of `IsNumeric`. A float holds
/// every whole number up to it.
constexpr uint64_t kLargestNumber = 922'337'203'685'477;

constexpr int kDaysOfMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysOf(int year, int month) {
  return kDaysOfMonth[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

}  // namespace

JudgingDay JudgingDayOf(const Date& today) {
  // Earlier years are read with a century of their own, so the short cuts leave them alone.
  constexpr int kFirstPlainYear = 100;
  const int month = today.year * 12 + today.month - 1;
  return {.today = today,
          .firstYear = std::max(today.year - kYearsAround, kFirstPlainYear),
          .lastYear = today.year + kYearsAround,
          .firstMonth = std::max(month - kRemittanceMonthsBack, kFirstPlainYear * 12),
          .lastMonth = month};
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
  return IsValidYYYYMMDD(Trim(value), expected.day.today);
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

bool IsPlainPayment(const SlotValue& value, const Expectation& expected) {
  return value.digits <= kLargestNumber && static_cast<double>(value.digits) / 100 == expected.paymentAmount;
}

bool IsPlainDate(const SlotValue& value, const Expectation& expected) {
  if (value.text.size() != kValueWidth || LoadEight(value.text.data() + 8) != InAllEight(' ') ||
      value.text[16] != ' ' || value.text[17] != ' ')
    return false;
  const uint64_t eight = LoadEight(value.text.data());
  if (!AreDigits(eight))
    return false;
  const auto date = static_cast<int>(DigitsValue(eight));
  const int year = date / 10000;
  const int month = date / 100 % 100;
  const int day = date % 100;
  return year >= expected.day.firstYear && year <= expected.day.lastYear && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysOf(year, month);
}

bool IsPlainWholeDollars(const SlotValue& value, const Expectation&) {
  return value.digits <= INT32_MAX && value.digits % 100 == 0;
}

bool IsPlainCount(const SlotValue& value, const Expectation&) {
  return value.digits >= 1 && value.digits <= kLargestNumber;
}

bool IsPlainRemittanceType(const SlotValue& value, const Expectation&) {
  return value.digits >= 1 && value.digits <= 6;
}

bool IsPlainAmount(const SlotValue& value, const Expectation&) {
  return value.digits <= kLargestNumber;
}

bool IsPlainlyUnused(const SlotValue& value, const Expectation&) {
  return value.digits == 0 || IsEighteenTimes(value.text, ' ');
}

bool IsPlainPeriod(std::string_view periodDueDate, const JudgingDay& day) {
  if (periodDueDate.size() != 8)
    return false;
  // As if it were the first of the month: two digits where the blanks stand.
  constexpr uint64_t kBlanks = uint64_t{0x2020} << 48;
  constexpr uint64_t kUpper = uint64_t{0xFFFF} << 48;
  const uint64_t eight = LoadEight(periodDueDate.data());
  const uint64_t digits = (eight & ~kUpper) | (InAllEight('0') & kUpper);
  if ((eight & kUpper) != kBlanks || !AreDigits(digits))
    return false;
  const auto period = static_cast<int>(DigitsValue(digits) / 100);
  const int month = period % 100;
  const int count = period / 100 * 12 + month - 1;
  return month >= 1 && month <= 12 && count >= day.firstMonth && count <= day.lastMonth;
}

}  // namespace fiscalon
