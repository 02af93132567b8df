#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/records/field_values.h"

/// Quick looks at texts that hold nothing but digits, which is what nearly all fields of a good payment hold: eight
/// characters at a time, with 64-bit arithmetic alone.
namespace fiscalon {

inline constexpr uint64_t kNoDigits = UINT64_MAX;

static_assert(kValueWidth == 18, "values are taken as eight characters, eight more and two");

/// Eight characters as one number, the first in the lowest byte.
inline uint64_t LoadEight(const char* text) {
  uint64_t eight = 0;
  std::memcpy(&eight, text, sizeof eight);
  if constexpr (std::endian::native == std::endian::big)
    eight = __builtin_bswap64(eight);
  return eight;
}

/// The same of a text that is known, and the first in the highest byte: such numbers compare as the texts do.
constexpr uint64_t InOrder(std::string_view eight) {
  uint64_t number = 0;
  for (const char c : eight) number = number << 8 | static_cast<unsigned char>(c);
  return number;
}
inline uint64_t InOrder(const char* eight) {
  return __builtin_bswap64(LoadEight(eight));
}

constexpr uint64_t InAllEight(char c) {
  return 0x0101010101010101u * static_cast<unsigned char>(c);
}

/// A bit pattern that is 0 where all eight are digits; otherwise its lowest set bit lies in the first
/// character that is none.
constexpr uint64_t OtherThanDigits(uint64_t eight) {
  // What is above "9" shows in the sum, what is below "0" or far above in the difference. Only what is no digit
  // carries or borrows, so the characters before it are not touched.
  return ((eight + InAllEight(0x7F - '9')) | (eight - InAllEight('0'))) & InAllEight('\x80');
}

constexpr bool AreDigits(uint64_t eight) {
  return OtherThanDigits(eight) == 0;
}

/// What is found in a text of eight characters or more, looked at eight at a time; the last eight may overlap those
/// before them. Every character is looked at, whatever was found before.
template <typename Look>
inline uint64_t InAnyEight(std::string_view text, const Look& look) {
  uint64_t found = look(LoadEight(text.data() + text.size() - sizeof(uint64_t)));
  for (size_t at = 0; at + sizeof(uint64_t) < text.size(); at += sizeof(uint64_t))
    found |= look(LoadEight(text.data() + at));
  return found;
}

/// Eight digits as four numbers of two digits, in bytes 0, 2, 4 and 6.
constexpr uint64_t DigitPairs(uint64_t eight) {
  return ((eight & 0x0F0F0F0F0F0F0F0Fu) * 2561 >> 8) & 0x00FF00FF00FF00FFu;
}

/// The number that eight digits write down: neighbours are joined in pairs, then in fours, then in eights.
constexpr uint64_t DigitsValue(uint64_t eight) {
  const uint64_t fours = (DigitPairs(eight) * 6553601 >> 16) & 0x0000FFFF0000FFFFu;
  return fours * 42949672960001 >> 32;
}

/// Whether the first ten of 18 characters are zeros, as they are in most numbers.
inline bool BeginWithTenZeros(const char* text) {
  return LoadEight(text) == InAllEight('0') && LoadEight(text + 2) == InAllEight('0');
}

/// Whether each of 18 characters lies between those of two other texts, which are ASCII.
inline bool AreBetween(const char* text, const char* lowest, const char* highest) {
  uint64_t outside = 0;
  for (const size_t at : {size_t{0}, size_t{8}, size_t{10}}) {
    const uint64_t eight = LoadEight(text + at);
    // As with digits.
    outside |= (eight + (InAllEight(0x7F) - LoadEight(highest + at))) | (eight - LoadEight(lowest + at)) | eight;
  }
  return (outside & InAllEight('\x80')) == 0;
}

/// The number that 18 digits write down.
inline uint64_t NumberOfDigits(const char* digits) {
  const uint64_t back = DigitsValue(LoadEight(digits + 10));
  // Most numbers are small: nothing but zeros in front of the last eight digits.
  if (BeginWithTenZeros(digits))
    return back;
  const uint64_t firstTwo = DigitPairs(LoadEight(digits)) & 0xFF;
  return (firstTwo * 100'000'000 + DigitsValue(LoadEight(digits + 2))) * 100'000'000 + back;
}

inline constexpr std::string_view kZeros = "000000000000000000";
inline constexpr std::string_view kNines = "999999999999999999";
static_assert(kZeros.size() == kValueWidth && kNines.size() == kValueWidth);

/// The number that 18 characters write down if they are digits, else `kNoDigits`.
inline uint64_t EighteenDigits(const char* text) {
  return AreBetween(text, kZeros.data(), kNines.data()) ? NumberOfDigits(text) : kNoDigits;
}

/// Whether 18 characters are all that one.
inline bool AreEighteen(const char* text, char c) {
  return LoadEight(text) == InAllEight(c) && LoadEight(text + 8) == InAllEight(c) && text[16] == c && text[17] == c;
}

}  // namespace fiscalon
