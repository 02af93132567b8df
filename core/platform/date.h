#pragma once

#include <compare>

namespace fiscalon {

/// A calendar date, Gregorian at any time. Plain data: whoever makes one answers for its being a real day;
/// `DateFromParts` does.
struct Date {
  int year = 2000;  ///< all four digits
  int month = 1;    ///< from 1
  int day = 1;      ///< from 1

  /// By time.
  friend auto operator<=>(const Date&, const Date&) = default;
};

/// A moment of the user's local time.
struct DateTime {
  Date date = {};  ///< the day
  int hour = 0;    ///< from 0 to 23
  int minute = 0;  ///< from 0
  int second = 0;  ///< from 0

  /// By time.
  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

}  // namespace fiscalon
