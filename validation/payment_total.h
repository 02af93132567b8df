#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "validation/expectation.h"

namespace fiscalon {

/// The addends of a payment of Revenue Quebec source deductions, and the comparison of their total with the
/// amount to be paid. Where an addend comes twice the later one counts; one that never comes is 0.
class PaymentTotal {
 public:
  static constexpr size_t kAddends = 5;

  /// Keeps an addend of whole cents.
  void Keep(int addend, uint64_t cents);
  /// Keeps the number at the start of a field's value, as cents. Error 6 beyond the range of a float.
  void Keep(int addend, std::string_view value);

  /// Whether the total, written by "0.00" under the user's locale and read back with "." as its point, is the
  /// amount to be paid, both as `Money`. Error 6 where the amount to be paid is beyond `Money`.
  bool Makes(const Expectation& expected) const;

 private:
  /// Amounts up to here, 10 billion dollars each, are added and written without any loss.
  static constexpr uint64_t kLargestExact = 1'000'000'000'000;
  static constexpr uint64_t kInexact = UINT64_MAX;

  bool PlainlyMakes(const Expectation& expected) const;
  std::string Text(size_t addend) const;

  std::array<uint64_t, kAddends> cents_ = {};
  /// Dollars, as text, of the addends that are `kInexact`.
  std::map<size_t, std::string> texts_;
};

}  // namespace fiscalon
