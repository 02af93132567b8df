#include "frontends/terminal/screen_writer.h"

#include <algorithm>
#include <array>
#include <optional>

#include "frontends/terminal/utf8.h"

namespace fiscalon::terminal {
namespace {

struct Substitute {
  char32_t glyph;
  char ascii;
};
// What is drawn, on terminals that know ASCII alone.
constexpr std::array kSubstitutes = {
    Substitute{U'\u2500', '-'}, Substitute{U'\u2502', '|'}, Substitute{U'\u250C', '+'}, Substitute{U'\u2510', '+'},
    Substitute{U'\u2514', '+'}, Substitute{U'\u2518', '+'}, Substitute{U'\u251C', '+'}, Substitute{U'\u2524', '+'},
    Substitute{U'\u25B2', '^'}, Substitute{U'\u25BC', 'v'}, Substitute{U'\u00B6', '$'}, Substitute{U'\u00AB', '{'},
    Substitute{U'\u00BB', '}'}, Substitute{U'\u00A0', ' '},
};

}  // namespace

std::string ScreenWriter::Update(const Screen& screen) {
  std::string bytes;
  const Size size = screen.Extent();
  const bool isNew = shown_.Extent() != size;
  if (isNew) {
    bytes += description_.Look({}) + description_.clear;
    shown_ = Screen(size);
  }
  std::optional<Point> cursor;
  std::optional<Style> style;
  const Point last = {size.width - 1, size.height - 1};
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x) {
      const Point at = {x, y};
      const Cell& cell = screen.At(at);
      // The last place is left alone: some terminals scroll when it is written.
      if (cell == shown_.At(at) || at == last)
        continue;
      if (bytes.empty())
        bytes += description_.hideCursor;
      if (cursor != at)
        bytes += description_.CursorTo(at);
      if (style != cell.style)
        bytes += description_.Look(cell.style);
      style = cell.style;
      AppendGlyph(bytes, cell.character);
      // Behind the last column terminals differ.
      cursor = x + 1 < size.width ? std::optional(Point{x + 1, y}) : std::nullopt;
    }
  if (bytes.empty() && screen.Cursor() == shown_.Cursor())
    return bytes;
  if (style)
    bytes += description_.Look({});
  if (screen.Cursor())
    bytes += description_.CursorTo(*screen.Cursor()) + description_.showCursor;
  else
    bytes += description_.hideCursor;
  shown_ = screen;
  return bytes;
}

void ScreenWriter::AppendGlyph(std::string& bytes, char32_t glyph) const {
  if (charset_ == Charset::Utf8)
    return AppendUtf8(bytes, glyph);
  const bool isLatin1 = charset_ == Charset::Latin1 && glyph >= 0xA0 && glyph <= 0xFF;
  if (glyph < 0x7F || isLatin1) {
    bytes += static_cast<char>(glyph);
    return;
  }
  const auto* const found =
      std::find_if(kSubstitutes.begin(), kSubstitutes.end(), [&](const Substitute& row) { return row.glyph == glyph; });
  bytes += found == kSubstitutes.end() ? '?' : found->ascii;
}

}  // namespace fiscalon::terminal
