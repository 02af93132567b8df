#include "frontends/win32/dialog_layout.h"

#include <algorithm>
#include <set>

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/usual_sizes.h"

namespace fiscalon::win32 {
namespace {

// Distances in dialog units.
constexpr int kBesideCaption = 4;
constexpr int kBesideField = 3;
constexpr int kBetweenSlots = 10;
constexpr int kBetweenColumns = 11;
constexpr int kBetweenLines = 4;
constexpr int kBetweenBlocks = 7;
constexpr int kUnderHeading = 4;
constexpr int kFrameTop = 12;
constexpr int kFrameBottom = 7;
constexpr int kBetweenButtons = 4;

bool IsShown(const Control* control) {
  return control != nullptr && control->VisibleInFrames();
}

RECT RectangleOf(int left, int top, SIZE size) {
  return {left, top, left + size.cx, top + size.cy};
}

}  // namespace

DialogLayout::DialogLayout(const Form& form, const DialogFonts& fonts, SizeOf sizeOf)
    : form_(form), fonts_(fonts), sizeOf_(std::move(sizeOf)) {
  const std::vector<LaidOutGroup> groups = LaidOut(form);
  std::set<int> numbers;
  for (const LaidOutGroup& group : groups) numbers.insert(group.column);
  int left = 0;
  for (const int number : numbers) {
    const Column column = Measured(groups, number);
    if (column.blocks.empty())
      continue;
    left += left == 0 ? 0 : fonts_.X(kBetweenColumns);
    body_.cy = std::max<LONG>(body_.cy, Place(column, left));
    left += column.width;
  }
  body_.cx = left;
}

SIZE DialogLayout::SizeOfVisible(const Control* control) const {
  if (!IsShown(control))
    return {};
  const auto [size, isNew] = sizes_.try_emplace(control);
  if (isNew)
    size->second = sizeOf_(*control);
  return size->second;
}

DialogLayout::Column DialogLayout::Measured(const std::vector<LaidOutGroup>& groups, int number) const {
  Column column;
  for (const LaidOutGroup& group : groups) {
    if (group.column != number)
      continue;
    Block block = Measured(group);
    if (!block.lines.empty() || block.heading != nullptr)
      column.blocks.push_back(std::move(block));
  }
  AlignCaptions(column);
  column.width = WidthOf(column);
  return column;
}

DialogLayout::Block DialogLayout::Measured(const LaidOutGroup& group) const {
  Block block;
  if (IsShown(group.frame))
    block.frame = group.frame;
  if (IsShown(group.heading) && group.heading->Kind() != ControlKind::Frame)
    block.heading = group.heading;
  for (const LaidOutRow& row : group.rows) {
    Line line;
    for (auto first = row.begin(); first != row.end();) {
      const auto end = std::find_if(first + 1, row.end(), [](const LaidOutCell& cell) { return !cell.isClose; });
      line.slots.push_back(Measured(first, end));
      first = end;
    }
    line.height = HeightOf(line);
    block.slots = std::max(block.slots, line.slots.size());
    if (line.height > 0)
      block.lines.push_back(std::move(line));
  }
  block.captionWidths.resize(block.slots);
  block.fieldWidths.resize(block.slots);
  for (const Line& line : block.lines)
    for (size_t i = 0; i < line.slots.size(); ++i) {
      const Slot& slot = line.slots[i];
      block.captionWidths[i] = std::max(block.captionWidths[i], slot.captionWidth);
      // What stands last in its line may reach as far as it must, and pushes nothing away.
      if (i + 1 < line.slots.size() && !slot.fromLeft)
        block.fieldWidths[i] = std::max(block.fieldWidths[i], slot.partsWidth);
    }
  return block;
}

DialogLayout::Slot DialogLayout::Measured(std::vector<LaidOutCell>::const_iterator first,
                                          std::vector<LaidOutCell>::const_iterator end) const {
  Slot slot;
  const LaidOutCell& cell = *first;
  slot.caption = IsShown(cell.caption) ? cell.caption : nullptr;
  slot.isCaptionAlone = cell.field == nullptr && cell.hint == nullptr && end - first == 1;
  if (slot.caption != nullptr && !slot.isCaptionAlone)
    slot.captionWidth = SizeOfVisible(slot.caption).cx;
  slot.fromLeft = cell.caption == nullptr && cell.field != nullptr && BeginsAtLeft(*cell.field);
  slot.isTall = IsShown(cell.field) && IsTall(*cell.field);
  for (auto each = first; each != end; ++each) {
    if (each != first)
      AddPart(slot, each->caption, fonts_.X(kBesideCaption));
    AddPart(slot, each->field, fonts_.X(kBesideField));
    AddPart(slot, each->hint, fonts_.X(kBesideField));
  }
  return slot;
}

void DialogLayout::AddPart(Slot& slot, const Control* control, int gap) const {
  if (!IsShown(control))
    return;
  const int before = slot.parts.empty() ? 0 : gap;
  slot.parts.push_back({.control = control, .gap = before});
  slot.partsWidth += before + SizeOfVisible(control).cx;
}

int DialogLayout::HeightOf(const Line& line) const {
  LONG height = 0;
  for (const Slot& slot : line.slots) {
    height = std::max(height, SizeOfVisible(slot.caption).cy);
    for (const Slot::Part& part : slot.parts) height = std::max(height, SizeOfVisible(part.control).cy);
  }
  return height;
}

void DialogLayout::AlignCaptions(Column& column) const {
  // Fields begin beneath each other through all blocks. Behind the first slot only where lines have as many.
  std::map<std::pair<size_t, size_t>, int> widest;
  const auto widthOf = [&](const Block& block, size_t i) -> int& { return widest[{i, i == 0 ? 0 : block.slots}]; };
  const auto insetOf = [&](const Block& block, size_t i) { return i == 0 ? Inset(block) : 0; };
  for (const Block& block : column.blocks)
    for (size_t i = 0; i < block.slots; ++i) {
      int& width = widthOf(block, i);
      if (block.captionWidths[i] > 0)
        width = std::max(width, block.captionWidths[i] + insetOf(block, i));
    }
  for (Block& block : column.blocks)
    for (size_t i = 0; i < block.slots; ++i)
      block.captionWidths[i] = std::max(0, widthOf(block, i) - insetOf(block, i));
}

int DialogLayout::XOf(const Block& block, size_t slot) const {
  int x = 0;
  for (size_t i = 0; i < slot; ++i)
    x += block.captionWidths[i] + (block.captionWidths[i] > 0 ? fonts_.X(kBesideCaption) : 0) + block.fieldWidths[i] +
         fonts_.X(kBetweenSlots);
  return x;
}

int DialogLayout::WidthOf(const Block& block) const {
  int width = 0;
  if (block.heading != nullptr)
    width = SizeOfVisible(block.heading).cx;
  for (const Line& line : block.lines)
    for (size_t i = 0; i < line.slots.size(); ++i) {
      const Slot& slot = line.slots[i];
      const int captions = block.captionWidths[i] > 0 ? block.captionWidths[i] + fonts_.X(kBesideCaption) : 0;
      const int own =
          slot.isCaptionAlone ? SizeOfVisible(slot.caption).cx : (slot.fromLeft ? 0 : captions) + slot.partsWidth;
      width = std::max(width, XOf(block, i) + own);
    }
  if (block.frame != nullptr)
    width = std::max<int>(width, SizeOfVisible(block.frame).cx) + 2 * Inset(block);
  return width;
}

int DialogLayout::WidthOf(const Column& column) const {
  int width = 0;
  for (const Block& block : column.blocks) width = std::max(width, WidthOf(block));
  return width;
}

int DialogLayout::Place(const Column& column, int left) {
  int y = 0;
  for (size_t i = 0; i < column.blocks.size(); ++i) {
    const Block& block = column.blocks[i];
    const Control* before = i == 0 ? nullptr : column.blocks[i - 1].frame;
    const bool continues = block.frame != nullptr && block.frame == before;
    if (i > 0 && !continues)
      y += fonts_.Y(kBetweenBlocks);
    if (i > 0 && block.frame == nullptr && block.heading == nullptr) {
      lines_.push_back(RectangleOf(left, y, {column.width, 2}));
      y += 2 + fonts_.Y(kBetweenBlocks);
    }
    const int top = y;
    if (block.frame != nullptr)
      y += continues ? fonts_.Y(kBetweenLines) - fonts_.Y(kFrameBottom) : fonts_.Y(kFrameTop);
    y = PlaceHeading(block, left + Inset(block), y, y == 0);
    y = PlaceLines(block, left + Inset(block), y, column.width - 2 * Inset(block));
    if (block.frame == nullptr)
      continue;
    y += fonts_.Y(kFrameBottom);
    RECT& box = places_.try_emplace(block.frame, RectangleOf(left, top, {column.width, 0})).first->second;
    box.bottom = y;
  }
  return y;
}

int DialogLayout::PlaceHeading(const Block& block, int left, int top, bool isFirst) {
  if (block.heading == nullptr)
    return top;
  const int y = top + (isFirst || block.frame != nullptr ? 0 : fonts_.Y(kBetweenLines));
  const SIZE size = SizeOfVisible(block.heading);
  places_[block.heading] = RectangleOf(left, y, size);
  return y + size.cy + (block.lines.empty() ? 0 : fonts_.Y(kUnderHeading));
}

int DialogLayout::PlaceLines(const Block& block, int left, int top, int width) {
  int y = top;
  for (const Line& line : block.lines) {
    y += &line == &block.lines.front() ? 0 : fonts_.Y(kBetweenLines);
    for (size_t i = 0; i < line.slots.size(); ++i) PlaceSlot(line.slots[i], block, i, line, {left, y}, width);
    y += line.height;
  }
  return y;
}

void DialogLayout::PlaceSlot(const Slot& slot, const Block& block, size_t number, const Line& line, POINT corner,
                             int width) {
  const int begin = XOf(block, number);
  if (slot.caption != nullptr) {
    SIZE size = SizeOfVisible(slot.caption);
    const int height = slot.isTall ? fonts_.FieldHeight() : line.height;
    places_[slot.caption] = RectangleOf(corner.x + begin, corner.y + (height - size.cy) / 2, size);
  }
  int x = begin;
  if (!slot.fromLeft && block.captionWidths[number] > 0)
    x += block.captionWidths[number] + fonts_.X(kBesideCaption);
  for (const Slot::Part& part : slot.parts) {
    SIZE size = SizeOfVisible(part.control);
    x += part.gap;
    if (GrowsWide(*part.control))
      size.cx = std::max<LONG>(size.cx, width - x);
    // Beside a tall field stands what belongs to its first line.
    const int height = slot.isTall && !IsTall(*part.control) ? fonts_.FieldHeight() : line.height;
    places_[part.control] = RectangleOf(corner.x + x, corner.y + (height - size.cy) / 2, size);
    x += size.cx;
  }
}

SIZE DialogLayout::ButtonRow() const {
  SIZE row = {};
  for (const Button* button : form_.FormLayout().buttons) {
    if (!IsShown(button))
      continue;
    const SIZE size = sizeOf_(*button);
    row.cx += size.cx + (row.cx == 0 ? 0 : fonts_.X(kBetweenButtons));
    row.cy = std::max(row.cy, size.cy);
  }
  return row;
}

std::map<const Control*, RECT> DialogLayout::Buttons(int width) const {
  std::map<const Control*, RECT> places;
  const auto& buttons = form_.FormLayout().buttons;
  int right = width;
  for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
    if (!IsShown(*button))
      continue;
    const SIZE size = sizeOf_(**button);
    places[*button] = RectangleOf(right - size.cx, 0, size);
    right -= size.cx + fonts_.X(kBetweenButtons);
  }
  return places;
}

}  // namespace fiscalon::win32
