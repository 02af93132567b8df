#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

/// Short cuts over fields that hold nothing but digits, which is what nearly all fields of a good payment
/// hold. They look at eight characters at a time, with plain 64-bit arithmetic.
namespace fiscalon {

inline constexpr uint64_t kNoDigits = UINT64_MAX;

/// Eight characters as one number, the first in the lowest byte.
inline uint64_t LoadEight(const char* text) {
  uint64_t eight = 0;
  std::memcpy(&eight, text, sizeof eight);
  if constexpr (std::endian::native == std::endian::big)
    eight = __builtin_bswap64(eight);
  return eight;
}

constexpr uint64_t InAllEight(char c) {
  return 0x0101010101010101u * static_cast<unsigned char>(c);
}

constexpr bool AreDigits(uint64_t eight) {
  // A digit's upper half is 3, and stays 3 when 6 is added; 0x80 and more leave the upper half at once.
  return (((eight & 0xF0F0F0F0F0F0F0F0u) | (((eight + 0x0606060606060606u) & 0xF0F0F0F0F0F0F0F0u) >> 4)) ==
          0x3333333333333333u);
}

/// The number that eight digits write down: neighbours are joined in pairs, then in fours, then in eights.
constexpr uint64_t DigitsValue(uint64_t eight) {
  eight = (eight & 0x0F0F0F0F0F0F0F0Fu) * 2561 >> 8;
  eight = (eight & 0x00FF00FF00FF00FFu) * 6553601 >> 16;
  return (eight & 0x0000FFFF0000FFFFu) * 42949672960001 >> 32;
}

/// The number that exactly 18 digits write down; `kNoDigits` for any other text.
inline uint64_t EighteenDigits(std::string_view text) {
  if (text.size() != 18)
    return kNoDigits;
  const uint64_t first = LoadEight(text.data());
  const uint64_t second = LoadEight(text.data() + 8);
  const auto tens = static_cast<unsigned>(static_cast<unsigned char>(text[16]) - '0');
  const auto ones = static_cast<unsigned>(static_cast<unsigned char>(text[17]) - '0');
  if (!AreDigits(first) || !AreDigits(second) || tens > 9 || ones > 9)
    return kNoDigits;
  return (DigitsValue(first) * 100'000'000 + DigitsValue(second)) * 100 + tens * 10 + ones;
}

/// Whether the text is 18 times that character.
inline bool IsEighteenTimes(std::string_view text, char c) {
  return text.size() == 18 && LoadEight(text.data()) == InAllEight(c) && LoadEight(text.data() + 8) == InAllEight(c) &&
         text[16] == c && text[17] == c;
}

}  // namespace fiscalon
