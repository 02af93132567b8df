#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "validation/expectation.h"

namespace fiscalon {

inline constexpr size_t kAddends = 5;

/// The addends of a payment of Revenue Quebec source deductions, and the comparison of their total with the
/// amount to be paid. Where an addend comes twice the later one counts; one that never comes is 0.
class PaymentTotal {
 public:
  /// Keeps the number at the start of a field's value, as cents. Error 6 beyond the range of a float.
  void Keep(int addend, std::string_view value);

  /// Whether the total, written by "0.00" under the user's locale and read back with "." as its point, is the
  /// amount to be paid, both as `Money`. `total` becomes what was written: empty where it is beyond `Money`. Error 6
  /// where the amount to be paid is.
  bool Equals(const Expectation& expected, std::string& total) const;

 private:
  /// Dollars, with "." as the point.
  std::array<std::string, kAddends> texts_;
};

/// The same as a quick test, for addends of whole cents.
class QuickTotal {
 public:
  void Keep(int addend, uint64_t cents) { cents_[static_cast<size_t>(addend)] = cents; }

  uint64_t Sum() const {
    uint64_t total = 0;
    for (const uint64_t cents : cents_) total += cents;
    return total;
  }

  /// Whether the total makes the amount to be paid for sure. False says nothing.
  bool Equals(const Expectation& expected) const {
    return Sum() == expected.paymentCents && IsExact() && IsReadBackAsWritten();
  }

  /// Whether the total is one of those, up to 10 billion dollars, that are added, written and read back without a loss.
  bool IsExact() const { return Sum() <= 1'000'000'000'000; }

  /// Whether totals are written with the point that they are read with.
  static bool IsReadBackAsWritten();

 private:
  std::array<uint64_t, kAddends> cents_ = {};
};

}  // namespace fiscalon
