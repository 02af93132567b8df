#include "frontends/qt/dialog_layout.h"

#include <QApplication>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <algorithm>
#include <span>
#include <utility>

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/usual_sizes.h"

namespace fiscalon::qt {
namespace {

/// A cell takes a column of the grid for its caption, one for its field and hint, and a gap before the next.
constexpr int kColumnsPerCell = 3;

QFrame* NewLine(QWidget& parent) {
  auto* line = new QFrame(&parent);
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  return line;
}

/// The widest caption in one column of a grid. What spans the fields too is no caption, and what is hidden makes no
/// room.
int CaptionWidth(const QGridLayout& grid, int column) {
  int width = 0;
  for (int row = 0; row < grid.rowCount(); ++row) {
    const QLayoutItem* item = grid.itemAtPosition(row, column);
    if (item != nullptr && item->widget() != nullptr && !item->widget()->isHidden() &&
        item != grid.itemAtPosition(row, column + 1))
      width = std::max(width, item->widget()->sizeHint().width());
  }
  return width;
}

/// How far a frame moves the captions in it to the right.
int Inset(const QGridLayout& grid) {
  const auto* box = qobject_cast<const QGroupBox*>(grid.parentWidget());
  return box == nullptr ? 0 : box->contentsMargins().left() + box->layout()->contentsMargins().left();
}

}  // namespace

DialogLayout::DialogLayout(const Form& form, WidgetOf widgetOf, QWidget& body)
    : form_(form), widgetOf_(std::move(widgetOf)) {
  const std::vector<LaidOutGroup> groups = LaidOut(form);
  auto* columns = new QHBoxLayout(&body);
  columns->setContentsMargins(0, 0, 0, 0);
  const int spacing = columns->spacing();
  columns->setSpacing(3 * spacing);
  for (const LaidOutGroup& group : groups) columns_[group.column];
  for (auto& [number, column] : columns_) {
    column.sections = new QVBoxLayout;
    column.sections->setSpacing(spacing);
    columns->addLayout(column.sections);
  }
  for (const LaidOutGroup& group : groups) AddGroup(columns_[group.column], group);
  for (auto& [number, column] : columns_) column.sections->addStretch(1);
}

QWidget& DialogLayout::Place(const Control& control) {
  return widgetOf_(control);
}

QVBoxLayout* DialogLayout::PlaceFor(Column& column, const LaidOutGroup& group) {
  const Control* frame = group.frame;
  const bool continues = frame != nullptr && std::exchange(column.frame, frame) == frame;
  if (frame == nullptr) {
    column.frame = nullptr;
    // A line sets groups apart where no heading does.
    if (group.heading == nullptr && column.sections->count() > 0)
      column.sections->addWidget(NewLine(*column.sections->parentWidget()));
    return column.sections;
  }
  if (!continues) {
    QWidget& box = Place(*frame);
    column.framed = new QVBoxLayout(&box);
    column.sections->addWidget(&box);
  }
  return column.framed;
}

void DialogLayout::AddGroup(Column& column, const LaidOutGroup& group) {
  QVBoxLayout* place = PlaceFor(column, group);
  if (group.heading != nullptr && group.heading->Kind() != ControlKind::Frame) {
    QWidget& heading = Place(*group.heading);
    if (place->count() > 0)
      place->addSpacing(place->spacing());
    place->addWidget(&heading);
  }
  auto* grid = new QGridLayout;
  place->addLayout(grid);
  grid->setHorizontalSpacing(grid->spacing() * 5 / 3);
  grid->setVerticalSpacing(place->spacing() * 4 / 3);
  int rowNumber = 0;
  int cells = 0;
  for (const LaidOutRow& row : group.rows) cells = std::max(cells, AddRow(*grid, rowNumber++, row));
  const int gap = 2 * std::max(grid->horizontalSpacing(), 0);
  for (int cell = 1; cell < cells; ++cell) grid->setColumnMinimumWidth(cell * kColumnsPerCell - 1, gap);
  grid->setColumnStretch(cells * kColumnsPerCell - 1, 1);
  column.grids.push_back(grid);
}

int DialogLayout::AddRow(QGridLayout& grid, int rowNumber, const LaidOutRow& row) {
  int cells = 0;
  for (auto first = row.begin(); first != row.end();) {
    const auto end = std::find_if(first + 1, row.end(), [](const LaidOutCell& cell) { return !cell.isClose; });
    const std::span close(first, end);
    const LaidOutCell& cell = *std::exchange(first, end);
    const int column = cells++ * kColumnsPerCell;
    const bool alone = cell.field == nullptr && cell.hint == nullptr;
    if (cell.caption != nullptr) {
      QWidget& caption = Place(*cell.caption);
      const auto side = static_cast<Qt::Alignment>(
          alone ? static_cast<int>(Qt::AlignLeft)
                : caption.style()->styleHint(QStyle::SH_FormLayoutLabelAlignment, nullptr, &caption));
      const bool tall = cell.field != nullptr && IsTall(*cell.field);
      grid.addWidget(&caption, rowNumber, column, 1, alone ? kColumnsPerCell : 1,
                     (side & Qt::AlignHorizontal_Mask) | (tall ? Qt::AlignTop : Qt::AlignVCenter));
    }
    if (alone)
      continue;
    const bool fromLeft = cell.caption == nullptr && cell.field != nullptr && BeginsAtLeft(*cell.field);
    grid.addLayout(FieldsWithHints(close), rowNumber, fromLeft ? column : column + 1, 1,
                   fromLeft ? kColumnsPerCell : 1);
  }
  return cells;
}

QLayout* DialogLayout::FieldsWithHints(std::span<const LaidOutCell> cells) {
  auto* line = new QHBoxLayout;
  // A grid with two spacings has none to pass on.
  line->setSpacing(QFontMetrics(QApplication::font()).horizontalAdvance(u'0'));
  for (const LaidOutCell& cell : cells) {
    if (cell.isClose && cell.caption != nullptr) {
      line->addSpacing(line->spacing());
      line->addWidget(&Place(*cell.caption));
    }
    AddFieldWithHint(*line, cell);
  }
  if (cells.back().field == nullptr || !GrowsWide(*cells.back().field))
    line->addStretch(1);
  return line;
}

void DialogLayout::AddFieldWithHint(QHBoxLayout& line, const LaidOutCell& cell) {
  if (cell.field != nullptr) {
    QWidget& field = Place(*cell.field);
    line.addWidget(&field, GrowsWide(*cell.field) ? 1 : 0);
    for (const Control* its : {cell.caption, cell.head})
      if (auto* caption = its == nullptr ? nullptr : qobject_cast<QLabel*>(&Place(*its)); caption != nullptr)
        caption->setBuddy(&field);
  }
  if (cell.hint != nullptr)
    line.addWidget(&Place(*cell.hint));
}

QLayout* DialogLayout::Buttons() {
  auto* line = new QHBoxLayout;
  line->addStretch(1);
  for (const Button* button : form_.FormLayout().buttons) line->addWidget(&Place(*button));
  return line;
}

void DialogLayout::AlignCaptions() {
  for (const auto& [number, column] : columns_) AlignCaptions(column);
}

void DialogLayout::AlignCaptions(const Column& column) {
  // How far to the right the fields of each cell begin, by the cell's place in its row. Behind the first, cells stand
  // beneath each other only where rows have as many.
  std::map<std::pair<int, int>, int> begins;
  const auto fieldsOf = [&](const QGridLayout& grid, int i) -> int& {
    return begins[{i, i == 0 ? 0 : grid.columnCount()}];
  };
  for (const QGridLayout* grid : column.grids)
    for (int i = 0; i < grid->columnCount(); i += kColumnsPerCell) {
      int& begin = fieldsOf(*grid, i);
      begin = std::max(begin, CaptionWidth(*grid, i) + (i == 0 ? Inset(*grid) : 0));
    }
  for (QGridLayout* grid : column.grids)
    for (int i = 0; i < grid->columnCount(); i += kColumnsPerCell)
      grid->setColumnMinimumWidth(i, fieldsOf(*grid, i) - (i == 0 ? Inset(*grid) : 0));
}

}  // namespace fiscalon::qt
