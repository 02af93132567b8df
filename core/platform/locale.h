#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// How the user writes numbers, money and moments. Texts are in the code page. The default is English
/// (Canada).
struct Locale {
  std::string name = "en-CA";  ///< what `NamedLocale` calls it

  std::string decimal = ".";  ///< before the decimals of a number
  /// Between groups of three digits; may be empty. A no-break space stands for blanks as well when a number
  /// is read.
  std::string group = ",";

  /// How an amount of money is written: with the separators of numbers where it has none of its own.
  std::optional<std::string> moneyDecimal = {};
  std::optional<std::string> moneyGroup = {};  ///< the same between groups
  /// Behind its separator.
  size_t moneyDigits = 2;

  std::string currencySymbol = "$";  ///< which a number that is read may have
  /// What stands before and behind an amount of money. The negative ones hold the sign.
  std::string positivePrefix = "$";
  std::string positiveSuffix = "";    ///< behind one that is not negative
  std::string negativePrefix = "-$";  ///< before a negative one
  std::string negativeSuffix = "";    ///< behind a negative one

  /// Date and time in one, with the tokens of `GeneralDate`.
  std::string generalDate = "%Y-%m-%d %-I:%M:%S %p";
  std::string am = "a.m.";  ///< before noon
  std::string pm = "p.m.";  ///< from noon on
  /// From January.
  std::array<std::string, 12> months = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};
  /// The same, short.
  std::array<std::string, 12> shortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  /// From Sunday.
  std::array<std::string, 7> weekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  /// The same, short.
  std::array<std::string, 7> shortWeekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

  /// Whether all is written alike.
  friend bool operator==(const Locale&, const Locale&) = default;
};

/// "$1,234.50", "-$1,234.50", "2026-06-15 1:05:09 p.m."
Locale EnglishCanada();

/// "$1,234.50", "($1,234.50)", "6/15/2026 1:05:09 PM"
Locale EnglishUnitedStates();

/// "1 234,50 $", "(1 234,50 $)" with a no-break space between the groups, "2026-06-15 13:05:09"
Locale FrenchCanada();

/// The user's own locale, as the system has it at this moment. What goes by a locale that defines no currency ("C",
/// "POSIX"), or by one that the system does not have, counts as English (Canada): numbers, money and moments each for
/// themselves where the system sets them apart.
Locale SystemLocale();

/// Stands for the user's own among the names of locales.
constexpr std::string_view kSystemLocaleName = "system";

/// The locale called "en-CA", "en-US", "fr-CA" or "system"; nothing for another name.
std::optional<Locale> NamedLocale(std::string_view name);

}  // namespace fiscalon
