#include "tools/fiscalon/field_remark.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "core/platform/code_page.h"
#include "core/values/format.h"
#include "core/values/text.h"
#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

/// 12345 of "123.45": what fits neither `Money` nor a number stays as it is.
std::string InCurrency(const std::string& dollars, const Locale& locale) {
  constexpr int64_t kUnitsInCent = Money::FromUnits(100).Units();
  std::string digits = dollars;
  std::erase(digits, '.');
  int64_t cents = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), cents);
  if (error != std::errc() || cents > INT64_MAX / kUnitsInCent || cents < INT64_MIN / kUnitsInCent)
    return dollars;
  return ToUtf8(Format(Money::FromUnits(cents * kUnitsInCent), "Currency", locale));
}

/// "000000000000012345" as 12345.
std::string WithoutZeros(std::string_view digits) {
  const std::string_view sign = digits.find('-') != std::string_view::npos ? "-" : "";
  const size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  std::string number(digits.substr(first));
  std::erase(number, '-');
  return number.empty() ? "0" : std::string(sign) + number;
}

std::string RemarkOnDigits(const ShownField& field, const Locale& locale) {
  const std::string number = WithoutZeros(field.text);
  return number == "0" ? number : number + ", as cents " + InCurrency(field.meaning, locale);
}

}  // namespace

std::string RemarkOn(const ShownField& field, const Locale& locale) {
  switch (field.sense) {
    case Sense::Blank:
      return "blank";
    case Sense::Text:
      return std::to_string(Trim(field.text).size()) + " of " + std::to_string(field.to - field.from + 1) +
             " characters";
    case Sense::Cents:
      return InCurrency(field.meaning, locale);
    case Sense::Digits:
      return RemarkOnDigits(field, locale);
    case Sense::Missing:
      return field.text.empty() ? "missing" : "cut off";
    case Sense::Wrong:
      return "!";
    default:
      return field.meaning;
  }
}

bool IsWorthALine(const ShownField& field) {
  return !field.name.empty() || (field.sense != Sense::Blank && field.sense != Sense::Missing);
}

}  // namespace fiscalon
