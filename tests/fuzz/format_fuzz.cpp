#include <cmath>
#include <cstring>
#include <string>

#include "core/values/format.h"
#include "core/values/number_text.h"
#include "core/values/to_money.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

/// The longest text of a number beside its pattern: the digits of the largest float with their separators.
constexpr size_t kLongestNumber = 309 + 309 / 3 + 10;

void CheckFormat(double value, std::string_view pattern, const Locale& locale) {
  const std::optional<std::string> shown =
      ResultOf([&] { return Format(value, pattern, locale); }, error_number::kOverflow);
  if (!shown)
    return;
  Law(shown->size() <= kLongestNumber + 2 * pattern.size(), "a number is no longer than it has to be");
  if (value == 0)
    Law(Format(-value, pattern, locale) == *shown, "minus zero has no sign");

  const std::optional<Money> amount = ResultOf([&] { return Money::FromDouble(value); }, error_number::kOverflow);
  if (amount) {
    Format(*amount, pattern, locale);
    const std::string four = Format(value, "0.0000", locale);
    // Under a comma a broken number with an exponent is left as it is.
    if (locale.decimal != "." && four == NumberText(value))
      return;
    // Both round, one the float and one its fifteen digits; those of the largest amounts round out of range.
    const std::optional<Money> back = ResultOf([&] { return ToMoney(four, locale); }, error_number::kOverflow);
    Law(back || std::abs(value) > 922'337'203'685'477, "four decimals are an amount");
    Law(!back || std::abs(back->ToDouble() - value) <= 0.00006 + std::abs(value) * 1e-14,
        "four decimals are the number");
  }
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  double value = 0;
  if (size < 1 + sizeof value)
    return 0;
  std::memcpy(&value, data + 1, sizeof value);
  const size_t start = 1 + sizeof value;
  fiscalon::CheckFormat(value, fiscalon::TextOf(data + start, size - start), fiscalon::LocaleOf(data[0]));
  return 0;
}
