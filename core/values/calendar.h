#pragma once

#include "core/platform/date.h"

namespace fiscalon {

constexpr bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

inline constexpr int kDaysOfCommonYear[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// How many days a month, from 1 to 12, has.
constexpr int DaysOfMonth(int year, int month) {
  return kDaysOfCommonYear[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

/// Dates have years from 100 to 9999; a result outside is error 5.

/// The date of year, month and day. Months and days that do not exist roll over: month 0 is the December
/// before, March 0 the last of February. Years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Error 5
/// too for a year outside 0 to 9999, even if the month would roll it back.
Date DateFromParts(int year, int month, int day);

/// The same day that many months or years on, or the last of its month where there is no such day.
Date AddMonths(const Date& date, int months);
Date AddYears(const Date& date, int years);

Date AddDays(const Date& date, int days);

}  // namespace fiscalon
