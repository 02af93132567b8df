#pragma once

#include <cstdint>

#include "core/values/calendar.h"
#include "validation/field_tests.h"
#include "validation/quick_digits.h"

/// The quick tests (`QuickTest`) that rules share. What a quick test does not recognise goes through the tests of its
/// field one by one.
namespace fiscalon {

/// The largest whole number that `Money` holds: more is no number in the sense of `IsNumeric`. A float holds
/// every whole number up to it.
inline constexpr uint64_t kLargestNumber = 922'337'203'685'477;

inline uint64_t NumberOfAmount(const char* digits, const Expectation&) {
  const uint64_t number = NumberOfDigits(digits);
  return number <= kLargestNumber ? number : kNoDigits;
}

inline uint64_t NumberOfPayment(const char* digits, const Expectation& expected) {
  const uint64_t number = NumberOfAmount(digits, expected);
  return number == expected.paymentCents ? number : kNoDigits;
}

inline uint64_t NumberOfDate(const char* date, const Expectation& expected) {
  const uint64_t pairs = DigitPairs(LoadEight(date));
  const auto year = static_cast<int>((pairs & 0xFF) * 100 + (pairs >> 16 & 0xFF));
  const auto month = static_cast<int>(pairs >> 32 & 0xFF);
  const auto day = static_cast<int>(pairs >> 48);
  return year >= expected.day->firstYear && year <= expected.day->lastYear && month >= 1 && month <= 12 && day >= 1 &&
                 (day <= 28 || day <= DaysOfMonth(year, month))
             ? 0
             : kNoDigits;
}

inline uint64_t NumberOfDollars(const char* dollars, const Expectation&) {
  static_assert(INT32_MAX / 100 == 21'474'836);
  return InOrder(dollars + 8) <= InOrder(std::string_view("21474836")) ? 0 : kNoDigits;
}

inline uint64_t NumberOfCount(const char* digits, const Expectation&) {
  if (BeginWithTenZeros(digits))
    return LoadEight(digits + 10) != InAllEight('0') ? 0 : kNoDigits;
  return NumberOfDigits(digits) <= kLargestNumber ? 0 : kNoDigits;
}

// clang-format off
inline constexpr QuickTest kQuickAmount       = {kZeros,               kNines,               NumberOfAmount};
inline constexpr QuickTest kQuickPayment      = {kZeros,               kNines,               NumberOfPayment, true};
inline constexpr QuickTest kQuickDate         = {"00000000          ", "99999999          ", NumberOfDate};
/// Eight digits of dollars between the zeros in front and those for the cents are more than the test takes.
inline constexpr QuickTest kQuickWholeDollars = {"000000000000000000", "000000009999999900", NumberOfDollars};
inline constexpr QuickTest kQuickCount        = {kZeros,               kNines,               NumberOfCount};
// clang-format on

inline uint64_t QuickUnused(const char* value, const Expectation&) {
  return AreEighteen(value, ' ') || AreEighteen(value, '0') ? 0 : kNoDigits;
}

inline bool IsQuickPeriod(const char* periodDueDate, const JudgingDay& day) {
  // As if it were the first of the month: two digits where the blanks stand.
  constexpr uint64_t kBlanks = uint64_t{0x2020} << 48;
  constexpr uint64_t kLastTwo = uint64_t{0xFFFF} << 48;
  const uint64_t eight = LoadEight(periodDueDate);
  const uint64_t digits = (eight & ~kLastTwo) | (InAllEight('0') & kLastTwo);
  if ((eight & kLastTwo) != kBlanks || !AreDigits(digits))
    return false;
  const auto period = static_cast<int>(DigitsValue(digits) / 100);
  const int month = period % 100;
  const int count = period / 100 * 12 + month - 1;
  return month >= 1 && month <= 12 && count >= day.firstMonth && count <= day.lastMonth;
}

}  // namespace fiscalon
