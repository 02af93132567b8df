#pragma once

#include <string>
#include <string_view>

#include "core/platform/date.h"
#include "core/platform/locale.h"
#include "core/values/money.h"

namespace fiscalon {

/// A number shown by a pattern: places for digits ("0" always shows, "#" only from the first digit that counts), "."
/// for the decimal separator, "," between places for groups; other characters stand as they are. "Currency" is
/// the locale's form of an amount. Halves round away from zero; a minus comes before everything else, and stays
/// where the digits round to zero ("-0.00"). Of a float 15 significant digits count, and its own minus zero has
/// no sign. Where the decimal separator is not ".", a float whose `NumberText` is a broken number with an
/// exponent comes back as that text. Error 6 for infinities and for what is no number. Why floats and `Money` are
/// rounded in two ways: docs/decisions/0006-rounding-of-format-and-money.md.
std::string Format(double value, std::string_view pattern, const Locale& locale);
std::string Format(Money value, std::string_view pattern, const Locale& locale);

/// A text that is a number under the locale, or else with "." as its point, is shown as that number, with all
/// its digits; any other text comes back unchanged.
std::string Format(std::string_view text, std::string_view pattern, const Locale& locale);

/// A date by a pattern of YYYY, MM and DD, such as "YYYYMMDD" or "YYYYMM".
std::string FormatDate(const Date& date, std::string_view pattern);

/// Date and time in the locale's general form. Its tokens are %Y %y %m %d %e %B %b %A %a %H %k %I %l %M %S %p and
/// %%, with their usual meaning; a "-" behind the percent sign takes the leading zero or blank away.
std::string GeneralDate(const DateTime& moment, const Locale& locale);

}  // namespace fiscalon
