#include "frontends/terminal/text_view.h"

#include <algorithm>
#include <cstdlib>

#include "core/forms/form.h"
#include "core/forms/usual_sizes.h"

namespace fiscalon::terminal {
namespace {

constexpr char32_t kRoom = U'_';
constexpr char32_t kLineEnd = U'\u00B6';
constexpr char32_t kMoreBefore = U'\u00AB';
constexpr char32_t kMoreBehind = U'\u00BB';
/// At either side.
constexpr int kEdge = 1;
constexpr int kUnbroken = 1'000'000;

int Length(const WrappedLine& row) {
  return static_cast<int>(row.text.size());
}

}  // namespace

Size TextView::Wanted(int room, Grow grow) const {
  const int usual = CharactersOf(field_) + 2 * kEdge;
  const std::string& text = field_.Text();
  int longest = field_.IsMultiLine() ? 0 : static_cast<int>(text.size());
  if (field_.IsMultiLine())
    for (const WrappedLine& line : Wrapped(text, kUnbroken)) longest = std::max(longest, Length(line));
  // One cell more for the caret.
  const int wanted = grow == Grow::Yes ? std::max(usual, longest + 1 + 2 * kEdge) : usual;
  const int width = std::min(room, wanted);
  if (!field_.IsMultiLine())
    return {.width = width, .height = 1};
  const auto rows = Wrapped(text, width - 2 * kEdge - 1);
  return {.width = width, .height = std::max(static_cast<int>(rows.size()), kLinesOfText)};
}

std::vector<WrappedLine> TextView::Rows(const Rect& place) const {
  // One cell is left for the caret.
  const int room = place.width - 2 * kEdge;
  if (field_.IsMultiLine())
    return Wrapped(field_.Text(), room - 1);
  const auto& text = field_.Text();
  return {{.start = first_,
           .text = text.substr(std::min(static_cast<size_t>(first_), text.size()),
                               static_cast<size_t>(std::max(room, 0)))}};
}

int TextView::Begin(const Rect& place, const WrappedLine& row) const {
  const bool toRight = field_.Designed().alignment == Alignment::Right && !field_.IsMultiLine();
  const int spare = place.width - 2 * kEdge - 1 - Length(row);
  return place.x + kEdge + (toRight ? std::max(spare, 0) : 0);
}

size_t TextView::RowOf(const std::vector<WrappedLine>& rows, int position) {
  size_t row = rows.size() - 1;
  while (row > 0 && rows[row].start > position) --row;
  return row;
}

void TextView::ScrollTo(int position, int room) {
  const int length = static_cast<int>(field_.Text().size());
  first_ = std::clamp(first_, std::max(position - room + 1, 0), std::max(position, 0));
  // Nothing stands empty while there is text to show.
  first_ = std::min(first_, std::max(length + 1 - room, 0));
}

void TextView::Draw(Screen& screen, const Rect& place, Focused focused) {
  const bool enabled = IsEnabled();
  const bool locked = field_.Locked();
  if (!field_.IsMultiLine())
    ScrollTo(focused == Focused::Yes ? Caret() : 0, place.width - 2 * kEdge);
  const std::vector<WrappedLine> rows = Rows(place);
  const Style text = {.bold = StandsOut(), .ink = TextStyle(enabled).ink};
  screen.Fill(place, {.character = enabled && !locked ? kRoom : U' ', .style = RoomStyle(enabled)});
  // Code may select in a field that can't take the focus.
  const bool selects = focused == Focused::Yes || !field_.CanTakeFocus();
  const Selection selection = selects ? field_.Selected() : Selection{};
  const auto isSelected = [&](int position) { return position >= selection.start && position < selection.End(); };
  for (size_t i = 0; i < rows.size(); ++i) {
    const Point begin = {Begin(place, rows[i]), place.y + static_cast<int>(i)};
    for (int column = 0; column <= Length(rows[i]); ++column) {
      const bool isEnd = column == Length(rows[i]);
      if (isEnd && !rows[i].ends)
        break;
      Cell cell =
          isEnd ? Cell{kLineEnd, RoomStyle(enabled)} : Cell{GlyphOf(rows[i].text[static_cast<size_t>(column)]), text};
      cell.style.reverse = isSelected(rows[i].start + column);
      screen.Put({begin.x + column, begin.y}, cell);
    }
  }
  DrawEdges(screen, place, rows);
}

void TextView::DrawEdges(Screen& screen, const Rect& place, const std::vector<WrappedLine>& rows) const {
  const bool enabled = IsEnabled();
  const bool locked = field_.Locked();
  const bool isLine = !field_.IsMultiLine();
  char32_t left = !enabled ? kDisabledEdge : locked ? U'<' : U'[';
  char32_t right = locked ? U'>' : !enabled ? kDisabledEdge : U']';
  if (isLine && first_ > 0)
    left = kMoreBefore;
  if (isLine && rows[0].start + Length(rows[0]) < static_cast<int>(field_.Text().size()))
    right = kMoreBehind;
  for (int y = place.y; y < place.Bottom(); ++y) {
    screen.Put({place.x, y}, {.character = left});
    screen.Put({place.Right() - 1, y}, {.character = right});
  }
}

Point TextView::CursorIn(const Rect& place) const {
  const std::vector<WrappedLine> rows = Rows(place);
  const size_t row = RowOf(rows, Caret());
  const int column = std::clamp(Caret() - rows[row].start, 0, std::max(place.width - 2 * kEdge - 1, 0));
  return {Begin(place, rows[row]) + column, place.y + static_cast<int>(row)};
}

void TextView::Edit(const KeyStroke& stroke, const KeyOutcome& outcome) {
  Report(editor_.Key(field_, stroke, outcome.character), EditAct::Origin::Key);
}

bool TextView::TakesKey(const KeyStroke& stroke) {
  // What line editors have beside: it is no key to a handler, as copying is none.
  if (stroke.shift != shift_state::kControl)
    return false;
  switch (stroke.keyCode) {
    case 'U':
      Report(editor_.EraseToLineStart(field_), EditAct::Origin::Elsewhere);
      return true;
    case 'K':
      Report(editor_.EraseToLineEnd(field_), EditAct::Origin::Elsewhere);
      return true;
    case 'W':
      Report(editor_.EraseWordBefore(field_), EditAct::Origin::Elsewhere);
      return true;
    default:
      return false;
  }
}

void TextView::Paste(std::string_view text) {
  Report(editor_.Paste(field_, text), EditAct::Origin::Elsewhere);
}

void TextView::Report(const EditedText& edited, EditAct::Origin origin) {
  // The caret moves in a locked field too.
  if (edited.text == field_.Text())
    Acts().SelectText(field_, edited.selection);
  else if (!field_.Locked())
    Acts().EditText({.field = &field_, .text = edited.text, .selection = edited.selection, .origin = origin});
}

int TextView::PositionAt(Point at, const Rect& place) const {
  const std::vector<WrappedLine> rows = Rows(place);
  const auto last = static_cast<int>(rows.size()) - 1;
  const WrappedLine& row = rows[static_cast<size_t>(std::clamp(at.y - place.y, 0, last))];
  return row.start + std::clamp(at.x - Begin(place, row), 0, Length(row));
}

void TextView::Press(Point at, const Rect& place) {
  // A check may take the focus from the field and give it back: then its whole text is selected, and stays so.
  const bool here = Acts().Press(field_) && !Acts().IsFocusGiven();
  const bool onEdge = at.x == place.x || at.x == place.Right() - 1;
  dragFrom_ = -1;
  if (!here || onEdge)
    return;
  dragFrom_ = PositionAt(at, place);
  Acts().SelectText(field_, {.start = dragFrom_});
}

void TextView::Drag(Point at, const Rect& place) {
  if (dragFrom_ < 0 || !field_.Owner().IsUp() || field_.Owner().ActiveControl() != &field_)
    return;
  const int to = PositionAt(at, place);
  Acts().SelectText(field_, {.start = std::min(dragFrom_, to), .length = std::abs(to - dragFrom_)});
}

ShownControl TextView::Read(const Screen& seen, const Rect& place) const {
  ShownControl shown;
  shown.enabled = seen.At({place.x, place.y}).character != kDisabledEdge;
  shown.locked = seen.At({place.Right() - 1, place.y}).character == U'>';
  const int right = place.Right() - kEdge;
  for (int y = place.y; y < place.Bottom(); ++y) {
    int x = place.x + kEdge;
    // An amount stands at the right.
    while (!field_.IsMultiLine() && x < right && seen.At({x, y}).style.ink == RoomStyle(shown.enabled).ink) ++x;
    const int length = LengthOfText(seen, {x, y}, right, shown.enabled);
    for (int i = 0; i < length; ++i, ++x) {
      const Cell& cell = seen.At({x, y});
      shown.text += CharacterOf(cell.character);
      if (cell.style.reverse)
        shown.selection += CharacterOf(cell.character);
    }
    if (const Cell& end = seen.At({x, y}); x < right && end.character == kLineEnd) {
      shown.text += '\n';
      if (end.style.reverse)
        shown.selection += '\n';
    }
  }
  return shown;
}

}  // namespace fiscalon::terminal
