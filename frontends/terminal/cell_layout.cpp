#include "frontends/terminal/cell_layout.h"

#include <algorithm>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

#include "core/forms/label.h"
#include "core/forms/usual_sizes.h"

namespace fiscalon::terminal {
namespace {

/// Between cells side by side; within a cell a label brings its own blank along.
constexpr int kBetweenCells = 2;
constexpr int kBetweenColumns = 3;
/// Of a frame: the edge and a blank.
constexpr int kInset = 2;
/// Captions are not broken into narrower ones.
constexpr int kNarrowestCaption = 16;
/// A field that stands beneath its caption.
constexpr int kIndent = 2;
constexpr int kAnyRoom = 100'000;

/// A cell with those that stand close behind it.
using Cells = std::span<const LaidOutCell>;

std::vector<Cells> CellsOf(const LaidOutRow& row) {
  std::vector<Cells> all;
  for (size_t first = 0; first < row.size();) {
    size_t end = first + 1;
    while (end < row.size() && row[end].isClose) ++end;
    all.emplace_back(row.data() + first, end - first);
    first = end;
  }
  return all;
}

bool IsCaptionAlone(const LaidOutCell& cell) {
  return cell.field == nullptr && cell.hint == nullptr;
}

bool BeginsWithoutCaption(const LaidOutCell& cell) {
  return cell.caption == nullptr && cell.field != nullptr && BeginsAtLeft(*cell.field);
}

/// What stands behind the first caption, in its order.
std::vector<const Control*> BehindCaption(Cells cells) {
  std::vector<const Control*> controls;
  for (size_t i = 0; i < cells.size(); ++i)
    for (const Control* control : {i == 0 ? nullptr : cells[i].caption, cells[i].field, cells[i].hint})
      if (control != nullptr)
        controls.push_back(control);
  return controls;
}

/// Behind the first, cells stand beneath each other only where rows have as many.
std::pair<size_t, size_t> KeyOf(size_t cell, size_t cells) {
  return {cell, cell == 0 ? 0 : cells};
}

/// Labels bring a blank along; behind others there is one.
int GapBehind(const Control& control) {
  return control.Kind() == ControlKind::Label ? 0 : 1;
}

}  // namespace

CellLayout::CellLayout(const std::vector<LaidOutGroup>& groups, const WantedBy& wantedBy, Size room)
    : wantedBy_(wantedBy) {
  std::map<int, Column> byNumber;
  for (const LaidOutGroup& group : groups) byNumber[group.column].push_back(&group);
  std::vector<Column> columns;
  columns.reserve(byNumber.size());
  for (auto& [number, column] : byNumber) columns.push_back(std::move(column));
  for (const Gaps gaps : {Gaps::Wide, Gaps::None}) {
    LayOutAsLowAsPossible(columns, room.width, gaps);
    if (extent_.height <= room.height)
      break;
  }
}

void CellLayout::LayOutAsLowAsPossible(const std::vector<Column>& columns, int room, Gaps gaps) {
  std::optional<CellLayout> best;
  for (const Way way : {Way::BreakCaptions, Way::FlowWideRows, Way::GroupsApart}) {
    way_ = way;
    LayOut(columns, room, true, gaps);
    if (columns.size() > 1 && extent_.width > room)
      LayOut(columns, room, false, gaps);
    const auto costs = [&](const CellLayout& layout) {
      return std::tuple(std::max(layout.extent_.width, room), layout.extent_.height, layout.rowsThatFlow_);
    };
    if (!best || costs(*this) < costs(*best))
      best = *this;
  }
  *this = std::move(*best);
}

void CellLayout::LayOut(const std::vector<Column>& columns, int room, bool sideBySide, Gaps gaps) {
  places_.clear();
  rowsThatFlow_ = 0;
  extent_ = {};
  Point at;
  for (const Column& column : columns) {
    const int own = sideBySide && columns.size() > 1 ? kAnyRoom : room;
    const Size size = PlaceColumn(column, at, own, gaps);
    extent_ = {.width = std::max(extent_.width, at.x + size.width),
               .height = std::max(extent_.height, at.y + size.height)};
    if (sideBySide)
      at.x += size.width + kBetweenColumns;
    else
      at.y += size.height + (gaps == Gaps::Wide ? 1 : 0);
  }
}

void CellLayout::Place(const Control& control, Point at, Size size) {
  places_[&control] = {.x = at.x, .y = at.y, .width = size.width, .height = size.height};
}

int CellLayout::CaptionWidth(const LaidOutGroup& group) const {
  int width = 0;
  for (const LaidOutRow& row : group.rows)
    if (!row.empty() && row.front().caption != nullptr && !IsCaptionAlone(row.front()))
      width = std::max(width, wantedBy_(*row.front().caption, kAnyRoom, Grow::No).width);
  return width;
}

int CellLayout::CaptionWidth(const Column& groups, int room) const {
  const auto insetOf = [](const LaidOutGroup& group) { return group.frame == nullptr ? 0 : kInset; };
  int captions = 0;
  for (const LaidOutGroup* group : groups) captions = std::max(captions, CaptionWidth(*group) + insetOf(*group));
  // Captions are broken where that lets the fields stand beside them.
  for (const LaidOutGroup* group : groups) {
    const int inset = insetOf(*group);
    while (captions - inset > kNarrowestCaption && !FitsGrid(*group, room - 2 * inset, captions - inset)) --captions;
  }
  return captions;
}

Size CellLayout::PlaceColumn(const Column& column, Point at, int room, Gaps gaps) {
  const int aligned = way_ == Way::GroupsApart ? 0 : CaptionWidth(column, room);
  std::vector<std::pair<const Frame*, Rect>> frames;
  const Frame* open = nullptr;
  int width = 0;
  int y = at.y;
  const auto close = [&] {
    if (std::exchange(open, nullptr) != nullptr)
      frames.back().second.height = ++y - frames.back().second.y;
  };
  for (const LaidOutGroup* group : column) {
    const bool goesOn = group->frame != nullptr && group->frame == open;
    if (!goesOn)
      close();
    if (group != column.front() && !goesOn && gaps == Gaps::Wide)
      ++y;
    if (group->frame != nullptr && !goesOn) {
      open = group->frame;
      frames.emplace_back(open, Rect{.x = at.x, .y = y++});
    }
    const int inset = group->frame == nullptr ? 0 : kInset;
    const int captions = way_ == Way::GroupsApart ? CaptionWidth({group}, room) : aligned;
    const Size size = PlaceGroup(*group, {at.x + inset, y}, room - 2 * inset, captions - inset);
    y += size.height;
    width = std::max(width, size.width + 2 * inset);
  }
  close();
  for (const auto& [frame, place] : frames) width = std::max(width, wantedBy_(*frame, room, Grow::No).width);
  for (const auto& [frame, place] : frames) Place(*frame, {place.x, place.y}, {.width = width, .height = place.height});
  return {.width = width, .height = y - at.y};
}

Size CellLayout::PlaceGroup(const LaidOutGroup& group, Point at, int room, int captions) {
  int y = at.y;
  if (group.heading != nullptr && group.heading->Kind() != ControlKind::Frame) {
    const Size size = wantedBy_(*group.heading, room, Grow::No);
    Place(*group.heading, at, size);
    y += size.height;
  }
  const Point rows = {at.x, y};
  y += FitsGrid(group, room, captions) ? PlaceInGrid(group, rows, room, captions) : PlaceFlowing(group, rows, room);
  int right = at.x;
  const auto mind = [&](const Control* control) {
    if (const auto placed = places_.find(control); placed != places_.end())
      right = std::max(right, placed->second.Right());
  };
  mind(group.heading != nullptr && group.heading->Kind() != ControlKind::Frame ? group.heading : nullptr);
  for (const LaidOutRow& row : group.rows)
    for (const LaidOutCell& cell : row)
      for (const Control* control : {cell.caption, cell.field, cell.hint}) mind(control);
  return {.width = right - at.x, .height = y - at.y};
}

bool CellLayout::FitsGrid(const LaidOutGroup& group, int room, int captions) const {
  const GridWidths widths = WidthsOf(group, room, captions);
  return std::all_of(group.rows.begin(), group.rows.end(),
                     [&](const LaidOutRow& row) { return MayFlow(row) || FitsGrid(row, room, widths); });
}

bool CellLayout::FitsGrid(const LaidOutRow& row, int room, const GridWidths& widths) const {
  CellLayout tried;
  tried.wantedBy_ = wantedBy_;
  return tried.PlaceGridRow(row, {}, room, widths, 0).width <= room;
}

bool CellLayout::MayFlow(const LaidOutRow& row) const {
  return way_ != Way::BreakCaptions && CellsOf(row).size() > 1;
}

CellLayout::GridWidths CellLayout::WidthsOf(const LaidOutGroup& group, int room, int captions) const {
  GridWidths widths;
  for (const LaidOutRow& row : group.rows) {
    const std::vector<Cells> all = CellsOf(row);
    for (size_t i = 0; i < all.size(); ++i) {
      auto& [caption, fields] = widths[KeyOf(i, all.size())];
      const LaidOutCell& cell = all[i].front();
      if (i == 0)
        caption = captions;
      else if (cell.caption != nullptr && !IsCaptionAlone(cell))
        caption = std::max(caption, wantedBy_(*cell.caption, kAnyRoom, Grow::No).width);
      int behind = 0;
      for (const Control* control : BehindCaption(all[i]))
        behind += UsualOf(*control, room - caption).width + GapBehind(*control);
      if (!BeginsWithoutCaption(cell))
        fields = std::max(fields, behind);
    }
  }
  return widths;
}

Size CellLayout::UsualOf(const Control& control, int room) const {
  // What grows wide takes the room that the line leaves; others are as wide as they are.
  return wantedBy_(control, GrowsWide(control) ? std::max(room, 1) : kAnyRoom, Grow::No);
}

int CellLayout::PlaceInGrid(const LaidOutGroup& group, Point at, int room, int captions) {
  const GridWidths widths = WidthsOf(group, room, captions);
  Point row = at;
  for (const LaidOutRow& cells : group.rows) {
    const GridWidths* own = &widths;
    GridWidths loose;
    if (MayFlow(cells) && !FitsGrid(cells, room, widths)) {
      // Without a column for its further cells, if that does.
      for (size_t i = 0; i < cells.size(); ++i) loose[KeyOf(i, CellsOf(cells).size())] = {i == 0 ? captions : 0, 0};
      own = &loose;
      ++rowsThatFlow_;
      if (!FitsGrid(cells, room, loose)) {
        row.y += PlaceFlowing(cells, row, room);
        continue;
      }
    }
    const Size usual = PlaceGridRow(cells, row, room, *own, 0);
    // Fields take of the room that is left what their texts need.
    row.y += PlaceGridRow(cells, row, room, *own, std::max(room - usual.width, 0)).height;
  }
  return row.y - at.y;
}

Size CellLayout::PlaceGridRow(const LaidOutRow& row, Point at, int room, const GridWidths& widths, int spare) {
  const std::vector<Cells> all = CellsOf(row);
  int x = at.x;
  int right = x;
  int height = 1;
  std::vector<std::pair<const Control*, int>> onLastLine;
  for (size_t i = 0; i < all.size(); ++i) {
    const auto [caption, fields] = widths.at(KeyOf(i, all.size()));
    const LaidOutCell& cell = all[i].front();
    if (cell.caption != nullptr) {
      const int own = IsCaptionAlone(cell) ? room - (x - at.x) : i == 0 ? caption : kAnyRoom;
      const Size size = wantedBy_(*cell.caption, std::max(own, 1), Grow::No);
      Place(*cell.caption, {x, at.y}, size);
      height = std::max(height, size.height);
      right = std::max(right, x + size.width);
    }
    int field = BeginsWithoutCaption(cell) ? x : std::max(x + caption, cell.caption == nullptr ? x : right);
    int grown = 0;
    for (const Control* control : BehindCaption(all[i])) {
      Size size = UsualOf(*control, room - (field - at.x));
      if (spare > 0) {
        const int usual = size.width;
        size = wantedBy_(*control, usual + spare, Grow::Yes);
        grown += size.width - usual;
        spare -= size.width - usual;
      }
      Place(*control, {field, at.y}, size);
      if (!IsTall(*control))
        onLastLine.emplace_back(control, size.height);
      height = std::max(height, size.height);
      right = std::max(right, field + size.width);
      field += size.width + GapBehind(*control);
    }
    x = std::max({right, field, x + caption + fields + grown}) + kBetweenCells;
  }
  // What is one line high stands in the last line of a caption that is broken, but at the top of what is tall.
  const bool tall = std::any_of(row.begin(), row.end(),
                                [](const LaidOutCell& cell) { return cell.field != nullptr && IsTall(*cell.field); });
  if (!tall)
    for (const auto& [control, own] : onLastLine) places_[control].y += height - own;
  return {.width = right - at.x, .height = height};
}

int CellLayout::PlaceFlowing(const LaidOutGroup& group, Point at, int room) {
  int height = 0;
  for (const LaidOutRow& row : group.rows) height += PlaceFlowing(row, {at.x, at.y + height}, room);
  return height;
}

int CellLayout::PlaceFlowing(const LaidOutRow& row, Point at, int room) {
  ++rowsThatFlow_;
  int x = at.x;
  int y = at.y;
  int height = 1;
  for (const Cells& cells : CellsOf(row)) {
    if (x > at.x)
      x += kBetweenCells - 1;
    std::vector<const Control*> controls = BehindCaption(cells);
    if (cells.front().caption != nullptr)
      controls.insert(controls.begin(), cells.front().caption);
    for (const Control* control : controls) {
      Size size = wantedBy_(*control, room, Grow::No);
      if (x > at.x && x - at.x + size.width > room) {
        y += std::exchange(height, 1);
        x = at.x + (control == cells.front().caption ? 0 : kIndent);
        size = wantedBy_(*control, std::max(room - (x - at.x), 1), Grow::No);
      }
      // Behind a caption of several lines a field stands in its last one.
      Place(*control, {x, IsTall(*control) ? y : y + height - 1}, size);
      height = std::max(height, size.height);
      x += size.width + GapBehind(*control);
    }
  }
  return y + height - at.y;
}

}  // namespace fiscalon::terminal
