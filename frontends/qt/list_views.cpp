#include "frontends/qt/list_views.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/form_events.h"
#include "frontends/qt/dialog_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {
namespace {

QStringList RowsOf(const ListControl& list) {
  QStringList rows;
  for (int row = 0; row < list.ListCount(); ++row) rows.append(ToQt(list.List(row)));
  return rows;
}

template <class Widget, class TextOfRow>
QStringList RowsOf(const Widget& widget, TextOfRow textOfRow) {
  QStringList rows;
  for (int row = 0; row < widget.count(); ++row) rows.append(textOfRow(row));
  return rows;
}

}  // namespace

DropDownView::DropDownView(DropDownList& list, QWidget& parent, DialogActs& acts)
    : ControlView(list, *new QComboBox(&parent), acts), list_(list), native_(static_cast<QComboBox&>(Widget())) {
  native_.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  QObject::connect(&native_, &QComboBox::activated, &native_, [this](int row) {
    Acts().Choose(list_, row);
    if (list_.Owner().IsUp())
      Refresh();
  });
}

void DropDownView::Refresh() {
  ControlView::Refresh();
  const QStringList rows = RowsOf(list_);
  if (rows != RowsOf(native_, [this](int row) { return native_.itemText(row); })) {
    native_.clear();
    native_.addItems(rows);
  }
  native_.setCurrentIndex(list_.ListIndex());
}

bool DropDownView::KeepsKey(const QKeyEvent& event) const {
  const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
  return event.key() == Qt::Key_F4 || (arrow && event.modifiers().testFlag(Qt::AltModifier));
}

ListBoxView::ListBoxView(ListBox& list, QWidget& parent, DialogActs& acts)
    : ControlView(list, *new QListWidget(&parent), acts), list_(list), native_(static_cast<QListWidget&>(Widget())) {
  native_.setUniformItemSizes(true);
  Restyle();
  // The mouse and the keyboard go past the widget: what is left is an assistive program.
  QObject::connect(&native_, &QListWidget::currentRowChanged, &native_, [this](int row) {
    if (refreshing_)
      return;
    Acts().Choose(list_, row);
    if (list_.Owner().IsUp())
      Refresh();
  });
}

void ListBoxView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  const QStringList rows = RowsOf(list_);
  if (rows != RowsOf(native_, [this](int row) { return native_.item(row)->text(); })) {
    native_.clear();
    native_.addItems(rows);
  }
  ShowRow(list_.ListIndex());
}

void ListBoxView::ShowRow(int row) {
  const ScopedValue refreshing(refreshing_, true);
  native_.setCurrentRow(row);
  if (row == ListControl::kNothingSelected)
    native_.clearSelection();
}

void ListBoxView::Restyle() {
  constexpr int kWidth = 66;
  constexpr int kRows = 8;
  native_.setFont(Font());
  const QFontMetrics metrics(native_.font());
  const int frame = 2 * native_.frameWidth();
  native_.setMinimumSize(
      metrics.horizontalAdvance(u'0') * kWidth + frame + native_.verticalScrollBar()->sizeHint().width(),
      metrics.lineSpacing() * kRows + frame);
}

bool ListBoxView::MousePressed(QMouseEvent& event) {
  pressedRow_ = ListControl::kNothingSelected;
  if (ControlView::MousePressed(event) || !IsActive())
    return true;
  pressedRow_ = native_.indexAt(event.position().toPoint()).row();
  if (pressedRow_ >= 0)
    ShowRow(pressedRow_);
  return true;
}

bool ListBoxView::MouseReleased(QMouseEvent& event) {
  const int row = std::exchange(pressedRow_, ListControl::kNothingSelected);
  if (row >= 0 && native_.indexAt(event.position().toPoint()).row() == row)
    Acts().Choose(list_, row);
  if (list_.Owner().IsUp())
    Refresh();
  return true;
}

}  // namespace fiscalon
