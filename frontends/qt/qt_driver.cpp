#include "frontends/qt/qt_driver.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollArea>
#include <QTest>
#include <QWindow>

#include "frontends/qt/form_dialog.h"
#include "frontends/qt/key_strokes.h"
#include "frontends/qt/list_views.h"
#include "frontends/qt/qt_text.h"
#include "frontends/qt/text_view.h"

namespace fiscalon::qt {
namespace {

void Press(QWindow* window, const KeyStroke& stroke) {
  const QtKey key = QtKeyOf(stroke);
  QTest::sendKeyEvent(QTest::Press, window, key.key, key.text, key.modifiers);
  QTest::sendKeyEvent(QTest::Release, window, key.key, key.text, key.modifiers);
}

void Click(QWindow* window, QPoint place) {
  QTest::mousePress(window, Qt::LeftButton, {}, place);
  QTest::mouseRelease(window, Qt::LeftButton, {}, place);
}

}  // namespace

void QtDriver::PressKey(const KeyStroke& stroke) {
  Press(dialog_.windowHandle(), stroke);
}

bool QtDriver::Point(const ControlView& view, QPoint& place) const {
  QWidget& widget = view.Widget();
  if (!widget.isVisible())
    return false;
  // Positions are those of a dialog that has dealt with what the acts before have changed.
  QCoreApplication::sendPostedEvents();
  for (QWidget* outer = widget.parentWidget(); outer != nullptr; outer = outer->parentWidget())
    if (auto* scroller = qobject_cast<QScrollArea*>(outer))
      scroller->ensureWidgetVisible(&widget);
  place = view.MouseArea().mapTo(&dialog_, view.PointToPress());
  return true;
}

void QtDriver::PressAndRelease(ControlView& view, QPoint down, QPoint up) const {
  auto* const editor = dynamic_cast<TextView*>(&view);
  const bool hadFocus = dialog_.focusWidget() == &view.Widget();
  const Selection before = editor == nullptr ? Selection{} : editor->NativeSelection();
  QTest::mousePress(dialog_.windowHandle(), Qt::LeftButton, {}, down);
  // Beside an editor the mouse would drag a selection.
  QTest::mouseRelease(dialog_.windowHandle(), Qt::LeftButton, {}, editor == nullptr ? up : down);
  // Where a check has shown a box, the mouse selects nothing any more.
  if (editor == nullptr || editor->NativeSelection().length > 0 || dialog_.focusWidget() != &view.Widget())
    return;
  // Scenarios point behind the last character, which may lie beyond what the field shows; and in a field that has
  // the focus already they leave the selection alone.
  const Selection end = {.start = static_cast<int>(editor->NativeText().size())};
  editor->SetNativeSelection(hadFocus ? before : end);
}

void QtDriver::PressMouse(Control& control) {
  ControlView& view = dialog_.ViewOf(control);
  QPoint place;
  if (!Point(view, place))
    return;
  // The button comes up beside the control, so that nothing is clicked.
  PressAndRelease(view, place, QPoint(1, 1));
  const auto* list = dynamic_cast<const AnyListView*>(&view);
  if (const QAbstractItemView* rows = list == nullptr ? nullptr : list->Rows(); rows && rows->window() != &dialog_)
    Press(rows->window()->windowHandle(), *StrokeNamed("Escape"));
}

void QtDriver::Click(Control& control) {
  // Which row a click in a list would hit is not for a scenario to know: it chooses rows by their texts.
  if (dynamic_cast<const ListControl*>(&control) != nullptr)
    return PressMouse(control);
  ControlView& view = dialog_.ViewOf(control);
  if (QPoint place; Point(view, place))
    PressAndRelease(view, place, place);
}

void QtDriver::Choose(ListControl& list, int row) {
  list.ExpectRow(row);
  const auto& view = dynamic_cast<const AnyListView&>(dialog_.ViewOf(list));
  QPoint place;
  if (!Point(view, place))
    return;
  if (view.Rows() == nullptr)
    qt::Click(dialog_.windowHandle(), place);
  if (QAbstractItemView* rows = view.Rows())
    PickIn(*rows, row);
}

void QtDriver::PickIn(QAbstractItemView& rows, int row) const {
  const QModelIndex index = rows.model()->index(row, 0);
  rows.scrollTo(index);
  QWidget& window = *rows.window();
  const QPoint place = rows.viewport()->mapTo(&window, rows.visualRect(index).center());
  // A popup that the mouse has just opened takes a click only after the mouse has moved in it.
  if (&window != &dialog_) {
    QTest::mouseMove(window.windowHandle(), QPoint(1, 1));
    QTest::mouseMove(window.windowHandle(), place);
  }
  qt::Click(window.windowHandle(), place);
}

void QtDriver::Paste(std::string_view text) {
  QGuiApplication::clipboard()->setText(ToQt(text));
  QTest::keyClick(dialog_.windowHandle(), Qt::Key_V, Qt::ControlModifier);
}

void QtDriver::CloseWindow(CloseReason reason) {
  if (reason == CloseReason::CloseBox)
    dialog_.close();
  else
    dialog_.CloseFor(reason);
}

std::string QtDriver::Title() {
  return FromQt(dialog_.windowHandle()->title());
}

std::string QtDriver::FocusName() {
  const Control* control = dialog_.ControlOf(dialog_.focusWidget());
  return control == nullptr ? std::string() : control->Name();
}

ShownControl QtDriver::Shown(const Control& control) {
  return dialog_.ViewOf(control).Shown();
}

}  // namespace fiscalon::qt
