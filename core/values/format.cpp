#include "core/values/format.h"

#include <algorithm>
#include <optional>

#include "core/platform/runtime_error.h"
#include "core/values/decimal_text.h"
#include "core/values/number_pattern.h"
#include "core/values/number_reader.h"
#include "core/values/number_text.h"
#include "core/values/separators.h"

namespace fiscalon {

namespace {

constexpr std::string_view kCurrency = "Currency";
constexpr size_t kGroupSize = 3;

/// An amount of money: at least one digit in front, then the digits that the locale's money has.
NumberPattern PlacesOfMoney(const Locale& locale) {
  return {.leastWhole = 1,
          .leastDecimals = locale.moneyDigits,
          .mostDecimals = locale.moneyDigits,
          .point = locale.moneyDigits > 0,
          .places = true,
          .grouped = true};
}

/// The digits before the point, zeros in front up to the pattern's places, with separators if it asks for them.
void AppendWhole(std::string& text, const DecimalText& number, const NumberPattern& pattern, std::string_view group) {
  const std::string_view digits = number.Digits();
  const auto whole = static_cast<size_t>(std::max<int64_t>(number.Point(), 0));
  const std::string_view shown = digits.substr(0, whole);
  const size_t length = std::max(whole, pattern.leastWhole);
  if (!pattern.grouped || group.empty()) {
    text.append(length - whole, '0').append(shown).append(whole - shown.size(), '0');
    return;
  }
  for (size_t i = 0; i < length; ++i) {
    if (i > 0 && (length - i) % kGroupSize == 0)
      text += group;
    const size_t padding = length - whole;
    text += i >= padding && i - padding < shown.size() ? shown[i - padding] : '0';
  }
}

void AppendDecimals(std::string& text, const DecimalText& number, const NumberPattern& pattern) {
  const std::string_view digits = number.Digits();
  const size_t start = text.size();
  if (number.Point() < 0)
    text.append(std::min(static_cast<size_t>(-number.Point()), pattern.mostDecimals), '0');
  const auto whole = static_cast<size_t>(std::max<int64_t>(number.Point(), 0));
  if (!digits.empty() && whole < digits.size())
    text += digits.substr(whole);
  const size_t length = text.size() - start;
  if (length < pattern.leastDecimals)
    text.append(pattern.leastDecimals - length, '0');
}

std::string Shown(DecimalText& number, std::string_view patternText, const Locale& locale) {
  const bool currency = patternText == kCurrency;
  const NumberPattern pattern = currency ? PlacesOfMoney(locale) : ParseNumberPattern(patternText);
  if (!pattern.places)
    return std::string(pattern.prefix);
  number.RoundHalfAway(static_cast<int>(pattern.mostDecimals));
  std::string text;
  if (currency)
    text += number.IsNegative() ? locale.negativePrefix : locale.positivePrefix;
  else
    text.append(number.IsNegative() ? "-" : "").append(pattern.prefix);
  const Separators separators = currency ? SeparatorsOfMoney(locale) : SeparatorsOfNumbers(locale);
  AppendWhole(text, number, pattern, separators.group);
  if (pattern.point)
    text += separators.decimal;
  AppendDecimals(text, number, pattern);
  if (currency)
    text += number.IsNegative() ? locale.negativeSuffix : locale.positiveSuffix;
  else
    text += pattern.suffix;
  return text;
}

}  // namespace

std::string Format(double value, std::string_view pattern, const Locale& locale) {
  DecimalText number(value);
  // Such a text goes through the locale on its way to the pattern, and its point stops it there.
  if (locale.decimal != "." && number.NeedsExponent() && number.Digits().size() > 1)
    return NumberText(value);
  return Shown(number, pattern, locale);
}

std::string Format(Money value, std::string_view pattern, const Locale& locale) {
  DecimalText number(value);
  return Shown(number, pattern, locale);
}

std::string Format(std::string_view text, std::string_view pattern, const Locale& locale) {
  DecimalText number;
  if (ReadNumber(text, locale, number) && number.IsFinite())
    return Shown(number, pattern, locale);
  DecimalText plain;
  if (ReadPlainNumber(text, plain) && plain.IsFinite())
    return Shown(plain, pattern, locale);
  return std::string(text);
}

}  // namespace fiscalon
