#include "frontends/terminal/button_views.h"

#include <algorithm>

namespace fiscalon::terminal {
namespace {

/// Before the caption and behind it: an edge and a blank.
constexpr int kButtonEdge = 2;
/// Before the caption of a toggle: its mark between edges, and a blank.
constexpr int kMark = 4;

int LengthOf(const AnyButton& button) {
  return static_cast<int>(button.PlainCaption().size());
}

}  // namespace

Size ButtonView::Wanted(int room, Grow /*grow*/) const {
  return {.width = std::min(room, LengthOf(button_) + 2 * kButtonEdge), .height = 1};
}

void ButtonView::Draw(Screen& screen, const Rect& place, Focused focused) {
  const bool enabled = IsEnabled();
  Style style = TextStyle(enabled);
  style.reverse = focused == Focused::Yes;
  style.bold = style.reverse;
  screen.Fill(place, {.style = style});
  PutCaption(screen, {place.x + kButtonEdge, place.y}, button_.ShownCaption(), style);
  screen.Put({place.x, place.y}, {.character = enabled ? U'[' : kDisabledEdge, .style = style});
  screen.Put({place.Right() - 1, place.y}, {.character = enabled ? U']' : kDisabledEdge, .style = style});
}

ShownControl ButtonView::Read(const Screen& seen, const Rect& place) const {
  return {.text = ReadCaption(seen, {place.x + kButtonEdge, place.y}, place.width - 2 * kButtonEdge),
          .enabled = seen.At({place.x, place.y}).character == U'['};
}

Size ToggleView::Wanted(int room, Grow /*grow*/) const {
  return {.width = std::min(room, LengthOf(toggle_) + kMark), .height = 1};
}

void ToggleView::Draw(Screen& screen, const Rect& place, Focused focused) {
  const bool enabled = IsEnabled();
  const bool round = toggle_.Kind() == ControlKind::OptionButton;
  const Style style = TextStyle(enabled);
  Style caption = style;
  caption.reverse = focused == Focused::Yes;
  const char32_t mark = !toggle_.Value() ? U' ' : round ? U'o' : U'x';
  screen.Put({place.x, place.y}, {.character = !enabled ? kDisabledEdge : round ? U'(' : U'[', .style = style});
  screen.Put({place.x + 1, place.y}, {.character = mark, .style = style});
  screen.Put({place.x + 2, place.y}, {.character = !enabled ? kDisabledEdge : round ? U')' : U']', .style = style});
  PutCaption(screen, {place.x + kMark, place.y}, toggle_.ShownCaption(), caption);
}

ShownControl ToggleView::Read(const Screen& seen, const Rect& place) const {
  return {.text = ReadCaption(seen, {place.x + kMark, place.y}, place.width - kMark),
          .checked = seen.At({place.x + 1, place.y}).character != U' ',
          .enabled = seen.At({place.x, place.y}).character != kDisabledEdge};
}

}  // namespace fiscalon::terminal
