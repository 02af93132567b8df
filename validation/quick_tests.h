#pragma once

#include <cstdint>

#include "core/values/calendar.h"
#include "validation/expectation.h"
#include "validation/quick_digits.h"

/// The quick tests (`QuickTest`) that rules share. What a quick test does not recognise goes through the tests of its
/// field one by one.
namespace fiscalon {

/// The largest whole number that `Money` holds: more is no number in the sense of `IsNumeric`. A float holds
/// every whole number up to it.
inline constexpr uint64_t kLargestNumber = 922'337'203'685'477;

inline uint64_t QuickPayment(const char* value, const Expectation& expected) {
  const uint64_t number = EighteenDigits(value);
  return number <= kLargestNumber && number == expected.paymentCents ? number : kNoDigits;
}

inline uint64_t QuickDate(const char* value, const Expectation& expected) {
  const uint64_t eight = LoadEight(value);
  if (LoadEight(value + 8) != InAllEight(' ') || value[16] != ' ' || value[17] != ' ' || !AreDigits(eight))
    return kNoDigits;
  const uint64_t pairs = DigitPairs(eight);
  const auto year = static_cast<int>((pairs & 0xFF) * 100 + (pairs >> 16 & 0xFF));
  const auto month = static_cast<int>(pairs >> 32 & 0xFF);
  const auto day = static_cast<int>(pairs >> 48);
  return year >= expected.day->firstYear && year <= expected.day->lastYear && month >= 1 && month <= 12 && day >= 1 &&
                 (day <= 28 || day <= DaysOfMonth(year, month))
             ? 0
             : kNoDigits;
}

inline uint64_t QuickWholeDollars(const char* value, const Expectation&) {
  // Eight digits of dollars between the zeros in front and those for the cents are more than the test takes.
  const uint64_t dollars = LoadEight(value + 8);
  return LoadEight(value) == InAllEight('0') && AreDigits(dollars) && value[16] == '0' && value[17] == '0' &&
                 DigitsValue(dollars) <= INT32_MAX / 100
             ? 0
             : kNoDigits;
}

inline uint64_t QuickCount(const char* value, const Expectation&) {
  const uint64_t eight = LoadEight(value + 10);
  if (BeginWithTenZeros(value) && AreDigits(eight))
    return eight != InAllEight('0') ? 0 : kNoDigits;
  const uint64_t number = EighteenDigits(value);
  return number >= 1 && number <= kLargestNumber ? number : kNoDigits;
}

inline uint64_t QuickAmount(const char* value, const Expectation&) {
  const uint64_t number = EighteenDigits(value);
  return number <= kLargestNumber ? number : kNoDigits;
}

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
