#include "core/values/leading_number.h"

#include <algorithm>
#include <optional>

#include "core/platform/runtime_error.h"
#include "core/values/decimal_text.h"
#include "core/values/scaled_float.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

/// Walks over the characters that count.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) { PassOver(); }

  /// The character here; a NUL at the end.
  char Here() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool AtDigit() const { return IsDigit(Here()); }

  char Take() {
    const char c = text_[at_++];
    PassOver();
    return c;
  }

  /// Takes a sign, if one stands here; true for a minus.
  bool TakeMinus() { return (Here() == '+' || Here() == '-') && Take() == '-'; }

 private:
  void PassOver() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\n')) ++at_;
  }

  std::string_view text_;
  size_t at_ = 0;
};

int64_t TakeExponent(Walk& walk) {
  constexpr int64_t kFarBeyond = 1'000'000'000'000;
  if (walk.Here() != 'e' && walk.Here() != 'E')
    return 0;
  walk.Take();
  const bool negative = walk.TakeMinus();
  int64_t exponent = 0;
  while (walk.AtDigit()) exponent = std::min(exponent * 10 + (walk.Take() - '0'), kFarBeyond);
  return negative ? -exponent : exponent;
}

/// The number of a text that is nothing but a short one: a sign, digits, a point. One division of two exact
/// floats gives it, so it is the nearest. Nothing for any other text.
std::optional<double> PlainNumber(std::string_view text) {
  constexpr size_t kMostCharacters = 16;
  if (text.empty() || text.size() > kMostCharacters)
    return std::nullopt;
  const bool negative = text.front() == '-';
  uint64_t integer = 0;
  size_t digits = 0;
  size_t point = text.size();
  for (size_t at = negative ? 1 : 0; at < text.size(); ++at) {
    const auto digit = static_cast<unsigned char>(text[at] - '0');
    if (digit <= 9) {
      integer = integer * 10 + digit;
      ++digits;
    } else if (text[at] == '.' && point == text.size()) {
      point = at;
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0)
    return std::nullopt;
  const size_t decimals = point == text.size() ? 0 : text.size() - point - 1;
  const double magnitude = static_cast<double>(integer) / kExactPowers[decimals];
  return negative ? -magnitude : magnitude;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  if (const std::optional<double> plain = PlainNumber(text))
    return *plain;
  Walk walk(text);
  DecimalText number;
  if (walk.TakeMinus())
    number.SetNegative();
  bool digitSeen = false;
  bool pointSeen = false;
  while (walk.AtDigit() || (walk.Here() == '.' && !pointSeen)) {
    const char c = walk.Take();
    if (c == '.') {
      pointSeen = true;
      number.MarkPoint();
    } else {
      digitSeen = true;
      number.AddDigit(c);
    }
  }
  if (!digitSeen)
    return 0;
  number.Finish(TakeExponent(walk));
  const std::optional<double> value = number.ToDouble();
  if (!value)
    Raise(error_number::kOverflow);
  return *value;
}

}  // namespace fiscalon
