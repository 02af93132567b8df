#include "core/values/format.h"
#include "core/values/integers.h"
#include "core/values/to_money.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

/// The amount at that many decimals, halves away from zero; nothing out of range.
std::optional<Money> RoundedAway(Money amount, int64_t unit) {
  const int64_t rest = amount.Units() % unit;
  const Money floor = Money::FromUnits(amount.Units() - rest);
  if (rest >= unit - rest)
    return ResultOf([&] { return floor + Money::FromUnits(unit); }, error_number::kOverflow);
  if (-rest >= unit + rest)
    return ResultOf([&] { return floor - Money::FromUnits(unit); }, error_number::kOverflow);
  return floor;
}

void CheckAmount(Money amount, const Locale& locale) {
  Law(ToMoney(Format(amount, "0.0000", locale), locale) == amount, "four decimals show an amount exactly");
  const std::optional<Money> cents = RoundedAway(amount, 100);
  for (const char* pattern : {"0.00", "#,###,###0.00", "Currency"}) {
    const std::optional<Money> back =
        ResultOf([&] { return ToMoney(Format(amount, pattern, locale), locale); }, error_number::kOverflow);
    Law(back == cents, "what Format shows in cents is read back");
  }
  const std::string field = Format(amount, "000000000000000000", locale);
  Law(field.size() == (amount < Money() ? 19u : 18u), "a whole amount fills its eighteen places");
}

void CheckText(std::string_view text, const Locale& locale) {
  const std::optional<Money> amount =
      ResultOf([&] { return ToMoney(text, locale); }, error_number::kTypeMismatch, error_number::kOverflow);
  Law(IsNumeric(text, locale) == amount.has_value(), "IsNumeric is what ToMoney takes");
  if (amount)
    CheckAmount(*amount, locale);

  const std::string shown = Format(text, "0.00", locale);
  Law(Format(shown, "0.00", locale) == shown, "what Format shows stays as it is");
  if (amount && shown.size() < 12) {
    const int64_t difference = ToMoney(shown, locale).Units() - amount->Units();
    Law(difference >= -50 && difference <= 50, "a text in cents is no farther than half a cent away");
  }

  const std::optional<int16_t> integer =
      ResultOf([&] { return ToInt16(text, locale); }, error_number::kTypeMismatch, error_number::kOverflow);
  if (integer) {
    Law(amount.has_value(), "a text that gives an integer is numeric");
    const int64_t difference = amount->Units() - int64_t{*integer} * 10000;
    Law(difference >= -5000 && difference <= 5000, "an integer is no farther than a half away");
  }
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 0)
    fiscalon::CheckText(fiscalon::TextOf(data + 1, size - 1), fiscalon::LocaleOf(data[0]));
  return 0;
}
