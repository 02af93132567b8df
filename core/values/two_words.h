#pragma once

#include <compare>
#include <cstdint>

namespace fiscalon {

/// As much of an unsigned 128-bit integer as scaling a float takes, for machines whose compiler has none.
class TwoWords {
 public:
  constexpr TwoWords() = default;
  // Converts by itself, as the integers do that it stands for.
  constexpr TwoWords(uint64_t value) : low_(value) {}  // NOLINT(google-explicit-constructor)

  explicit constexpr operator uint64_t() const { return low_; }

  friend constexpr bool operator==(const TwoWords&, const TwoWords&) = default;
  friend constexpr std::strong_ordering operator<=>(const TwoWords& a, const TwoWords& b) {
    return a.high_ != b.high_ ? a.high_ <=> b.high_ : a.low_ <=> b.low_;
  }

  friend constexpr TwoWords operator+(const TwoWords& a, const TwoWords& b) {
    const uint64_t low = a.low_ + b.low_;
    return {a.high_ + b.high_ + (low < a.low_ ? 1 : 0), low};
  }
  friend constexpr TwoWords operator-(const TwoWords& a, const TwoWords& b) {
    return {a.high_ - b.high_ - (a.low_ < b.low_ ? 1 : 0), a.low_ - b.low_};
  }
  friend constexpr TwoWords operator&(const TwoWords& a, const TwoWords& b) {
    return {a.high_ & b.high_, a.low_ & b.low_};
  }

  friend constexpr TwoWords operator*(const TwoWords& a, const TwoWords& b) {
    // Of the halves of the low words, and what the high words add.
    const uint64_t aLow = a.low_ & kHalf, aHigh = a.low_ >> 32;
    const uint64_t bLow = b.low_ & kHalf, bHigh = b.low_ >> 32;
    const uint64_t lowest = aLow * bLow;
    const uint64_t middle = aHigh * bLow + (lowest >> 32);
    const uint64_t otherMiddle = aLow * bHigh + (middle & kHalf);
    const uint64_t high = aHigh * bHigh + (middle >> 32) + (otherMiddle >> 32);
    return {high + a.high_ * b.low_ + a.low_ * b.high_, otherMiddle << 32 | (lowest & kHalf)};
  }

  /// By 0 to 127 bits.
  friend constexpr TwoWords operator<<(const TwoWords& a, int bits) {
    if (bits == 0)
      return a;
    if (bits >= 64)
      return {a.low_ << (bits - 64), 0};
    return {a.high_ << bits | a.low_ >> (64 - bits), a.low_ << bits};
  }
  friend constexpr TwoWords operator>>(const TwoWords& a, int bits) {
    if (bits == 0)
      return a;
    if (bits >= 64)
      return {0, a.high_ >> (bits - 64)};
    return {a.high_ >> bits, a.high_ << (64 - bits) | a.low_ >> bits};
  }

 private:
  static constexpr uint64_t kHalf = 0xFFFF'FFFF;

  constexpr TwoWords(uint64_t high, uint64_t low) : high_(high), low_(low) {}

  uint64_t high_ = 0;
  uint64_t low_ = 0;
};

}  // namespace fiscalon
