#include "core/values/leading_number.h"

#include <algorithm>

#include "core/platform/runtime_error.h"
#include "core/values/decimal_text.h"

namespace fiscalon {

namespace {

/// Walks over the characters that count.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) { PassOver(); }

  /// The character here; a NUL at the end.
  char Here() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool AtDigit() const { return Here() >= '0' && Here() <= '9'; }

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

}  // namespace

double LeadingNumber(std::string_view text) {
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
