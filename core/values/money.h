#pragma once

#include <compare>
#include <cstdint>

namespace fiscalon {

/// An amount of money: a 64-bit count of ten-thousandths of a dollar, so sums and comparisons are exact.
/// The range is -922,337,203,685,477.5808 to 922,337,203,685,477.5807.
class Money {
 public:
  static constexpr int kDecimals = 4;

  constexpr Money() = default;

  static constexpr Money FromUnits(int64_t tenThousandths) { return Money(tenThousandths); }

  /// The exact value of the float rounded to four decimals, halves to even. Error 6 out of range, for
  /// infinities and for what is no number.
  static Money FromDouble(double value);

  constexpr int64_t Units() const { return units_; }
  constexpr double ToDouble() const { return static_cast<double>(units_) / 10000; }

  /// Arithmetic raises error 6 out of range.
  Money operator-() const;
  friend Money operator+(Money a, Money b);
  friend Money operator-(Money a, Money b);
  Money& operator+=(Money other) { return *this = *this + other; }
  Money& operator-=(Money other) { return *this = *this - other; }

  friend constexpr auto operator<=>(Money, Money) = default;

 private:
  constexpr explicit Money(int64_t units) : units_(units) {}

  int64_t units_ = 0;
};

}  // namespace fiscalon
