#include "core/values/calendar.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "tests/support/raises.h"

namespace fiscalon {

void PrintTo(const Date& date, std::ostream* out) {
  *out << date.year << '-' << date.month << '-' << date.day;
}

namespace {

constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr int kIntMin = std::numeric_limits<int>::min();

int32_t PartsError(int year, int month, int day) {
  return ErrorOf([&] { DateFromParts(year, month, day); });
}

TEST(DaysOfMonth, CountsTheLeapDay) {
  constexpr int kCommonYear[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(DaysOfMonth(2026, month), kCommonYear[month - 1]) << month;
    EXPECT_EQ(DaysOfMonth(2028, month), month == 2 ? 29 : kCommonYear[month - 1]) << month;
  }
  EXPECT_EQ(DaysOfMonth(1900, 2), 28);
  EXPECT_EQ(DaysOfMonth(2000, 2), 29);
}

TEST(DateFromParts, KeepsARealDate) {
  EXPECT_EQ(DateFromParts(2026, 6, 15), (Date{2026, 6, 15}));
}

TEST(DateFromParts, RollsMonthsOver) {
  EXPECT_EQ(DateFromParts(2026, 0, 1), (Date{2025, 12, 1}));
  EXPECT_EQ(DateFromParts(2026, 13, 1), (Date{2027, 1, 1}));
  EXPECT_EQ(DateFromParts(2026, -11, 1), (Date{2025, 1, 1}));
  EXPECT_EQ(DateFromParts(2026, -12, 1), (Date{2024, 12, 1}));
}

TEST(DateFromParts, RollsDaysOver) {
  EXPECT_EQ(DateFromParts(2007, 2, 30), (Date{2007, 3, 2}));
  EXPECT_EQ(DateFromParts(2024, 2, 30), (Date{2024, 3, 1}));
  EXPECT_EQ(DateFromParts(2026, 3, 0), (Date{2026, 2, 28}));
  EXPECT_EQ(DateFromParts(2026, 1, -30), (Date{2025, 12, 1}));
  EXPECT_EQ(DateFromParts(2026, 1, 366), (Date{2027, 1, 1}));
}

TEST(DateFromParts, HasLeapDaysByTheGregorianRule) {
  EXPECT_EQ(DateFromParts(2000, 2, 29), (Date{2000, 2, 29}));
  EXPECT_EQ(DateFromParts(1900, 2, 29), (Date{1900, 3, 1}));
  EXPECT_EQ(DateFromParts(1500, 2, 29), (Date{1500, 3, 1}));
  EXPECT_EQ(DateFromParts(1582, 10, 10), (Date{1582, 10, 10}));
}

TEST(DateFromParts, GivesTwoDigitYearsTheirCentury) {
  EXPECT_EQ(DateFromParts(0, 1, 1), (Date{2000, 1, 1}));
  EXPECT_EQ(DateFromParts(29, 12, 31), (Date{2029, 12, 31}));
  EXPECT_EQ(DateFromParts(30, 1, 1), (Date{1930, 1, 1}));
  EXPECT_EQ(DateFromParts(99, 1, 1), (Date{1999, 1, 1}));
  EXPECT_EQ(DateFromParts(100, 1, 1), (Date{100, 1, 1}));
}

TEST(DateFromParts, RefusesYearsOutOfRange) {
  EXPECT_EQ(PartsError(-1, 1, 1), 5);
  EXPECT_EQ(PartsError(10000, 1, 1), 5);
  EXPECT_EQ(PartsError(10000, 0, 1), 5);
  EXPECT_EQ(PartsError(100, 1, 0), 5);
  EXPECT_EQ(PartsError(9999, 12, 32), 5);
  EXPECT_EQ(DateFromParts(9999, 12, 31), (Date{9999, 12, 31}));
}

TEST(DateFromParts, ComesBackFromFarAway) {
  // Ten years of months on and as many days back: 3653, for the leap days of 2016, 2020 and 2024.
  EXPECT_EQ(DateFromParts(2016, 121, 1 - 3653), (Date{2016, 1, 1}));
  EXPECT_EQ(PartsError(2026, kIntMax, 1), 5);
  EXPECT_EQ(PartsError(2026, kIntMin, 1), 5);
  EXPECT_EQ(PartsError(2026, 1, kIntMax), 5);
  EXPECT_EQ(PartsError(2026, 1, kIntMin), 5);
}

TEST(AddMonths, KeepsTheDayWhereTheMonthHasIt) {
  EXPECT_EQ(AddMonths({2026, 6, 15}, 1), (Date{2026, 7, 15}));
  EXPECT_EQ(AddMonths({2026, 6, 15}, -6), (Date{2025, 12, 15}));
  EXPECT_EQ(AddMonths({2026, 6, 15}, 0), (Date{2026, 6, 15}));
}

TEST(AddMonths, ReachesBothEndsOfTheCalendar) {
  EXPECT_EQ(AddMonths({100, 2, 15}, -1), (Date{100, 1, 15}));
  EXPECT_EQ(AddMonths({9999, 11, 15}, 1), (Date{9999, 12, 15}));
}

TEST(AddMonths, EndsWithTheMonthOtherwise) {
  EXPECT_EQ(AddMonths({2026, 1, 31}, 1), (Date{2026, 2, 28}));
  EXPECT_EQ(AddMonths({2024, 1, 31}, 1), (Date{2024, 2, 29}));
  EXPECT_EQ(AddMonths({2026, 5, 31}, -1), (Date{2026, 4, 30}));
  EXPECT_EQ(AddMonths({2026, 11, 30}, 3), (Date{2027, 2, 28}));
  EXPECT_EQ(AddMonths({9999, 11, 30}, 1), (Date{9999, 12, 30}));
}

TEST(AddMonths, RefusesAResultOutOfRange) {
  EXPECT_EQ(ErrorOf([] { AddMonths({9999, 12, 1}, 1); }), 5);
  EXPECT_EQ(ErrorOf([] { AddMonths({100, 1, 1}, -1); }), 5);
  EXPECT_EQ(ErrorOf([] { AddMonths({2026, 1, 1}, kIntMax); }), 5);
  EXPECT_EQ(ErrorOf([] { AddMonths({2026, 1, 1}, kIntMin); }), 5);
}

TEST(AddYears, MovesALeapDayToTheLastOfFebruary) {
  EXPECT_EQ(AddYears({2024, 2, 29}, 1), (Date{2025, 2, 28}));
  EXPECT_EQ(AddYears({2024, 2, 29}, -4), (Date{2020, 2, 29}));
  EXPECT_EQ(AddYears({2026, 6, 15}, 2), (Date{2028, 6, 15}));
  EXPECT_EQ(ErrorOf([] { AddYears({2026, 1, 1}, kIntMax); }), 5);
  EXPECT_EQ(ErrorOf([] { AddYears({2026, 1, 1}, kIntMin); }), 5);
  EXPECT_EQ(ErrorOf([] { AddYears({2026, 1, 1}, 7974); }), 5);
}

TEST(AddDays, StepsOverMonthsAndYears) {
  EXPECT_EQ(AddDays({2026, 12, 31}, 1), (Date{2027, 1, 1}));
  EXPECT_EQ(AddDays({2024, 3, 1}, -1), (Date{2024, 2, 29}));
  EXPECT_EQ(AddDays({2026, 6, 15}, 365), (Date{2027, 6, 15}));
  EXPECT_EQ(ErrorOf([] { AddDays({9999, 12, 31}, 1); }), 5);
  EXPECT_EQ(ErrorOf([] { AddDays({2026, 1, 1}, kIntMin); }), 5);
}

TEST(Calendar, CountsEveryDayOfFourCenturies) {
  // The calendar walked day by day with nothing but the rule of leap years.
  constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  int days = 0;
  for (int year = 1900; year < 2300; ++year) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    for (int month = 1; month <= 12; ++month)
      for (int day = 1; day <= kLengths[month - 1] + (leap && month == 2 ? 1 : 0); ++day, ++days)
        ASSERT_EQ(AddDays({1900, 1, 1}, days), (Date{year, month, day}));
  }
}

}  // namespace
}  // namespace fiscalon
