#include "core/values/number_text.h"

#include <charconv>
#include <string_view>

#include "core/values/decimal_text.h"

namespace fiscalon {

namespace {

/// "d.dddE+17": at least two digits of exponent.
void AppendWithExponent(std::string& text, std::string_view digits, int64_t exponent) {
  text += digits.front();
  if (digits.size() > 1)
    text.append(".").append(digits.substr(1));
  const std::string magnitude = std::to_string(exponent < 0 ? -exponent : exponent);
  text.append(exponent < 0 ? "E-" : "E+").append(magnitude.size() < 2 ? "0" : "").append(magnitude);
}

void AppendPlain(std::string& text, std::string_view digits, int64_t point) {
  if (point <= 0) {
    text.append("0.").append(static_cast<size_t>(-point), '0').append(digits);
    return;
  }
  const auto whole = static_cast<size_t>(point);
  text.append(digits.substr(0, whole));
  if (digits.size() > whole)
    text.append(".").append(digits.substr(whole));
  else
    text.append(whole - digits.size(), '0');
}

}  // namespace

std::string NumberText(double value) {
  const DecimalText number(value);
  if (number.Digits().empty())
    return "0";
  std::string text(number.IsNegative() ? "-" : "");
  if (number.NeedsExponent())
    AppendWithExponent(text, number.Digits(), number.Point() - 1);
  else
    AppendPlain(text, number.Digits(), number.Point());
  return text;
}

std::string BareNumberText(double value) {
  std::string text = NumberText(value);
  const size_t zero = text.front() == '-' ? 1 : 0;
  if (text.compare(zero, 2, "0.") == 0)
    text.erase(zero, 1);
  return text;
}

}  // namespace fiscalon
