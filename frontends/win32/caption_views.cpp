#include "frontends/win32/caption_views.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/forms/usual_sizes.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon::win32 {

namespace {

/// In frames an ampersand is one; Windows would take it for the mark of an access key.
std::wstring AsShown(std::wstring_view caption) {
  std::wstring shown;
  for (const wchar_t character : caption) shown.append(character == L'&' ? 2 : 1, character);
  return shown;
}

/// The other way round: the caption that is shown so.
std::wstring AsCaption(std::wstring_view shown) {
  std::wstring caption;
  for (size_t i = 0; i < shown.size(); ++i) {
    if (shown[i] == L'&' && i + 1 < shown.size())
      ++i;
    caption += shown[i];
  }
  return caption;
}

}  // namespace

LabelView::LabelView(Label& label, WatchedActs& acts) : ControlView(label, acts), label_(label) {
  if (label.Designed().bold)
    StandOut();
}

ControlView::Design LabelView::Designed() const {
  const bool right = label_.Designed().alignment == Alignment::Right;
  return {.windowClass = L"STATIC", .style = SS_NOPREFIX | static_cast<DWORD>(right ? SS_RIGHT : SS_LEFTNOWORDWRAP)};
}

SIZE LabelView::Wanted(const DialogFonts& fonts) const {
  SIZE wanted = fonts.Extent(ToWide(label_.ShownCaption()), Font());
  // A value at the right ends beneath those of fields.
  if (label_.Designed().alignment == Alignment::Right)
    wanted.cx = std::max<LONG>(wanted.cx, fonts.DigitsWidth(kCharactersOfAmount, Font()) + fonts.X(4));
  return wanted;
}

void LabelView::Refresh() {
  ControlView::Refresh();
  ShowText(ToWide(label_.ShownCaption()));
}

ShownControl LabelView::Content() const {
  return {.text = FromWide(TextOfWindow(Window()))};
}

ControlView::Design FrameView::Designed() const {
  return {.windowClass = L"BUTTON", .style = BS_GROUPBOX};
}

SIZE FrameView::Wanted(const DialogFonts& fonts) const {
  return fonts.Extent(ToWide(frame_.ShownCaption()), Font());
}

void FrameView::Refresh() {
  ControlView::Refresh();
  ShowText(AsShown(ToWide(frame_.ShownCaption())));
}

ShownControl FrameView::Content() const {
  return {.text = FromWide(AsCaption(TextOfWindow(Window())))};
}

}  // namespace fiscalon::win32
