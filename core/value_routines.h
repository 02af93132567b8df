#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/boolean.h"
#include "core/email_address.h"
#include "core/platform/date.h"
#include "core/quebec_source_deductions.h"
#include "core/records/field_values.h"
#include "core/user_locale.h"

/// The module `modLevyra`: the free routines that screens and the validator share for texts, amounts and
/// dates. All texts are in Windows-1252. Where nothing else is said, "trimmed" takes blanks off both ends,
/// today comes from the module's clock and separators from the module's locale.
namespace fiscalon {

// Text filters. Each keeps the characters that pass, in order. Error 6 for a text of more than 32,767
// characters.

/// "-", digits, and the decimal separator of the user's locale, asked for afresh at each call.
std::string KeepNumericChars(std::string_view text);
/// Digits and the letters "A" to "Z", "a" to "z".
std::string KeepAlphanumeric(std::string_view text);
/// Digits.
std::string DigitsOnly(std::string_view text);

// Tests of what stands in an entry field.

/// Whether the trimmed text is not empty and holds digits, "." and "," alone.
bool IsAmountText(std::string_view text);
/// Whether the trimmed text is not empty and holds digits alone.
bool IsAllDigits(std::string_view text);
/// Whether the trimmed text is not empty, holds digits alone, and is a multiple of 100: an amount in cents
/// is whole dollars. Error 6 above 2,147,483,647.
bool IsWholeHundreds(std::string_view text);

// Dates.

/// The date of a year, a month and a day that are texts, which are read in this order: the first that fails decides the
/// error, 13 for one that is no number, 6 for one beyond 16 bits.
Date DateFromTexts(std::string_view year, std::string_view month, std::string_view day = "1");
/// The date of characters 1-4, 5-6 and 7-8. Days and months beyond their range roll over: "20070230" is
/// March 2, 2007. Error 13 for a part that is no number, 5 for a date beyond the year 9999.
Date DateFromYYYYMMDD(std::string_view text);
/// Dates on screens lie at most so many years before or after the current one.
inline constexpr int kYearsAround = 2;
/// Whether the text is a date of exactly 8 digits, in a year from two before to two after the current one.
/// Error 13 for a text of 8 characters or more with a part that is no number.
bool IsValidYYYYMMDD(std::string_view text);
/// The same for a known day.
bool IsValidYYYYMMDD(std::string_view text, const Date& today);
/// Where the text does not start with the current year, asks in a Yes/No box "Date Warning" whether to use
/// it; `label` names the date. True, as a 16-bit boolean, when the user answers No.
int16_t YearIsNotCurrent(std::string_view text, std::string_view label);

// Amounts. A text of dollars is read by `LeadingNumber`, so with "." as its point.

/// The host's cents as the text of dollars that screens and rules read: "12345" gives "123.45", "5" ".05".
std::string DollarsFromCents(std::string_view cents);
/// Whether a typed text holds the decimal separator that the module found last.
bool HasDecimalSeparator(std::string_view text);
/// Whether what stands behind the decimal separator, if there is one, is a number other than 0.
bool HasFraction(std::string_view text);
/// What a typed amount means, where a text without a decimal separator counts cents: `amount`, the number
/// that was read from `text`, divided by 100 where the text has no separator.
double WithImplicitCents(double amount, std::string_view text);
Money WithImplicitCents(Money amount, std::string_view text);

// Files.

/// Whether the file's length can be read; a file of length 0 exists. Never raises an error.
bool FileExists(std::string_view path);

}  // namespace fiscalon
