#include "frontends/win32/button_views.h"

#include <algorithm>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/watched_acts.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon::win32 {

bool AnyButtonView::MousePressed(UINT message, POINT /*place*/) {
  const bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  const AfterPress after = left ? Press() : AfterPress::Over;
  // A check has shown a box and let the focus go: the button came up meanwhile, and the click is completed.
  if (after == AfterPress::Interrupted)
    Clicked();
  return after != AfterPress::Goes;
}

LRESULT AnyButtonView::Message(UINT message, WPARAM wide, LPARAM extra) {
  // An option button notifies a click of its own accord when the focus comes: only one by mouse counts, or by a
  // program that makes the same messages.
  const ScopedValue releasing(releasing_, message == WM_LBUTTONUP);
  return ControlView::Message(message, wide, extra);
}

void AnyButtonView::Notified(int code) {
  if (code == BN_CLICKED && releasing_)
    Clicked();
}

AccessibleSource::Answer AnyButtonView::ClickLater() {
  return DoLater([this] { ::SendMessageW(Window(), BM_CLICK, 0, 0); });
}

void AnyButtonView::Clicked() {
  Acts().Clicked(button_);
  if (button_.Owner().IsUp())
    Refresh();
}

void AnyButtonView::Refresh() {
  ControlView::Refresh();
  ShowText(ToWide(button_.ShownCaption()));
}

ShownControl AnyButtonView::Content() const {
  return {.text = FromWide(TextOfWindow(Window())), .checked = Native(BM_GETCHECK, 0, 0) == BST_CHECKED};
}

SIZE AnyButtonView::ExtentOfCaption(const DialogFonts& fonts) const {
  return fonts.Extent(ToWide(button_.PlainCaption()), Font());
}

ControlView::Design ButtonView::Designed() const {
  return {.windowClass = L"BUTTON", .style = BS_PUSHBUTTON};
}

SIZE ButtonView::Wanted(const DialogFonts& fonts) const {
  constexpr int kLeast = 50, kAroundCaption = 12;
  return {std::max<LONG>(fonts.X(kLeast), ExtentOfCaption(fonts).cx + fonts.X(kAroundCaption)), fonts.FieldHeight()};
}

LRESULT ButtonView::Message(UINT message, WPARAM wide, LPARAM extra) {
  const LRESULT result = AnyButtonView::Message(message, wide, extra);
  // Enter presses the button that has the focus, and looks like it.
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
    Native(BM_SETSTYLE, message == WM_SETFOCUS ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
  return result;
}

ControlView::Design ToggleView::Designed() const {
  // Which options exclude each other is the form's to say, and when a value changes.
  return {.windowClass = L"BUTTON",
          .style = static_cast<DWORD>(toggle_.Kind() == ControlKind::CheckBox ? BS_CHECKBOX : BS_RADIOBUTTON)};
}

SIZE ToggleView::Wanted(const DialogFonts& fonts) const {
  constexpr int kMark = 12, kHeight = 10, kAroundCaption = 3;
  const SIZE caption = ExtentOfCaption(fonts);
  return {fonts.X(kMark + (caption.cx > 0 ? kAroundCaption : 0)) + caption.cx,
          std::max<LONG>(fonts.Y(kHeight), caption.cy)};
}

void ToggleView::Refresh() {
  AnyButtonView::Refresh();
  const WPARAM value = toggle_.Value() ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(Native(BM_GETCHECK, 0, 0)) != value)
    Native(BM_SETCHECK, value, 0);
}

LRESULT ToggleView::Message(UINT message, WPARAM wide, LPARAM extra) {
  if (message != BM_SETCHECK)
    return AnyButtonView::Message(message, wide, extra);
  // Another program's mark. The form's comes with the next refresh.
  if (toggle_.Owner().IsUp() && (wide == BST_CHECKED) != toggle_.Value())
    Acts().Click(toggle_);
  if (toggle_.Owner().IsUp())
    Refresh();
  return 0;
}

POINT ToggleView::PointToPress() const {
  // On its mark.
  RECT area = {};
  ::GetClientRect(Window(), &area);
  return {area.bottom / 2, area.bottom / 2};
}

}  // namespace fiscalon::win32
