#pragma once

#include <memory>
#include <string_view>

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

enum class FontKind { Plain, Bold, FixedPitch };

/// The fonts of a form's window at one scale, and what is measured by them.
class DialogFonts {
 public:
  /// Throws `std::system_error` where the system has no room for them.
  explicit DialogFonts(int dotsPerInch);

  int DotsPerInch() const { return dotsPerInch_; }
  HFONT Font(FontKind kind) const;

  // Dialog units, in which the system's own dialogs are measured, as pixels: a quarter of a character's mean width and
  // an eighth of its height.
  int X(int units) const { return ::MulDiv(units, base_.cx, 4); }
  int Y(int units) const { return ::MulDiv(units, base_.cy, 8); }

  /// How much room a text takes, of several lines perhaps.
  SIZE Extent(std::wstring_view text, FontKind kind) const;
  /// How high a plain text is whose lines are broken at that width.
  int HeightWithin(int width, std::wstring_view text) const;
  int LineHeight(FontKind kind) const;
  /// Of a field of one line, and of what stands beside it.
  int FieldHeight() const { return LineHeight(FontKind::Plain) + Y(4); }
  /// Of so many digits.
  int DigitsWidth(int digits, FontKind kind) const;

 private:
  struct Deleter {
    using pointer = HFONT;
    void operator()(HFONT font) const { ::DeleteObject(font); }
  };
  using OwnedFont = std::unique_ptr<HFONT, Deleter>;

  struct Surface {
    using pointer = HDC;
    void operator()(HDC surface) const { ::DeleteDC(surface); }
  };

  int dotsPerInch_;
  /// What texts are measured on.
  std::unique_ptr<HDC, Surface> surface_;
  OwnedFont plain_, bold_, fixedPitch_;
  SIZE base_ = {};
};

}  // namespace fiscalon::win32
