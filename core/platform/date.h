#pragma once

#include <compare>

namespace fiscalon {

/// A calendar date, Gregorian at any time. Plain data: whoever makes one answers for its being a real day;
/// `DateFromParts` does.
struct Date {
  int year = 2000;
  int month = 1;
  int day = 1;

  friend auto operator<=>(const Date&, const Date&) = default;
};

/// A moment of the user's local time.
struct DateTime {
  Date date = {};
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

}  // namespace fiscalon
