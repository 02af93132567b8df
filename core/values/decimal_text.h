#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/values/money.h"

namespace fiscalon {

/// A number as its decimal digits: what all conversions between floats, amounts and texts go through, so that
/// each rounds once and on the digits that people see. The value is 0.DIGITS times ten to the power of `Point()`;
/// the digits have no zero at either end, and zero has none.
class DecimalText {
 public:
  /// Digits that are kept. No 64-bit float needs more to be told from its neighbours; of what lies beyond, one
  /// last digit 1 says that it is not all zeros.
  static constexpr size_t kCapacity = 800;

  /// Zero, ready to take digits.
  DecimalText() {}
  /// The 15 significant digits of a float. Minus zero has no sign. Error 6 for infinities and for what is no
  /// number.
  explicit DecimalText(double value);
  explicit DecimalText(Money value);
  DecimalText(const DecimalText&) = delete;
  DecimalText& operator=(const DecimalText&) = delete;

  bool IsNegative() const { return negative_; }
  std::string_view Digits() const { return {digits_.data(), count_}; }
  int64_t Point() const { return point_; }

  /// Reading: digits in their order, the point where it stands among them, then the end with the exponent.
  void AddDigit(char digit);
  void MarkPoint() { pointSeen_ = true; }
  void Finish(int64_t exponent);
  void SetNegative() { negative_ = true; }

  /// Cuts off what lies beyond that many decimals, halves away from zero. The sign stays even on a zero.
  void RoundHalfAway(int decimals);

  /// The number with its point moved that many places, as an integer, halves to even; nothing out of range.
  std::optional<int64_t> ScaledHalfEven(int decimals) const;

  /// The nearest 64-bit float; nothing beyond its range, and 0 below it.
  std::optional<double> ToDouble() const;

  /// Whether it is in the range of a 64-bit float.
  bool IsFinite() const { return point_ < kSurelyFinite || ToDouble().has_value(); }

  /// Whether plain notation would be too long: 10 to the power of 15 and more, or more than 15 decimals.
  bool NeedsExponent() const { return point_ > 15 || static_cast<int64_t>(count_) - point_ > 15; }

 private:
  /// The largest float is 0.1797... times ten to the power of 309.
  static constexpr int64_t kSurelyFinite = 309;

  void SetDigits(uint64_t value, int64_t exponent);
  std::optional<double> ShortToDouble() const;
  void DropTrailingZeros();

  bool negative_ = false;
  bool pointSeen_ = false;
  bool more_ = false;
  size_t count_ = 0;
  int64_t point_ = 0;
  // Only the first `count_` are ever read; the rest stays as it is found, which keeps the conversions fast.
  std::array<char, kCapacity + 1> digits_;
};

inline void DecimalText::AddDigit(char digit) {
  if (count_ == 0 && digit == '0') {
    point_ -= pointSeen_ ? 1 : 0;
    return;
  }
  point_ += pointSeen_ ? 0 : 1;
  if (count_ < kCapacity)
    digits_[count_++] = digit;
  else
    more_ = more_ || digit != '0';
}

}  // namespace fiscalon
