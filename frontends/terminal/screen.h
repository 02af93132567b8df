#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscalon::terminal {

/// A place on the screen: columns and rows counted from 0, the upper left cell first.
struct Point {
  int x = 0;
  int y = 0;

  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;

  bool operator==(const Size&) const = default;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int Right() const { return x + width; }
  int Bottom() const { return y + height; }
  bool Holds(Point point) const { return point.x >= x && point.x < Right() && point.y >= y && point.y < Bottom(); }
  Rect Moved(int dx, int dy) const { return {.x = x + dx, .y = y + dy, .width = width, .height = height}; }
  bool operator==(const Rect&) const = default;
};

/// Colours stand only beside other marks: without any the screen says the same.
enum class Ink : unsigned char { Normal, Faint, Accent, Alarm };

/// How a cell looks.
struct Style {
  bool bold = false;
  bool underline = false;
  bool reverse = false;
  Ink ink = Ink::Normal;

  bool operator==(const Style&) const = default;
};

struct Cell {
  char32_t character = U' ';
  Style style = {};

  bool operator==(const Cell&) const = default;
};

/// What a terminal shows: cells, each with one character, and the cursor, if it is to be seen. What is put outside of
/// it, or outside of the part that is open, is not seen.
class Screen {
 public:
  explicit Screen(Size size = {});

  Size Extent() const { return size_; }
  const Cell& At(Point point) const;
  std::optional<Point> Cursor() const { return cursor_; }
  void Cursor(std::optional<Point> cursor) { cursor_ = cursor; }

  void Put(Point point, const Cell& cell);
  /// A text in the code page. What has no place on a screen, such as a line end, is put as a mark of its own.
  void Put(Point point, std::string_view text, Style style = {});
  void Fill(const Rect& rect, const Cell& cell);
  /// A line to the right.
  void Line(Point from, int length, Style style = {});
  void Box(const Rect& rect, Style style = {});

  /// The text of cells that stand in a row, in the code page.
  std::string Text(Point from, int length) const;

  /// Only what lies within is changed by what is put, until it is opened again.
  void OpenOnly(const Rect& rect) { open_ = rect; }
  void OpenAll() { open_ = {.width = size_.width, .height = size_.height}; }

  bool operator==(const Screen& other) const {
    return size_ == other.size_ && cursor_ == other.cursor_ && cells_ == other.cells_;
  }

 private:
  Size size_;
  Rect open_;
  std::vector<Cell> cells_;
  std::optional<Point> cursor_;
};

/// What stands on a screen for a character of the code page. Each has another, so that a text can be read back.
char32_t GlyphOf(char character);
/// The character of the code page; "?" for what is none's.
char CharacterOf(char32_t glyph);

}  // namespace fiscalon::terminal
