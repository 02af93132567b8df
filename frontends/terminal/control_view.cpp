#include "frontends/terminal/control_view.h"

#include <utility>

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"
#include "frontends/terminal/button_views.h"
#include "frontends/terminal/caption_views.h"
#include "frontends/terminal/list_views.h"
#include "frontends/terminal/text_view.h"

namespace fiscalon::terminal {

void ControlView::Press(Point /*at*/, const Rect& /*place*/) {
  pressed_ = acts_.Press(model_);
}

void ControlView::Release(Point at, const Rect& place) {
  if (std::exchange(pressed_, false) && place.Holds(at))
    acts_.Release(model_);
}

int ControlView::LengthOfText(const Screen& seen, Point from, int right, bool enabled) {
  int x = from.x;
  while (x < right && seen.At({x, from.y}).style.ink == TextStyle(enabled).ink) ++x;
  return x - from.x;
}

void ControlView::PutCaption(Screen& screen, Point at, std::string_view caption, Style style) {
  for (size_t i = 0; i < caption.size(); ++i) {
    const bool marked = caption[i] == '&' && i + 1 < caption.size();
    if (marked)
      ++i;
    Style own = style;
    own.underline = marked && caption[i] != '&';
    screen.Put(at, {.character = GlyphOf(caption[i]), .style = own});
    ++at.x;
  }
}

std::string ControlView::ReadCaption(const Screen& seen, Point from, int length) {
  std::string caption;
  for (int i = 0; i < length; ++i) {
    const Cell& cell = seen.At({from.x + i, from.y});
    if (cell.style.underline || cell.character == U'&')
      caption += '&';
    caption += CharacterOf(cell.character);
  }
  return caption;
}

std::unique_ptr<ControlView> MakeView(Control& control, WatchedActs& acts) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return std::make_unique<LabelView>(static_cast<Label&>(control), acts);
    case ControlKind::Frame:
      return std::make_unique<FrameView>(static_cast<Frame&>(control), acts);
    case ControlKind::Button:
      return std::make_unique<ButtonView>(static_cast<Button&>(control), acts);
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
      return std::make_unique<ToggleView>(static_cast<ToggleButton&>(control), acts);
    case ControlKind::TextField:
      return std::make_unique<TextView>(static_cast<TextField&>(control), acts);
    case ControlKind::DropDownList:
      return std::make_unique<DropDownView>(static_cast<DropDownList&>(control), acts);
    case ControlKind::ListBox:
      return std::make_unique<ListBoxView>(static_cast<ListBox&>(control), acts);
  }
  std::abort();
}

}  // namespace fiscalon::terminal
