#include "frontends/terminal/caption_views.h"

#include <algorithm>

#include "frontends/terminal/wrapped_text.h"

namespace fiscalon::terminal {
namespace {

/// From the corner to the heading of a frame: a dash and a blank.
constexpr int kBeforeHeading = 3;

}  // namespace

Size LabelView::Wanted(int room, Grow /*grow*/) const {
  const auto lines = Wrapped(label_.ShownCaption(), room - 1, LineEnds::AreCharacters);
  size_t widest = 0;
  for (const WrappedLine& line : lines) widest = std::max(widest, line.text.size());
  return {.width = static_cast<int>(widest) + 1, .height = static_cast<int>(lines.size())};
}

void LabelView::Draw(Screen& screen, const Rect& place, Focused /*focused*/) {
  Style style = TextStyle(IsEnabled());
  style.bold = StandsOut();
  screen.Fill(place, {.style = style});
  int y = place.y;
  for (const WrappedLine& line : Wrapped(label_.ShownCaption(), place.width - 1, LineEnds::AreCharacters)) {
    const int spare = place.width - 1 - static_cast<int>(line.text.size());
    const bool toRight = label_.Designed().alignment == Alignment::Right;
    screen.Put({place.x + (toRight ? spare : 0), y++}, line.text, style);
  }
}

ShownControl LabelView::Read(const Screen& seen, const Rect& place) const {
  return {.text = seen.Text({place.x, place.y}, place.width - 1),
          .enabled = seen.At({place.x, place.y}).style.ink != Ink::Faint};
}

Size FrameView::Wanted(int room, Grow /*grow*/) const {
  return {.width = std::min(room, static_cast<int>(frame_.ShownCaption().size()) + 2 * kBeforeHeading), .height = 2};
}

void FrameView::Draw(Screen& screen, const Rect& place, Focused /*focused*/) {
  Style style = TextStyle(IsEnabled());
  screen.Box(place, style);
  if (frame_.ShownCaption().empty())
    return;
  style.bold = true;
  const auto room = static_cast<size_t>(std::max(place.width - 2 * kBeforeHeading, 0));
  const std::string heading = frame_.ShownCaption().substr(0, room);
  const int end = place.x + kBeforeHeading + static_cast<int>(heading.size());
  for (const int beside : {place.x + kBeforeHeading - 1, end}) screen.Put({beside, place.y}, Cell{});
  screen.Put({place.x + kBeforeHeading, place.y}, heading, style);
}

ShownControl FrameView::Read(const Screen& seen, const Rect& place) const {
  const Point begin = {place.x + kBeforeHeading, place.y};
  int length = 0;
  while (seen.At({begin.x + length, begin.y}).style.bold) ++length;
  return {.text = seen.Text(begin, length), .enabled = seen.At({place.x, place.y}).style.ink != Ink::Faint};
}

}  // namespace fiscalon::terminal
