#include "core/platform/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>

namespace fiscalon {

namespace {

constexpr uint8_t kBlockStart = 0x80;

/// The characters of bytes 0x80 to 0x9F; all other bytes are the character of the same number.
constexpr std::array<char32_t, 32> kBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char ByteOf(char32_t character) {
  if (character < kBlockStart || (character >= kBlockStart + kBlock.size() && character <= 0xFF))
    return static_cast<char>(character);
  const auto at = std::find(kBlock.begin(), kBlock.end(), character);
  return at == kBlock.end() ? '?' : static_cast<char>(kBlockStart + (at - kBlock.begin()));
}

char32_t CharacterOf(char byte) {
  const auto value = static_cast<uint8_t>(byte);
  const size_t inBlock = static_cast<size_t>(value) - kBlockStart;
  return value >= kBlockStart && inBlock < kBlock.size() ? kBlock[inBlock] : value;
}

/// What a lead byte announces: how many bytes follow, the bits of its own, and the range of the first that
/// follows, which is where overlong forms, surrogates and numbers past the last character are kept out.
struct Lead {
  int following = 0;
  char32_t bits = 0;
  uint8_t from = 0x80;
  uint8_t to = 0xBF;
};

std::optional<Lead> LeadOf(uint8_t byte) {
  if (byte >= 0xC2 && byte <= 0xDF)
    return Lead{.following = 1, .bits = byte & 0x1Fu};
  if (byte >= 0xE0 && byte <= 0xEF)
    return Lead{.following = 2,
                .bits = byte & 0x0Fu,
                .from = static_cast<uint8_t>(byte == 0xE0 ? 0xA0 : 0x80),
                .to = static_cast<uint8_t>(byte == 0xED ? 0x9F : 0xBF)};
  if (byte >= 0xF0 && byte <= 0xF4)
    return Lead{.following = 3,
                .bits = byte & 0x07u,
                .from = static_cast<uint8_t>(byte == 0xF0 ? 0x90 : 0x80),
                .to = static_cast<uint8_t>(byte == 0xF4 ? 0x8F : 0xBF)};
  return std::nullopt;
}

/// Takes the character, or the longest start of one, that begins at `at`, and moves behind it.
char TakeCharacter(std::string_view utf8, size_t& at) {
  const auto first = static_cast<uint8_t>(utf8[at++]);
  if (first < 0x80)
    return static_cast<char>(first);
  const std::optional<Lead> lead = LeadOf(first);
  if (!lead)
    return '?';
  char32_t character = lead->bits;
  for (int i = 0; i < lead->following; ++i, ++at) {
    const auto next = at < utf8.size() ? static_cast<uint8_t>(utf8[at]) : uint8_t{0};
    if (next < (i == 0 ? lead->from : 0x80) || next > (i == 0 ? lead->to : 0xBF))
      return '?';
    character = character << 6 | (next & 0x3Fu);
  }
  return ByteOf(character);
}

}  // namespace

std::string FromUtf8(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  for (size_t at = 0; at < utf8.size();) text += TakeCharacter(utf8, at);
  return text;
}

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size() + text.size() / 4);
  for (const char byte : text) {
    const char32_t character = CharacterOf(byte);
    if (character < 0x80) {
      utf8 += byte;
      continue;
    }
    if (character < 0x800) {
      utf8 += static_cast<char>(0xC0 | character >> 6);
    } else {
      utf8 += static_cast<char>(0xE0 | character >> 12);
      utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    }
    utf8 += static_cast<char>(0x80 | (character & 0x3F));
  }
  return utf8;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char UpperCase(char character) {
  const int code = static_cast<unsigned char>(character);
  const bool latin = code >= 0xE0 && code <= 0xFE && code != 0xF7;
  if ((code >= 'a' && code <= 'z') || latin)
    return static_cast<char>(code - 0x20);
  switch (code) {
    case 0x9A:
    case 0x9C:
    case 0x9E:
      return static_cast<char>(code - 0x10);
    case 0xFF:
      return '\x9F';
    default:
      return character;
  }
}

}  // namespace fiscalon
