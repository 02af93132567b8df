#include "frontends/qt/qt_driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTest>
#include <QTextDocument>
#include <QWindow>
#include <optional>

#include "frontends/qt/caption_views.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/key_strokes.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

void Press(QWindow* window, const KeyStroke& stroke) {
  const QtKey key = QtKeyOf(stroke);
  QTest::sendKeyEvent(QTest::Press, window, key.key, key.text, key.modifiers);
  QTest::sendKeyEvent(QTest::Release, window, key.key, key.text, key.modifiers);
}

QString TextOf(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
    return line->text();
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget))
    return TextOfDocument(*lines->document());
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    return label->buddy() == nullptr ? label->text() : AsCaption(label->text());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return button->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
    return AsCaption(box->title());
  if (const auto* dropDown = qobject_cast<const QComboBox*>(&widget))
    return dropDown->currentText();
  if (const auto* list = qobject_cast<const QListWidget*>(&widget); list != nullptr && list->currentItem() != nullptr)
    return list->currentItem()->text();
  return {};
}

/// The characters from one position to another, the caret at the latter.
struct Span {
  int anchor = 0;
  int caret = 0;
};

/// The selection of an editor; nothing for a widget that is none.
std::optional<Span> SpanOf(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    const int caret = line->cursorPosition();
    const int anchor = line->selectionStart() == caret ? line->selectionEnd() : line->selectionStart();
    return Span{.anchor = line->hasSelectedText() ? anchor : caret, .caret = caret};
  }
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget))
    return Span{.anchor = lines->textCursor().anchor(), .caret = lines->textCursor().position()};
  return std::nullopt;
}

void SelectSpan(QWidget& widget, Span span) {
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    line->setCursorPosition(span.anchor);
    line->cursorForward(true, span.caret - span.anchor);
  } else if (auto* lines = qobject_cast<QPlainTextEdit*>(&widget)) {
    QTextCursor cursor = lines->textCursor();
    cursor.setPosition(span.anchor);
    cursor.setPosition(span.caret, QTextCursor::KeepAnchor);
    lines->setTextCursor(cursor);
  }
}

}  // namespace

void QtDriver::Type(char character) {
  PressKey(fiscalon::StrokeOf(character));
}

void QtDriver::PressKey(const KeyStroke& stroke) {
  Press(dialog_.windowHandle(), stroke);
}

bool QtDriver::Point(const Control& control, QPoint& place) const {
  QWidget& widget = dialog_.WidgetOf(control);
  if (!widget.isVisible())
    return false;
  // Positions are those of a dialog that has dealt with what the acts before have changed.
  QCoreApplication::sendPostedEvents();
  for (QWidget* outer = widget.parentWidget(); outer != nullptr; outer = outer->parentWidget())
    if (auto* scroller = qobject_cast<QScrollArea*>(outer))
      scroller->ensureWidgetVisible(&widget);
  const QWidget& area = dialog_.MouseAreaOf(control);
  QPoint within = area.rect().center();
  if (control.Kind() == ControlKind::TextField)
    within = area.rect().bottomRight() - QPoint(4, 4);
  else if (control.Kind() == ControlKind::CheckBox || control.Kind() == ControlKind::OptionButton)
    within = QPoint(area.height() / 2, area.height() / 2);
  place = area.mapTo(&dialog_, within);
  return true;
}

void QtDriver::PressAndRelease(const Control& control, QPoint down, QPoint up) const {
  QWidget& widget = dialog_.WidgetOf(control);
  const bool hadFocus = dialog_.focusWidget() == &widget;
  const auto before = SpanOf(widget);
  QTest::mousePress(dialog_.windowHandle(), Qt::LeftButton, {}, down);
  QTest::mouseRelease(dialog_.windowHandle(), Qt::LeftButton, {}, up);
  const auto after = SpanOf(widget);
  // Where a check has shown a box, the mouse selects nothing any more.
  const bool selects = after && after->anchor == after->caret;
  if (!before || !selects || dialog_.focusWidget() != &widget)
    return;
  // Scenarios point behind the last character, which may lie beyond what the field shows; and in a field that has
  // the focus already they leave the selection alone.
  const auto end = static_cast<int>(TextOf(widget).size());
  SelectSpan(widget, hadFocus ? *before : Span{.anchor = end, .caret = end});
}

void QtDriver::PressMouse(Control& control) {
  QPoint place;
  if (!Point(control, place))
    return;
  // The button comes up beside the control, so that nothing is clicked; in a field it would drag a selection.
  PressAndRelease(control, place, control.Kind() == ControlKind::TextField ? place : QPoint(1, 1));
  if (auto* dropDown = qobject_cast<QComboBox*>(&dialog_.WidgetOf(control)); dropDown && dropDown->view()->isVisible())
    Press(dropDown->view()->window()->windowHandle(), *StrokeNamed("Escape"));
}

void QtDriver::Click(Control& control) {
  // Which row a click in a list would hit is not for a scenario to know: it chooses rows by their texts.
  if (control.Kind() == ControlKind::ListBox || control.Kind() == ControlKind::DropDownList)
    return PressMouse(control);
  if (QPoint place; Point(control, place))
    PressAndRelease(control, place, place);
}

void QtDriver::Choose(ListControl& list, int row) {
  list.ExpectRow(row);
  QPoint place;
  if (!Point(list, place))
    return;
  QWidget& widget = dialog_.WidgetOf(list);
  if (auto* rows = qobject_cast<QListWidget*>(&widget)) {
    rows->scrollToItem(rows->item(row));
    place = rows->viewport()->mapTo(&dialog_, rows->visualItemRect(rows->item(row)).center());
  }
  QTest::mousePress(dialog_.windowHandle(), Qt::LeftButton, {}, place);
  QTest::mouseRelease(dialog_.windowHandle(), Qt::LeftButton, {}, place);
  ChooseInPopup(widget, row);
}

void QtDriver::ChooseInPopup(QWidget& list, int row) const {
  auto* dropDown = qobject_cast<QComboBox*>(&list);
  if (dropDown == nullptr || !dropDown->view()->isVisible())
    return;
  QAbstractItemView& view = *dropDown->view();
  const QModelIndex index = dropDown->model()->index(row, dropDown->modelColumn());
  view.scrollTo(index);
  QWidget& popup = *view.window();
  const QPoint place = view.viewport()->mapTo(&popup, view.visualRect(index).center());
  // A popup that the mouse has just opened takes a click only after the mouse has moved in it.
  QTest::mouseMove(popup.windowHandle(), QPoint(1, 1));
  QTest::mouseMove(popup.windowHandle(), place);
  QTest::mousePress(popup.windowHandle(), Qt::LeftButton, {}, place);
  QTest::mouseRelease(popup.windowHandle(), Qt::LeftButton, {}, place);
}

void QtDriver::Paste(std::string_view text) {
  QGuiApplication::clipboard()->setText(ToQt(text));
  QTest::keyClick(dialog_.windowHandle(), Qt::Key_V, Qt::ControlModifier);
}

void QtDriver::CloseWindow(int reason) {
  if (static_cast<CloseReason>(reason) == CloseReason::CloseBox)
    dialog_.close();
  else
    dialog_.CloseFor(static_cast<CloseReason>(reason));
}

std::string QtDriver::Title() {
  return FromQt(dialog_.windowTitle());
}

std::string QtDriver::FocusName() {
  const Control* control = dialog_.ControlOf(dialog_.focusWidget());
  return control == nullptr ? std::string() : control->Name();
}

std::string QtDriver::Text(Control& control) {
  return FromQt(TextOf(dialog_.WidgetOf(control)));
}

std::string QtDriver::SelectedText(Control& control) {
  const QWidget& widget = dialog_.WidgetOf(control);
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
    return FromQt(line->selectedText());
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget))
    return FromQt(lines->textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
  return {};
}

bool QtDriver::Enabled(Control& control) {
  return dialog_.WidgetOf(control).isEnabled();
}

bool QtDriver::Visible(Control& control) {
  return dialog_.WidgetOf(control).isVisibleTo(&dialog_);
}

bool QtDriver::Checked(Control& control) {
  const auto* button = qobject_cast<const QAbstractButton*>(&dialog_.WidgetOf(control));
  return button != nullptr && button->isChecked();
}

bool QtDriver::Locked(Control& control) {
  const QWidget& widget = dialog_.WidgetOf(control);
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
    return line->isReadOnly();
  const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget);
  return lines != nullptr && lines->isReadOnly();
}

int QtDriver::Items(Control& control) {
  const QWidget& widget = dialog_.WidgetOf(control);
  if (const auto* dropDown = qobject_cast<const QComboBox*>(&widget))
    return dropDown->count();
  const auto* list = qobject_cast<const QListWidget*>(&widget);
  return list == nullptr ? 0 : list->count();
}

}  // namespace fiscalon::qt
