#include "core/values/decimal_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/platform/runtime_error.h"
#include "core/values/scaled_float.h"

namespace fiscalon {

namespace {

constexpr int kFloatDigits = 15;
constexpr uint64_t kFloatDigitsBound = 1'000'000'000'000'000;

/// Sixteen digits at most: an integer below ten to the power of 15, and how many decimals it counts.
struct ScaledDigits {
  uint64_t value = 0;
  int decimals = 0;
};

/// The 15 digits of a float of everyday size by integer arithmetic; nothing for one too small or too large.
std::optional<ScaledDigits> DigitsByScaling(double magnitude) {
  constexpr double kLowest = 1e-7;
  if (!(magnitude >= kLowest && magnitude < kScaledBound))
    return std::nullopt;
  // Never above the decimal exponent, and one below it at most: 1233 / 4096 is just under the logarithm of 2.
  const int binaryExponent = static_cast<int>(std::bit_cast<uint64_t>(magnitude) >> 52) - 1023;
  for (int decimals = kFloatDigits - 1 - ((binaryExponent * 1233) >> 12); decimals >= 0; --decimals) {
    if (decimals > kMaxScale)
      continue;
    const WideInteger scaled = ScaledHalfEven(magnitude, decimals);
    if (scaled < kFloatDigitsBound)
      return ScaledDigits{static_cast<uint64_t>(scaled), decimals};
  }
  return std::nullopt;
}

}  // namespace

DecimalText::DecimalText(double value) : negative_(value < 0) {
  if (!std::isfinite(value))
    Raise(error_number::kOverflow);
  const double magnitude = std::fabs(value);
  if (magnitude == 0)
    return;
  if (const std::optional<ScaledDigits> scaled = DigitsByScaling(magnitude)) {
    SetDigits(scaled->value, -scaled->decimals);
    return;
  }
  // "d.dddddddddddddde+XX"
  std::array<char, 32> text;
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, kFloatDigits - 1);
  digits_[0] = text[0];
  std::copy_n(text.data() + 2, kFloatDigits - 1, digits_.data() + 1);
  count_ = kFloatDigits;
  const char* exponent = text.data() + 1 + kFloatDigits + 1;
  int magnitudeOfExponent = 0;
  std::from_chars(exponent + 1, written.ptr, magnitudeOfExponent);
  point_ = (*exponent == '-' ? -magnitudeOfExponent : magnitudeOfExponent) + 1;
  DropTrailingZeros();
}

DecimalText::DecimalText(Money value) : negative_(value.Units() < 0) {
  const auto units = static_cast<uint64_t>(value.Units());
  if (units != 0)
    SetDigits(negative_ ? 0 - units : units, -Money::kDecimals);
}

/// Takes an integer's digits; `exponent` is the power of ten that it counts.
void DecimalText::SetDigits(uint64_t value, int64_t exponent) {
  count_ =
      static_cast<size_t>(std::to_chars(digits_.data(), digits_.data() + digits_.size(), value).ptr - digits_.data());
  point_ = static_cast<int64_t>(count_) + exponent;
  DropTrailingZeros();
}

void DecimalText::DropTrailingZeros() {
  while (count_ > 0 && digits_[count_ - 1] == '0') --count_;
}

void DecimalText::Finish(int64_t exponent) {
  if (more_)
    digits_[count_++] = '1';
  else
    DropTrailingZeros();
  point_ = count_ == 0 ? 0 : point_ + exponent;
}

void DecimalText::RoundHalfAway(int decimals) {
  const int64_t kept = point_ + decimals;
  if (kept >= static_cast<int64_t>(count_))
    return;
  const bool up = kept >= 0 && digits_[static_cast<size_t>(kept)] >= '5';
  count_ = static_cast<size_t>(std::max<int64_t>(kept, 0));
  if (!up) {
    DropTrailingZeros();
    if (count_ == 0)
      point_ = 0;
    return;
  }
  while (count_ > 0 && digits_[count_ - 1] == '9') --count_;
  if (count_ > 0) {
    ++digits_[count_ - 1];
  } else {
    digits_[count_++] = '1';
    ++point_;
  }
}

std::optional<int64_t> DecimalText::ScaledHalfEven(int decimals) const {
  constexpr int64_t kMostDigits = 19;
  const int64_t kept = point_ + decimals;
  if (count_ == 0 || kept < 0)
    return 0;
  if (kept > kMostDigits)
    return std::nullopt;
  const auto places = static_cast<size_t>(kept);
  uint64_t magnitude = 0;
  const size_t present = std::min(places, count_);
  for (size_t place = 0; place < present; ++place)
    magnitude = magnitude * 10 + static_cast<uint64_t>(digits_[place] - '0');
  magnitude *= static_cast<uint64_t>(kPowersOfTen[places - present]);
  if (places < count_) {
    const bool tie = digits_[places] == '5' && places + 1 == count_;
    const bool up = tie ? magnitude % 2 != 0 : digits_[places] >= '5';
    magnitude += up ? 1 : 0;
  }
  constexpr auto kLargest = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
  if (magnitude > kLargest + (negative_ ? 1 : 0))
    return std::nullopt;
  return static_cast<int64_t>(negative_ ? 0 - magnitude : magnitude);
}

/// The float where one operation on two that are exact gives it, which makes it the nearest: few digits, and a
/// power of ten that a float holds. Nothing otherwise.
std::optional<double> DecimalText::ShortToDouble() const {
  constexpr auto kLargestPower = static_cast<int64_t>(kExactPowers.size() - 1);
  const int64_t exponent = point_ - static_cast<int64_t>(count_);
  if (count_ > kFloatDigits || exponent < -kLargestPower || exponent > kLargestPower)
    return std::nullopt;
  uint64_t integer = 0;
  for (size_t place = 0; place < count_; ++place) integer = integer * 10 + static_cast<uint64_t>(digits_[place] - '0');
  const auto value = static_cast<double>(integer);
  return exponent < 0 ? value / kExactPowers[static_cast<size_t>(-exponent)]
                      : value * kExactPowers[static_cast<size_t>(exponent)];
}

std::optional<double> DecimalText::ToDouble() const {
  constexpr int64_t kFarBeyond = 400;
  const double sign = negative_ ? -1 : 1;
  if (count_ == 0 || point_ < -kFarBeyond)
    return sign * 0.0;
  if (const std::optional<double> magnitude = ShortToDouble())
    return sign * *magnitude;
  if (point_ > kFarBeyond)
    return std::nullopt;
  constexpr size_t kRoomForExponent = 16;
  std::array<char, kCapacity + kRoomForExponent> text;
  char* end = std::copy_n("0.", 2, text.data());
  end = std::copy_n(digits_.data(), count_, end);
  *end++ = 'e';
  end = std::to_chars(end, text.data() + text.size(), point_).ptr;
  double magnitude = 0;
  const std::errc error = std::from_chars(text.data(), end, magnitude).ec;
  if (std::isinf(magnitude) || (error == std::errc::result_out_of_range && point_ > 0))
    return std::nullopt;
  return sign * (error == std::errc() ? magnitude : 0.0);
}

}  // namespace fiscalon
