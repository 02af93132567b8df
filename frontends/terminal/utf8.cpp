#include "frontends/terminal/utf8.h"

namespace fiscalon::terminal {

std::u32string DecodedUtf8(std::string_view utf8) {
  std::u32string decoded;
  for (const char byte : utf8) {
    const auto bits = static_cast<unsigned char>(byte);
    if ((bits & 0xC0) == 0x80 && !decoded.empty())
      decoded.back() = (decoded.back() << 6) | (bits & 0x3Fu);
    else
      decoded += static_cast<char32_t>(bits < 0x80   ? bits
                                       : bits < 0xE0 ? bits & 0x1F
                                       : bits < 0xF0 ? bits & 0x0F
                                                     : bits & 0x07);
  }
  return decoded;
}

void AppendUtf8(std::string& utf8, char32_t character) {
  const auto add = [&](char32_t byte) { utf8 += static_cast<char>(byte); };
  const auto follow = [&](int shift) { add(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | (character >> 6));
    follow(0);
  } else if (character < 0x10000) {
    add(0xE0 | (character >> 12));
    follow(6);
    follow(0);
  } else {
    add(0xF0 | (character >> 18));
    follow(12);
    follow(6);
    follow(0);
  }
}

}  // namespace fiscalon::terminal
