#include "core/values/calendar.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "core/platform/runtime_error.h"

namespace fiscalon {

namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
/// A two-digit year up to this one lies in the 2000s, a later one in the 1900s.
constexpr int kLastYearOfThe2000s = 29;
constexpr int kMonthsOfYear = 12;

/// The calendar repeats after 400 years.
constexpr int64_t kMonthsOfCycle = 400 * kMonthsOfYear;
constexpr int64_t kDaysOfCycle = 146'097;

using Days = int64_t;

constexpr Days DaysOf(int year, unsigned month, unsigned day) {
  using namespace std::chrono;
  return sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day)).time_since_epoch().count();
}

/// The day of a year-month-day whose month and day may lie anywhere.
Days RolledOver(int year, int month, int64_t day) {
  const int64_t months = int64_t{year} * kMonthsOfYear + month - 1;
  const int64_t inCycle = (months % kMonthsOfCycle + kMonthsOfCycle) % kMonthsOfCycle;
  const int64_t cycles = (months - inCycle) / kMonthsOfCycle;
  const auto firstOfMonth =
      DaysOf(static_cast<int>(inCycle / kMonthsOfYear), static_cast<unsigned>(inCycle % kMonthsOfYear + 1), 1);
  return cycles * kDaysOfCycle + firstOfMonth + day - 1;
}

Date DateOf(Days days) {
  if (days < DaysOf(kFirstYear, 1, 1) || days > DaysOf(kLastYear, 12, 31))
    Raise(error_number::kInvalidProcedureCall);
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(days))};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

}  // namespace

Date DateFromParts(int year, int month, int day) {
  if (year < 0 || year > kLastYear)
    Raise(error_number::kInvalidProcedureCall);
  if (year < kFirstYear)
    year += year <= kLastYearOfThe2000s ? 2000 : 1900;
  return DateOf(RolledOver(year, month, day));
}

Date AddMonths(const Date& date, int months) {
  const int64_t total = int64_t{date.year} * kMonthsOfYear + date.month - 1 + months;
  if (total < kFirstYear * kMonthsOfYear || total >= (kLastYear + 1) * kMonthsOfYear)
    Raise(error_number::kInvalidProcedureCall);
  const auto year = static_cast<int>(total / kMonthsOfYear);
  const auto month = static_cast<int>(total % kMonthsOfYear + 1);
  return {year, month, std::min(date.day, DaysOfMonth(year, month))};
}

Date AddYears(const Date& date, int years) {
  // Beyond this many years every result is out of range, and the count of months would be too.
  constexpr int kFarBeyond = 100'000;
  return AddMonths(date, std::clamp(years, -kFarBeyond, kFarBeyond) * kMonthsOfYear);
}

Date AddDays(const Date& date, int days) {
  return DateOf(RolledOver(date.year, date.month, int64_t{date.day} + days));
}

}  // namespace fiscalon
