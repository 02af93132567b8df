#include "frontends/terminal/screen.h"

#include <algorithm>
#include <array>

#include "core/platform/code_page.h"
#include "frontends/terminal/utf8.h"

namespace fiscalon::terminal {
namespace {

/// A control character must not reach the terminal: those of ASCII have pictures, and what means nothing in the code
/// page stands for itself in a range that is nobody's.
constexpr char32_t kPictures = 0x2400;
constexpr char32_t kPictureOfDelete = 0x2421;
constexpr char32_t kNobodys = 0xE000;

char32_t NewGlyphOf(unsigned char byte) {
  if (byte < 0x20)
    return kPictures + byte;
  if (byte == 0x7F)
    return kPictureOfDelete;
  const std::u32string decoded = DecodedUtf8(ToUtf8(std::string(1, static_cast<char>(byte))));
  return decoded[0] >= 0x80 && decoded[0] < 0xA0 ? kNobodys + byte : decoded[0];
}

const std::array<char32_t, 256>& Glyphs() {
  static const std::array<char32_t, 256> kGlyphs = [] {
    std::array<char32_t, 256> glyphs = {};
    for (size_t byte = 0; byte < glyphs.size(); ++byte) glyphs[byte] = NewGlyphOf(static_cast<unsigned char>(byte));
    return glyphs;
  }();
  return kGlyphs;
}

}  // namespace

char32_t GlyphOf(char character) {
  return Glyphs()[static_cast<unsigned char>(character)];
}

char CharacterOf(char32_t glyph) {
  if (glyph >= 0x20 && glyph < 0x7F)
    return static_cast<char>(glyph);
  const auto& glyphs = Glyphs();
  const auto* const found = std::find(glyphs.begin(), glyphs.end(), glyph);
  return found == glyphs.end() ? '?' : static_cast<char>(found - glyphs.begin());
}

Screen::Screen(Size size) : size_(size), cells_(static_cast<size_t>(size.width) * static_cast<size_t>(size.height)) {
  OpenAll();
}

const Cell& Screen::At(Point point) const {
  static const Cell kOutside;
  if (!Rect{.width = size_.width, .height = size_.height}.Holds(point))
    return kOutside;
  return cells_[static_cast<size_t>(point.y) * static_cast<size_t>(size_.width) + static_cast<size_t>(point.x)];
}

void Screen::Put(Point point, const Cell& cell) {
  if (open_.Holds(point) && Rect{.width = size_.width, .height = size_.height}.Holds(point))
    cells_[static_cast<size_t>(point.y) * static_cast<size_t>(size_.width) + static_cast<size_t>(point.x)] = cell;
}

void Screen::Put(Point point, std::string_view text, Style style) {
  for (const char character : text) {
    Put(point, {.character = GlyphOf(character), .style = style});
    ++point.x;
  }
}

void Screen::Fill(const Rect& rect, const Cell& cell) {
  for (int y = rect.y; y < rect.Bottom(); ++y)
    for (int x = rect.x; x < rect.Right(); ++x) Put({x, y}, cell);
}

void Screen::Line(Point from, int length, Style style) {
  Fill({.x = from.x, .y = from.y, .width = length, .height = 1}, {.character = U'\u2500', .style = style});
}

void Screen::Box(const Rect& rect, Style style) {
  const int right = rect.Right() - 1;
  const int bottom = rect.Bottom() - 1;
  Line({rect.x, rect.y}, rect.width, style);
  Line({rect.x, bottom}, rect.width, style);
  for (const int x : {rect.x, right})
    Fill({.x = x, .y = rect.y, .width = 1, .height = rect.height}, {.character = U'\u2502', .style = style});
  Put({rect.x, rect.y}, {.character = U'\u250C', .style = style});
  Put({right, rect.y}, {.character = U'\u2510', .style = style});
  Put({rect.x, bottom}, {.character = U'\u2514', .style = style});
  Put({right, bottom}, {.character = U'\u2518', .style = style});
}

std::string Screen::Text(Point from, int length) const {
  std::string text;
  for (int x = from.x; x < from.x + length; ++x) text += CharacterOf(At({x, from.y}).character);
  return text;
}

}  // namespace fiscalon::terminal
