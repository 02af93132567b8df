#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "core/values/two_words.h"

namespace fiscalon {

/// An unsigned integer of 128 bits: the compiler's own where it has one, since a batch scales a lot.
#ifdef __SIZEOF_INT128__
__extension__ using WideInteger = unsigned __int128;
#else
using WideInteger = TwoWords;
#endif

/// The largest number of decimals, and the bound of the value, that `ScaledHalfEven` can do exactly.
inline constexpr int kMaxScale = 22;
inline constexpr double kScaledBound = 1e15;

template <typename Wide>
constexpr std::array<Wide, kMaxScale + 1> PowersOfTen() {
  std::array<Wide, kMaxScale + 1> powers = {1};
  for (size_t exponent = 1; exponent < powers.size(); ++exponent) powers[exponent] = powers[exponent - 1] * 10;
  return powers;
}

template <typename Wide>
inline constexpr std::array<Wide, kMaxScale + 1> kPowersOfTenAs = PowersOfTen<Wide>();

inline constexpr const std::array<WideInteger, kMaxScale + 1>& kPowersOfTen = kPowersOfTenAs<WideInteger>;

/// The powers of ten that a float holds exactly.
inline constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// A float times a power of ten, rounded to an integer, halves to even, with nothing lost on the way: the float
/// is an integer over a power of two, and its product with the power of ten still fits. The value lies from 0
/// to below `kScaledBound`, decimals from 0 to `kMaxScale`.
template <typename Wide = WideInteger>
inline Wide ScaledHalfEven(double value, int decimals) {
  constexpr int kMantissaBits = 52;
  constexpr int kExponentOfOne = 1075;
  constexpr uint64_t kHiddenBit = uint64_t{1} << kMantissaBits;
  const auto bits = std::bit_cast<uint64_t>(value);
  const auto exponent = static_cast<int>(bits >> kMantissaBits);
  const uint64_t mantissa = exponent == 0 ? bits : (bits & (kHiddenBit - 1)) | kHiddenBit;
  const int shift = kExponentOfOne - (exponent == 0 ? 1 : exponent);
  if (shift >= 128)
    return 0;
  const Wide product = mantissa * kPowersOfTenAs<Wide>[static_cast<size_t>(decimals)];
  const Wide half = Wide{1} << (shift - 1);
  const Wide whole = product >> shift;
  const Wide rest = product & (half * 2 - 1);
  return whole + (rest > half || (rest == half && (whole & 1) != 0) ? 1 : 0);
}

}  // namespace fiscalon
