#include "frontends/win32/dialog_fonts.h"

#include <algorithm>
#include <iterator>
#include <system_error>

#include "frontends/win32/screen_scale.h"

namespace fiscalon::win32 {
namespace {

/// A font on a surface, while texts are measured by it.
class Ruler {
 public:
  Ruler(HDC surface, HFONT font) : surface_(surface), before_(::SelectObject(surface, font)) {}
  ~Ruler() { ::SelectObject(surface_, before_); }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;

 private:
  HDC surface_;
  HGDIOBJ before_;
};

HFONT NewFixedPitchFont(LOGFONTW font) {
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  constexpr std::wstring_view kFace = L"Courier New";
  std::fill(std::begin(font.lfFaceName), std::end(font.lfFaceName), L'\0');
  kFace.copy(font.lfFaceName, kFace.size());
  return ::CreateFontIndirectW(&font);
}

}  // namespace

DialogFonts::DialogFonts(int dotsPerInch) : dotsPerInch_(dotsPerInch), surface_(::CreateCompatibleDC(nullptr)) {
  LOGFONTW font = FontsOfSystem(dotsPerInch).lfMessageFont;
  plain_.reset(::CreateFontIndirectW(&font));
  fixedPitch_.reset(NewFixedPitchFont(font));
  font.lfWeight = FW_BOLD;
  bold_.reset(::CreateFontIndirectW(&font));
  // Without them everything would be of no size. The system says no reason.
  if (!surface_ || !plain_ || !fixedPitch_ || !bold_)
    throw std::system_error(ERROR_NO_SYSTEM_RESOURCES, std::system_category(), "the form has no fonts");

  constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int kCount = static_cast<int>(kLetters.size());
  base_.cx = (Extent(kLetters, FontKind::Plain).cx / (kCount / 2) + 1) / 2;
  base_.cy = LineHeight(FontKind::Plain);
}

HFONT DialogFonts::Font(FontKind kind) const {
  return kind == FontKind::Bold ? bold_.get() : kind == FontKind::FixedPitch ? fixedPitch_.get() : plain_.get();
}

SIZE DialogFonts::Extent(std::wstring_view text, FontKind kind) const {
  const Ruler ruler(surface_.get(), Font(kind));
  RECT room = {};
  ::DrawTextW(surface_.get(), text.data(), static_cast<int>(text.size()), &room, DT_CALCRECT | DT_NOPREFIX);
  return {room.right, room.bottom};
}

int DialogFonts::HeightWithin(int width, std::wstring_view text) const {
  const Ruler ruler(surface_.get(), Font(FontKind::Plain));
  RECT room = {0, 0, width, 0};
  ::DrawTextW(surface_.get(), text.data(), static_cast<int>(text.size()), &room,
              DT_CALCRECT | DT_NOPREFIX | DT_WORDBREAK | DT_EXPANDTABS);
  return room.bottom;
}

int DialogFonts::LineHeight(FontKind kind) const {
  const Ruler ruler(surface_.get(), Font(kind));
  TEXTMETRICW metrics = {};
  ::GetTextMetricsW(surface_.get(), &metrics);
  return metrics.tmHeight;
}

int DialogFonts::DigitsWidth(int digits, FontKind kind) const {
  constexpr int kMeasured = 10;
  return ::MulDiv(digits, Extent(L"0000000000", kind).cx, kMeasured);
}

}  // namespace fiscalon::win32
