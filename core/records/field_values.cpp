#include "core/records/field_values.h"

#include "core/platform/locale.h"
#include "core/platform/runtime_error.h"
#include "core/values/format.h"
#include "core/values/leading_number.h"

namespace fiscalon {
namespace {

// A pattern of digits alone shows nothing that differs between locales.
const Locale& AnyLocale() {
  static const Locale locale = EnglishCanada();
  return locale;
}

}  // namespace

Money Cents(std::string_view dollars) {
  return Money::FromDouble(LeadingNumber(dollars) * 100);
}

std::string AmountToField(Money amount) {
  constexpr std::string_view kDigitsBehindSign = kZeroValue.substr(1);
  return amount >= Money{} ? DigitsOf(amount) : "-" + DigitsOf(-amount, kDigitsBehindSign);
}

std::string DigitsOf(double value, std::string_view pattern) {
  return Format(value, pattern, AnyLocale());
}

std::string DigitsOf(Money value, std::string_view pattern) {
  return Format(value, pattern, AnyLocale());
}

std::string PadRight(std::string_view text, int16_t width, std::string_view fill) {
  if (width < 0 || fill.empty())
    Raise(error_number::kInvalidProcedureCall);
  const auto columns = static_cast<size_t>(width);
  std::string padded(text.substr(0, columns));
  if (padded.size() < columns)
    padded.append(columns - padded.size(), fill.front());
  return padded;
}

}  // namespace fiscalon
