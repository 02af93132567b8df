#include "frontends/terminal/list_views.h"

#include <algorithm>

#include "core/forms/form.h"
#include "core/forms/usual_sizes.h"

namespace fiscalon::terminal {
namespace {

constexpr char32_t kMoreAbove = U'\u25B2';
constexpr char32_t kMoreBelow = U'\u25BC';
constexpr char32_t kOpens = U'\u25BC';
/// Before a row in a box: the edge and the mark of the selected row. Behind it is the other edge.
constexpr int kBeforeRow = 2;
constexpr int kBehindRow = 1;
/// Behind the row of a closed list: a blank, the arrow and the edge.
constexpr int kBehindCount = 3;

int RowsIn(const Rect& place) {
  return std::max(place.height - 1, 1);
}

/// Of "3/12".
int TotalIn(std::string_view count) {
  const size_t slash = count.rfind('/');
  int total = 0;
  for (size_t i = slash == std::string_view::npos ? count.size() : slash + 1; i < count.size(); ++i)
    if (count[i] >= '0' && count[i] <= '9')
      total = total * 10 + count[i] - '0';
  return total;
}

}  // namespace

void ListRows::Reveal(int row, int rowsSeen) {
  if (row >= 0)
    first_ = std::clamp(first_, std::max(row - rowsSeen + 1, 0), row);
  Scroll(0, rowsSeen);
}

void ListRows::Scroll(int rows, int rowsSeen) {
  first_ = std::clamp(first_ + rows, 0, std::max(list_.ListCount() - rowsSeen, 0));
}

void ListRows::Draw(Screen& screen, const Rect& place, int marked, Style markedStyle, bool enabled) const {
  const Style edge = {.ink = enabled ? Ink::Normal : Ink::Faint};
  const char32_t side = enabled ? U'\u2502' : U':';
  const int right = place.Right() - 1;
  for (int i = 0; i < RowsIn(place); ++i) {
    const int row = first_ + i;
    const int y = place.y + i;
    const bool isMarked = row == marked && row < list_.ListCount();
    Style text = {.ink = enabled ? Ink::Normal : Ink::Faint};
    Style room = {.ink = enabled ? Ink::Faint : Ink::Normal};
    if (isMarked) {
      text.bold = markedStyle.bold;
      text.reverse = room.reverse = markedStyle.reverse;
    }
    screen.Fill({.x = place.x + 1, .y = y, .width = place.width - 2, .height = 1}, {.style = room});
    screen.Put({place.x + 1, y}, {.character = isMarked ? U'>' : U' ', .style = text});
    const auto most = static_cast<size_t>(std::max(place.width - kBeforeRow - kBehindRow, 0));
    screen.Put({place.x + kBeforeRow, y}, list_.ShownRow(row).substr(0, most), text);
    screen.Put({place.x, y}, {.character = side, .style = edge});
    screen.Put({right, y}, {.character = side, .style = edge});
  }
  const int bottom = place.Bottom() - 1;
  if (first_ > 0)
    screen.Put({right, place.y}, {.character = kMoreAbove, .style = edge});
  if (first_ + RowsIn(place) < list_.ListCount())
    screen.Put({right, bottom - 1}, {.character = kMoreBelow, .style = edge});
  screen.Line({place.x, bottom}, place.width, edge);
  screen.Put({place.x, bottom}, {.character = U'\u2514', .style = edge});
  screen.Put({right, bottom}, {.character = U'\u2518', .style = edge});
  const std::string count = " " + Count(marked) + " ";
  screen.Put({right - 1 - static_cast<int>(count.size()), bottom}, count, edge);
}

int ListRows::RowAt(Point at, const Rect& place) const {
  const Rect rows = {.x = place.x + 1, .y = place.y, .width = place.width - 2, .height = RowsIn(place)};
  const int row = first_ + at.y - place.y;
  return rows.Holds(at) && row < list_.ListCount() ? row : ListControl::kNothingSelected;
}

std::optional<Point> ListRows::PlaceOf(int row, const Rect& place) const {
  if (row < first_ || row >= first_ + RowsIn(place) || row >= list_.ListCount())
    return std::nullopt;
  return Point{place.x + kBeforeRow, place.y + row - first_};
}

int ListRows::Width() const {
  size_t widest = 0;
  for (int row = 0; row < list_.ListCount(); ++row) widest = std::max(widest, list_.ShownRow(row).size());
  return static_cast<int>(widest);
}

std::string ListRows::Count(int marked) const {
  return std::to_string(marked + 1) + "/" + std::to_string(list_.ListCount());
}

Size DropDownView::Wanted(int room, Grow /*grow*/) const {
  constexpr int kLeast = 12;
  const int last = List().ListCount() - 1;
  const int around = 2 + static_cast<int>(Rows().Count(last).size()) + kBehindCount;
  return {.width = std::min(room, std::max(Rows().Width(), kLeast) + around), .height = 1};
}

void DropDownView::Draw(Screen& screen, const Rect& place, Focused focused) {
  if (focused == Focused::No)
    isOpen_ = false;
  const bool enabled = IsEnabled();
  Style text = TextStyle(enabled);
  text.reverse = focused == Focused::Yes && !isOpen_;
  Style room = RoomStyle(enabled);
  const std::string count = Rows().Count(List().ListIndex());
  const int behind = static_cast<int>(count.size()) + kBehindCount + 1;
  const auto most = static_cast<size_t>(std::max(place.width - 1 - behind, 0));
  screen.Fill(place, {.style = room});
  screen.Put({place.x + 1, place.y}, List().ShownText().substr(0, most), text);
  screen.Put({place.Right() - behind + 1, place.y}, count, room);
  screen.Put({place.Right() - 2, place.y}, {.character = kOpens});
  screen.Put({place.x, place.y}, {.character = enabled ? U'[' : kDisabledEdge});
  screen.Put({place.Right() - 1, place.y}, {.character = enabled ? U']' : kDisabledEdge});
}

Point DropDownView::CursorIn(const Rect& place) const {
  if (const auto row = isOpen_ ? Rows().PlaceOf(marked_, box_) : std::nullopt)
    return *row;
  return {place.x + 1, place.y};
}

void DropDownView::Open() {
  isOpen_ = List().ListCount() > 0;
  marked_ = std::max(List().ListIndex(), 0);
  box_ = {};
}

bool DropDownView::TakesKey(const KeyStroke& stroke) {
  constexpr int kF4 = key::kF1 + 3;
  if (isOpen_)
    return TakesKeyWhileOpen(stroke.keyCode);
  const bool opens = (stroke.keyCode == kF4 && stroke.shift == shift_state::kNone) ||
                     (stroke.keyCode == key::kDown && stroke.shift == shift_state::kAlt);
  if (opens)
    Open();
  return opens;
}

bool DropDownView::TakesKeyWhileOpen(int keyCode) {
  const int last = List().ListCount() - 1;
  switch (keyCode) {
    case key::kUp:
      marked_ = std::max(marked_ - 1, 0);
      break;
    case key::kDown:
      marked_ = std::min(marked_ + 1, last);
      break;
    case key::kPageUp:
      marked_ = std::max(marked_ - RowsIn(box_), 0);
      break;
    case key::kPageDown:
      marked_ = std::min(marked_ + RowsIn(box_), last);
      break;
    case key::kHome:
      marked_ = 0;
      break;
    case key::kEnd:
      marked_ = last;
      break;
    case key::kEnter:
      Pick(marked_);
      return true;
    case key::kTab:
      // The row that was selected stays so.
      isOpen_ = false;
      return false;
    default:
      isOpen_ = keyCode != key::kEscape && keyCode != key::kF1 + 3;
      break;
  }
  Rows().Reveal(marked_, RowsIn(box_));
  return true;
}

void DropDownView::Pick(int row) {
  isOpen_ = false;
  Acts().Pick(List(), row);
}

void DropDownView::Press(Point /*at*/, const Rect& /*place*/) {
  if (Acts().Press(List()))
    Open();
}

bool DropDownView::TurnWheel(int rows) {
  if (isOpen_)
    marked_ = std::clamp(marked_ + rows, 0, List().ListCount() - 1);
  return isOpen_;
}

void DropDownView::DrawOver(Screen& screen, const Rect& place) {
  if (!isOpen_)
    return;
  const Size extent = screen.Extent();
  const int below = extent.height - place.Bottom();
  const int above = place.y;
  const int wanted = List().ListCount() + 1;
  const bool hangsBelow = below >= wanted || below >= above;
  const bool isNew = box_.width == 0;
  box_.height = std::min(wanted, hangsBelow ? below : above);
  box_.width = std::min(extent.width, std::max(place.width, Rows().Width() + kBeforeRow + kBehindRow));
  box_.y = hangsBelow ? place.Bottom() : place.y - box_.height;
  box_.x = std::max(std::min(place.x, extent.width - box_.width), 0);
  if (isNew || !Rows().PlaceOf(marked_, box_))
    Rows().Reveal(marked_, RowsIn(box_));
  Rows().Draw(screen, box_, marked_, {.reverse = true}, true);
}

void DropDownView::PressOver(Point at) {
  if (const int row = Rows().RowAt(at, box_); row != ListControl::kNothingSelected)
    Pick(row);
}

std::optional<Point> DropDownView::PlaceOfRow(int row, const Rect& /*place*/) const {
  return isOpen_ ? Rows().PlaceOf(row, box_) : std::nullopt;
}

ShownControl DropDownView::Read(const Screen& seen, const Rect& place) const {
  const bool enabled = seen.At({place.x, place.y}).character != kDisabledEdge;
  const Point begin = {place.x + 1, place.y};
  const int length = LengthOfText(seen, begin, place.Right() - 2, enabled);
  const int countRight = place.Right() - kBehindCount;
  return {.text = seen.Text(begin, length),
          .items = TotalIn(seen.Text({begin.x + length, begin.y}, countRight - begin.x - length)),
          .enabled = enabled};
}

Size ListBoxView::Wanted(int room, Grow /*grow*/) const {
  constexpr int kFewestRows = 4;
  const int width = std::max(Rows().Width(), kCharactersOfList) + kBeforeRow + kBehindRow;
  return {.width = std::min(room, width),
          .height = std::clamp(List().ListCount(), kFewestRows, kRowsOfList + moreRows_) + 1};
}

void ListBoxView::Draw(Screen& screen, const Rect& place, Focused focused) {
  rowsSeen_ = RowsIn(place);
  const int selected = List().ListIndex();
  Rows().Reveal(revealed_ == selected ? ListControl::kNothingSelected : selected, rowsSeen_);
  revealed_ = selected;
  const bool hasFocus = focused == Focused::Yes;
  Rows().Draw(screen, place, selected, {.bold = !hasFocus, .reverse = hasFocus}, IsEnabled());
}

Point ListBoxView::CursorIn(const Rect& place) const {
  const auto row = Rows().PlaceOf(List().ListIndex(), place);
  return row ? *row : Point{place.x + kBeforeRow, place.y};
}

void ListBoxView::Press(Point at, const Rect& place) {
  const int row = Rows().RowAt(at, place);
  if (Acts().Press(List()) && row != ListControl::kNothingSelected && row < List().ListCount())
    Acts().Pick(List(), row);
}

bool ListBoxView::TurnWheel(int rows) {
  Rows().Scroll(rows, rowsSeen_);
  return List().ListCount() > rowsSeen_;
}

std::optional<Point> ListBoxView::PlaceOfRow(int row, const Rect& place) const {
  return Rows().PlaceOf(row, place);
}

ShownControl ListBoxView::Read(const Screen& seen, const Rect& place) const {
  ShownControl shown;
  shown.enabled = seen.At({place.x, place.y}).character != kDisabledEdge;
  // A mark that says that there is more may stand in the place of the edge, but at the left.
  for (int y = place.y; y < place.Bottom() - 1; ++y)
    if (seen.At({place.x + 1, y}).character == U'>') {
      const Point begin = {place.x + kBeforeRow, y};
      shown.text = seen.Text(begin, LengthOfText(seen, begin, place.Right() - kBehindRow, shown.enabled));
    }
  shown.items = TotalIn(seen.Text({place.x + 1, place.Bottom() - 1}, place.width - 2));
  return shown;
}

}  // namespace fiscalon::terminal
