#include "frontends/qt/text_view.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/form_events.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {
namespace {

constexpr int kUnlimitedWidth = 34;
constexpr int kWidest = 44;
/// Amounts stand beneath each other in fields of one width, wherever their limits lie.
constexpr int kAmountWidth = 14;

int WidthInCharacters(const TextField& field) {
  if (field.MaxLength() == Design::kNoLimit)
    return kUnlimitedWidth;
  const int least = field.Designed().alignment == Alignment::Right ? kAmountWidth : 0;
  return std::clamp(field.MaxLength() + 1, least, kWidest);
}

}  // namespace

void TextView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  SetLocked(field_.Locked());
  if (const QString text = WithPlainLineEnds(ToQt(field_.Text())); text != NativeText())
    SetNativeText(text);
  if (IsActive() && InCodePage(NativeSelection()) != field_.Selected())
    SetNativeSelection(field_.Selected());
}

void TextView::Edit(const KeyOutcome& outcome, QKeyEvent& event) {
  // Alt makes commands of keys, never text; Enter ends a line only where there are several.
  const bool command = event.modifiers().testFlag(Qt::AltModifier) && outcome.character == 0;
  // A paste of nothing takes nothing away.
  const bool empty = event.matches(QKeySequence::Paste) && QGuiApplication::clipboard()->text().isEmpty();
  if (command || empty || (outcome.character == key::kEnter && !field_.Designed().multiLine))
    return;
  if (CollapseSelection(event))
    return;
  const QString typed =
      outcome.character < ' ' ? QString() : ToQt(std::string(1, static_cast<char>(outcome.character)));
  EditWith([&] {
    if (typed.isEmpty() || typed == event.text())
      static_cast<QObject&>(Widget()).event(&event);
    else
      InsertNatively(typed);
  });
}

bool TextView::CollapseSelection(const QKeyEvent& event) {
  const Selection selection = NativeSelection();
  const bool plainArrow = (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right) &&
                          (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!plainArrow || selection.length == 0)
    return false;
  SetNativeSelection({.start = event.key() == Qt::Key_Left ? selection.start : selection.End()});
  return true;
}

void TextView::Insert(char character) {
  EditWith([&] { InsertNatively(ToQt(std::string(1, character))); });
}

template <class Editing>
void TextView::EditWith(Editing&& editing) {
  {
    const ScopedValue running(editing_, true);
    editing();
  }
  if (NativeText() != WithPlainLineEnds(ToQt(field_.Text())))
    Report(EditAct::Origin::Key);
  else
    SelectionMoved();
}

void TextView::Edited() {
  if (!refreshing_ && !editing_)
    Report(EditAct::Origin::Elsewhere);
}

void TextView::Report(EditAct::Origin origin) {
  std::string text = FromQt(NativeText());
  Selection selection = InCodePage(NativeSelection());
  if (const size_t end = text.find_first_of("\r\n"); end != std::string::npos && !field_.Designed().multiLine) {
    // Only a paste or a drop brings a line end, and it ends at the caret: the first line of it is taken.
    if (static_cast<int>(end) == field_.Selected().start)
      return Refresh();
    text.erase(end, std::max(static_cast<size_t>(selection.End()), end) - end);
    selection = {.start = static_cast<int>(end)};
  }
  Acts().EditText({.field = &field_, .text = std::move(text), .selection = selection, .origin = origin});
  if (field_.Owner().IsUp())
    Refresh();
}

void TextView::SelectionMoved() {
  if (!refreshing_ && !editing_ && !Acts().Acting() && IsActive())
    Acts().SelectText(field_, InCodePage(NativeSelection()));
}

bool TextView::MousePressed(QMouseEvent& /*event*/) {
  // Any button brings the focus, as it does natively; where it stays, the editor places its caret.
  return Press() != AfterPress::Goes;
}

Selection TextView::InCodePage(Selection native) const {
  const QString text = NativeText();
  const auto start = static_cast<int>(FromQt(text.left(native.start)).size());
  return {.start = start, .length = static_cast<int>(FromQt(text.mid(native.start, native.length)).size())};
}

QPalette TextView::Shades() const {
  QPalette palette;
  if (field_.Owner().IsUp() && field_.Locked())
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
      palette.setBrush(group, QPalette::Base, QApplication::palette().brush(group, QPalette::Window));
  return palette;
}

LineView::LineView(TextField& field, QWidget& parent, WatchedActs& acts)
    : TextView(field, *new QLineEdit(&parent), acts), native_(static_cast<QLineEdit&>(Widget())) {
  native_.setAlignment((field.Designed().alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft) |
                       Qt::AlignVCenter);
  if (field.MaxLength() != Design::kNoLimit)
    native_.setMaxLength(field.MaxLength());
  Restyle();
  QObject::connect(&native_, &QLineEdit::textEdited, &native_, [this] { Edited(); });
  QObject::connect(&native_, &QLineEdit::selectionChanged, &native_, [this] { SelectionMoved(); });
  QObject::connect(&native_, &QLineEdit::cursorPositionChanged, &native_, [this] { SelectionMoved(); });
}

void LineView::Restyle() {
  native_.setFont(Font());
  native_.setPalette(Shades());
  constexpr int kCharactersOfHint = 17;
  const QFontMetrics metrics(native_.font());
  const int chrome = native_.sizeHint().width() - metrics.horizontalAdvance(u'x') * kCharactersOfHint;
  native_.setFixedWidth(metrics.horizontalAdvance(u'0') * WidthInCharacters(Field()) + chrome);
}

void LineView::SetNativeText(const QString& text) {
  // Code may set a longer text than can be typed.
  if (native_.maxLength() < text.size())
    native_.setMaxLength(static_cast<int>(text.size()));
  native_.setText(text);
}

Selection LineView::NativeSelection() const {
  if (native_.hasSelectedText())
    return {.start = native_.selectionStart(), .length = native_.selectionLength()};
  return {.start = native_.cursorPosition()};
}

void LineView::SetNativeSelection(Selection selection) {
  if (selection.length == 0)
    native_.setCursorPosition(selection.start);
  else
    native_.setSelection(selection.start, selection.length);
}

void LineView::SetLocked(bool locked) {
  if (native_.isReadOnly() == locked)
    return;
  native_.setReadOnly(locked);
  native_.setPalette(Shades());
}

MultiLineView::MultiLineView(TextField& field, QWidget& parent, WatchedActs& acts)
    : TextView(field, *new QPlainTextEdit(&parent), acts), native_(static_cast<QPlainTextEdit&>(Widget())) {
  native_.setTabChangesFocus(true);
  Restyle();
  QObject::connect(&native_, &QPlainTextEdit::textChanged, &native_, [this] { Edited(); });
  QObject::connect(&native_, &QPlainTextEdit::selectionChanged, &native_, [this] { SelectionMoved(); });
  QObject::connect(&native_, &QPlainTextEdit::cursorPositionChanged, &native_, [this] { SelectionMoved(); });
}

void MultiLineView::Restyle() {
  constexpr int kLines = 4;
  native_.setFont(Font());
  native_.setPalette(Shades());
  const QFontMetrics metrics(native_.font());
  const int chrome = 2 * (native_.frameWidth() + static_cast<int>(native_.document()->documentMargin()));
  const QSize size(metrics.horizontalAdvance(u'0') * kUnlimitedWidth + chrome, metrics.lineSpacing() * kLines + chrome);
  native_.setFixedSize(size.expandedTo(native_.minimumSizeHint()));
}

QString MultiLineView::NativeText() const {
  return TextOfDocument(*native_.document());
}

Selection MultiLineView::NativeSelection() const {
  const QTextCursor cursor = native_.textCursor();
  return {.start = cursor.selectionStart(), .length = cursor.selectionEnd() - cursor.selectionStart()};
}

void MultiLineView::SetNativeSelection(Selection selection) {
  QTextCursor cursor = native_.textCursor();
  cursor.setPosition(selection.start);
  cursor.setPosition(selection.End(), QTextCursor::KeepAnchor);
  native_.setTextCursor(cursor);
}

void MultiLineView::SetLocked(bool locked) {
  if (native_.isReadOnly() == locked)
    return;
  native_.setReadOnly(locked);
  native_.setPalette(Shades());
}

}  // namespace fiscalon
