#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>

#include "core/values/format.h"

namespace fiscalon {

namespace {

/// Appends a number that fills a width with that character in front of it.
void AppendFilled(std::string& text, int value, size_t width, char fill) {
  const std::string digits = std::to_string(value);
  text.append(width > digits.size() ? width - digits.size() : 0, fill).append(digits);
}

int HourOfHalfDay(int hour) {
  return (hour + 11) % 12 + 1;
}

size_t WeekdayOf(const Date& date) {
  using namespace std::chrono;
  const year_month_day day{year(date.year), month(static_cast<unsigned>(date.month)),
                           std::chrono::day(static_cast<unsigned>(date.day))};
  return weekday(sys_days(day)).c_encoding();
}

/// A token that stands for a number.
struct NumberToken {
  char letter = 0;
  size_t width = 0;
  char fill = '0';
  int (*value)(const DateTime&) = nullptr;
};

constexpr NumberToken kNumberTokens[] = {
    {'Y', 4, '0', [](const DateTime& moment) { return moment.date.year; }},
    {'y', 2, '0', [](const DateTime& moment) { return moment.date.year % 100; }},
    {'m', 2, '0', [](const DateTime& moment) { return moment.date.month; }},
    {'d', 2, '0', [](const DateTime& moment) { return moment.date.day; }},
    {'e', 2, ' ', [](const DateTime& moment) { return moment.date.day; }},
    {'H', 2, '0', [](const DateTime& moment) { return moment.hour; }},
    {'k', 2, ' ', [](const DateTime& moment) { return moment.hour; }},
    {'I', 2, '0', [](const DateTime& moment) { return HourOfHalfDay(moment.hour); }},
    {'l', 2, ' ', [](const DateTime& moment) { return HourOfHalfDay(moment.hour); }},
    {'M', 2, '0', [](const DateTime& moment) { return moment.minute; }},
    {'S', 2, '0', [](const DateTime& moment) { return moment.second; }},
};

/// The text of a token that stands for one; a character of no meaning is itself.
std::string TextOf(char letter, const DateTime& moment, const Locale& locale) {
  const auto month = static_cast<size_t>(moment.date.month - 1);
  switch (letter) {
    case 'B':
      return locale.months[month];
    case 'b':
      return locale.shortMonths[month];
    case 'A':
      return locale.weekdays[WeekdayOf(moment.date)];
    case 'a':
      return locale.shortWeekdays[WeekdayOf(moment.date)];
    case 'p':
      return moment.hour < 12 ? locale.am : locale.pm;
    default:
      return std::string(1, letter);
  }
}

}  // namespace

std::string FormatDate(const Date& date, std::string_view pattern) {
  std::string text;
  while (!pattern.empty()) {
    size_t taken = 1;
    if (pattern.starts_with("YYYY")) {
      AppendFilled(text, date.year, taken = 4, '0');
    } else if (pattern.starts_with("MM") || pattern.starts_with("DD")) {
      AppendFilled(text, pattern.front() == 'M' ? date.month : date.day, taken = 2, '0');
    } else {
      text += pattern.front();
    }
    pattern.remove_prefix(taken);
  }
  return text;
}

std::string GeneralDate(const DateTime& moment, const Locale& locale) {
  const std::string_view pattern = locale.generalDate;
  std::string text;
  for (size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '%' || at + 1 == pattern.size()) {
      text += pattern[at];
      continue;
    }
    const bool bare = pattern[++at] == '-' && at + 1 < pattern.size();
    const char letter = pattern[bare ? ++at : at];
    const auto number = std::find_if(std::begin(kNumberTokens), std::end(kNumberTokens),
                                     [&](const NumberToken& token) { return token.letter == letter; });
    if (number != std::end(kNumberTokens))
      AppendFilled(text, number->value(moment), bare ? 1 : number->width, number->fill);
    else
      text += TextOf(letter, moment, locale);
  }
  return text;
}

}  // namespace fiscalon
