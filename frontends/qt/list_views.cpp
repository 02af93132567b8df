#include "frontends/qt/list_views.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <functional>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/usual_sizes.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

QStringList RowsOf(const ListControl& list) {
  QStringList rows;
  for (int row = 0; row < list.ListCount(); ++row) rows.append(ToQt(list.ShownRow(row)));
  return rows;
}

template <class Widget, class TextOfRow>
QStringList RowsOf(const Widget& widget, TextOfRow textOfRow) {
  QStringList rows;
  for (int row = 0; row < widget.count(); ++row) rows.append(textOfRow(row));
  return rows;
}

QFont FontOfRows(const ListControl& list, QFont font) {
  if (list.Designed().fixedPitch) {
    font.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
  }
  return font;
}

class DropDown final : public QComboBox {
 public:
  using QComboBox::QComboBox;

  std::function<void()> whenClosed = {};

 protected:
  void hidePopup() override {
    QComboBox::hidePopup();
    if (whenClosed)
      whenClosed();
  }
};

}  // namespace

DropDownView::DropDownView(DropDownList& list, QWidget& parent, WatchedActs& acts)
    : AnyListView(list, *new DropDown(&parent), acts), list_(list), native_(static_cast<QComboBox&>(Widget())) {
  native_.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  Restyle();
  // Qt tells that a row is picked after all else: when the rows are gone and the list has it.
  const auto afterwards = Safely([this](const auto&...) {
    QMetaObject::invokeMethod(&native_, Safely([this] { Align(); }), Qt::QueuedConnection);
  });
  static_cast<DropDown&>(native_).whenClosed = afterwards;
  QObject::connect(&native_, &QComboBox::activated, &native_, Safely([this](int row) { Picked(row); }));
  QObject::connect(&native_, &QComboBox::currentIndexChanged, &native_, afterwards);
  QObject::connect(native_.view()->selectionModel(), &QItemSelectionModel::selectionChanged, &native_,
                   Safely([this](const auto&...) { RowsMarked(); }));
}

DropDownView::~DropDownView() {
  // The widget outlives the view, and closes its rows when it goes.
  static_cast<DropDown&>(native_).whenClosed = nullptr;
  native_.view()->selectionModel()->disconnect(&native_);
}

void DropDownView::Picked(int row) {
  // Without the focus it was an assistive program.
  if (IsActive())
    Acts().Pick(list_, row);
  else
    Acts().Choose(list_, row);
  if (list_.Owner().IsUp())
    Refresh();
}

void DropDownView::RowsMarked() {
  if (refreshing_ || !list_.Owner().IsUp())
    return;
  // Whoever goes through the rows by keyboard or mouse marks the current one: another one is an assistive program's.
  const QItemSelectionModel& rows = *native_.view()->selectionModel();
  for (const QModelIndex& marked : rows.selectedIndexes())
    if (marked != rows.currentIndex()) {
      native_.hidePopup();
      Picked(marked.row());
      break;
    }
  if (list_.Owner().IsUp())
    MarkRow();
}

void DropDownView::MarkRow() {
  const ScopedValue refreshing(refreshing_, true);
  QItemSelectionModel& rows = *native_.view()->selectionModel();
  const QModelIndex own = native_.model()->index(list_.ListIndex(), native_.modelColumn());
  rows.setCurrentIndex(Rows() == nullptr ? own : rows.currentIndex(), QItemSelectionModel::ClearAndSelect);
}

void DropDownView::Align() {
  if (!list_.Owner().IsUp())
    return;
  if (native_.currentIndex() != list_.ListIndex())
    Picked(native_.currentIndex());
  if (list_.Owner().IsUp())
    MarkRow();
}

bool DropDownView::MousePressed(QMouseEvent& event) {
  const AfterPress after = event.button() == Qt::LeftButton ? Press() : AfterPress::Over;
  // A check has shown a box and let the focus go: the user has asked for the rows and gets them.
  if (after == AfterPress::Interrupted)
    native_.showPopup();
  return after != AfterPress::Goes;
}

void DropDownView::Restyle() {
  native_.setFont(FontOfRows(list_, Font()));
}

void DropDownView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  const QStringList rows = RowsOf(list_);
  const bool others = rows != RowsOf(native_, [this](int row) { return native_.itemText(row); });
  if (others) {
    native_.clear();
    native_.addItems(rows);
  }
  if (!others && native_.currentIndex() == list_.ListIndex())
    return;
  native_.setCurrentIndex(list_.ListIndex());
  MarkRow();
}

ShownControl DropDownView::Content() const {
  return {.text = FromQt(native_.currentText()), .items = native_.count()};
}

QAbstractItemView* DropDownView::Rows() const {
  return native_.view()->isVisible() ? native_.view() : nullptr;
}

bool DropDownView::KeepsKey(const QKeyEvent& event) const {
  const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
  return event.key() == Qt::Key_F4 || (arrow && event.modifiers().testFlag(Qt::AltModifier));
}

ListBoxView::ListBoxView(ListBox& list, QWidget& parent, WatchedActs& acts)
    : AnyListView(list, *new QListWidget(&parent), acts), list_(list), native_(static_cast<QListWidget&>(Widget())) {
  native_.setUniformItemSizes(true);
  Restyle();
  // The mouse and the keyboard go past the widget: what is left is an assistive program.
  QObject::connect(native_.selectionModel(), &QItemSelectionModel::selectionChanged, &native_,
                   Safely([this](const QItemSelection& selected, const auto&...) {
                     RowSelected(selected.isEmpty() ? ListControl::kNothingSelected : selected.front().top());
                   }));
  // A list to which the focus comes makes a row its current one, and selects none by that.
  QObject::connect(&native_, &QListWidget::currentRowChanged, &native_, Safely([this](int) {
    if (!refreshing_ && native_.selectedItems().isEmpty() && list_.Owner().IsUp())
      Refresh();
  }));
}

void ListBoxView::RowSelected(int row) {
  if (refreshing_ || !list_.Owner().IsUp())
    return;
  if (row != ListControl::kNothingSelected && row != list_.ListIndex())
    Acts().Choose(list_, row);
  if (list_.Owner().IsUp())
    Refresh();
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

ShownControl ListBoxView::Content() const {
  const QListWidgetItem* row = native_.currentItem();
  return {.text = row == nullptr ? std::string() : FromQt(row->text()), .items = native_.count()};
}

void ListBoxView::ShowRow(int row) {
  const ScopedValue refreshing(refreshing_, true);
  native_.setCurrentRow(row);
  if (row == ListControl::kNothingSelected)
    native_.clearSelection();
}

void ListBoxView::Restyle() {
  native_.setFont(FontOfRows(list_, Font()));
  const QFontMetrics metrics(native_.font());
  const int frame = 2 * native_.frameWidth();
  native_.setMinimumSize(
      metrics.horizontalAdvance(u'0') * kCharactersOfList + frame + native_.verticalScrollBar()->sizeHint().width(),
      metrics.lineSpacing() * kRowsOfList + frame);
}

bool ListBoxView::MousePressed(QMouseEvent& event) {
  pressedRow_ = ListControl::kNothingSelected;
  interrupted_ = false;
  const AfterPress after = event.button() == Qt::LeftButton ? Press() : AfterPress::Over;
  if (after == AfterPress::Over)
    return true;
  pressedRow_ = native_.indexAt(event.position().toPoint()).row();
  if (pressedRow_ >= 0)
    ShowRow(pressedRow_);
  interrupted_ = after == AfterPress::Interrupted;
  if (interrupted_ && !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
    Released(pressedRow_);
  return true;
}

bool ListBoxView::MouseReleased(QMouseEvent& event) {
  Released(native_.indexAt(event.position().toPoint()).row());
  return true;
}

void ListBoxView::ReleasedLate(QPoint globalPosition) {
  if (interrupted_)
    Released(native_.indexAt(native_.viewport()->mapFromGlobal(globalPosition)).row());
}

void ListBoxView::Released(int row) {
  interrupted_ = false;
  const int pressed = std::exchange(pressedRow_, ListControl::kNothingSelected);
  if (pressed >= 0 && pressed == row)
    Acts().Pick(list_, row);
  if (list_.Owner().IsUp())
    Refresh();
}

}  // namespace fiscalon::qt
