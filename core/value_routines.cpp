#include "core/value_routines.h"

#include <algorithm>
#include <limits>

#include "core/messages.h"
#include "core/module_state.h"
#include "core/platform/runtime_error.h"
#include "core/values/calendar.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

template <typename Passes>
std::string Keep(std::string_view text, Passes passes) {
  // A filter counts characters in 16 bits.
  if (text.size() > static_cast<size_t>(std::numeric_limits<int16_t>::max()))
    Raise(error_number::kOverflow);
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept), passes);
  return kept;
}

template <typename Passes>
bool TrimmedHoldsOnly(std::string_view text, Passes passes) {
  const std::string_view trimmed = Trim(text);
  return !trimmed.empty() && std::all_of(trimmed.begin(), trimmed.end(), passes);
}

}  // namespace

std::string KeepNumericChars(std::string_view text) {
  const std::string separator = AskForLocale().decimal.substr(0, 1);
  return Keep(text, [&](char c) { return IsDigit(c) || c == '-' || (!separator.empty() && c == separator.front()); });
}

std::string KeepAlphanumeric(std::string_view text) {
  return Keep(text, [](char c) { return IsDigit(c) || IsLetter(c); });
}

std::string DigitsOnly(std::string_view text) {
  return Keep(text, IsDigit);
}

bool IsAmountText(std::string_view text) {
  return TrimmedHoldsOnly(text, [](char c) { return IsDigit(c) || c == '.' || c == ','; });
}

bool IsAllDigits(std::string_view text) {
  return TrimmedHoldsOnly(text, IsDigit);
}

bool IsWholeHundreds(std::string_view text) {
  return IsAllDigits(text) && ToInt32(LeadingNumber(text)) % 100 == 0;
}

Date DateFromTexts(std::string_view year, std::string_view month, std::string_view day) {
  // One statement for each: the order in which a call's arguments are read is the compiler's.
  const int16_t years = ToInt16(year);
  const int16_t months = ToInt16(month);
  const int16_t days = ToInt16(day);
  return DateFromParts(years, months, days);
}

Date DateFromYYYYMMDD(std::string_view text) {
  const auto part = [&](size_t from, size_t length) {
    return from < text.size() ? text.substr(from, length) : std::string_view{};
  };
  return DateFromTexts(part(0, 4), part(4, 2), part(6, 2));
}

bool IsValidYYYYMMDD(std::string_view text) {
  return IsValidYYYYMMDD(text, Today());
}

bool IsValidYYYYMMDD(std::string_view text, const Date& today) {
  if (text.size() < 8)
    return false;
  // The day is the last two characters, so the comparison refuses whatever is longer than a date.
  const Date date = DateFromTexts(text.substr(0, 4), text.substr(4, 2), text.substr(text.size() - 2));
  const int16_t year = ToInt16(text.substr(0, 4));
  return FormatDate(date, "YYYYMMDD") == text && year >= today.year - kYearsAround && year <= today.year + kYearsAround;
}

int16_t YearIsNotCurrent(std::string_view text, std::string_view label) {
  if (text.substr(0, 4) == std::to_string(Today().year))
    return kFalse;
  const MessageAnswer answer =
      ShowMessage({.text = Filled("The year for {1} entered does not correspond to the current year.\r\n"
                                  "Are you sure you want to use it?",
                                  label),
                   .style = MessageStyle::Exclamation,
                   .buttons = MessageButtons::YesNo,
                   .title = "Date Warning"});
  return answer == MessageAnswer::No ? kTrue : kFalse;
}

std::string DollarsFromCents(std::string_view cents) {
  return BareNumberText(LeadingNumber(cents) / 100);
}

bool HasDecimalSeparator(std::string_view text) {
  return text.find(TheModule().decimalSeparator) != text.npos;
}

bool HasFraction(std::string_view text) {
  const std::string& separator = TheModule().decimalSeparator;
  const size_t at = text.find(separator);
  return at != text.npos && LeadingNumber(text.substr(at + separator.size())) != 0;
}

double WithImplicitCents(double amount, std::string_view text) {
  return HasDecimalSeparator(text) ? amount : amount / 100;
}

Money WithImplicitCents(Money amount, std::string_view text) {
  return HasDecimalSeparator(text) ? amount : Money::FromDouble(amount.ToDouble() / 100);
}

bool FileExists(std::string_view path) {
  return TheModule().files->Exists(path);
}

}  // namespace fiscalon
