#include "frontends/qt/text_view.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/usual_sizes.h"
#include "core/forms/watched_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

bool IsPair(const std::string& text, size_t i) {
  return text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
}

// An editor's line end is one character, a field's is CR LF.

int PositionInEditor(const std::string& text, int inField) {
  int position = 0;
  for (size_t i = 0; i < std::min(text.size(), static_cast<size_t>(inField)); ++i) position += IsPair(text, i) ? 0 : 1;
  return position;
}

int PositionInField(const std::string& text, int inEditor) {
  size_t i = 0;
  for (; i < text.size() && inEditor > 0; ++i)
    if (IsPair(text, i))
      continue;
    else
      --inEditor;
  return static_cast<int>(i);
}

/// The characters that the field's editing takes, as its editor does.
QString TypedText(int character) {
  if (character == key::kEnter)
    return QStringLiteral("\n");
  return character < ' ' ? QString() : ToQt(std::string(1, static_cast<char>(character)));
}

}  // namespace

bool TextView::IsAligned() const {
  return NativeText() == WithPlainLineEnds(ToQt(field_.Text()));
}

std::string TextView::FieldText() const {
  const QString native = NativeText();
  // Code may have set line ends of another kind.
  if (IsAligned())
    return field_.Text();
  return FromQt(field_.IsMultiLine() ? QString(native).replace(u'\n', QStringLiteral("\r\n")) : native);
}

void TextView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  SetLocked(field_.Locked());
  if (const QString text = WithPlainLineEnds(ToQt(field_.Text())); text != NativeText())
    SetNativeText(text);
  const Selection selection = field_.Selected();
  if (!ShowsSelection() || FieldSelection() == selection)
    return;
  const int start = PositionInEditor(field_.Text(), selection.start);
  SetNativeSelection({.start = start, .length = PositionInEditor(field_.Text(), selection.End()) - start});
}

bool TextView::ShowsSelection() const {
  // A field that was left shows none. Where the focus can't go, there is no caret either.
  const bool selects = field_.Selected().length > 0 || FieldSelection().length > 0;
  return IsActive() || (selects && !field_.CanTakeFocus());
}

void TextView::Edit(const KeyOutcome& outcome, QKeyEvent& event) {
  // Alt makes commands of keys, never text.
  const bool command = event.modifiers().testFlag(Qt::AltModifier) && outcome.character == 0;
  // A paste of nothing takes nothing away.
  const bool empty = event.matches(QKeySequence::Paste) && QGuiApplication::clipboard()->text().isEmpty();
  if (command || empty)
    return;
  if (CollapseSelection(event))
    return;
  const QString typed = TypedText(outcome.character);
  EditWith([&] {
    // Editors have ideas of their own about Enter with Shift or Ctrl.
    const bool endsLine = outcome.character == key::kEnter;
    if (typed.isEmpty() || (typed == event.text() && !endsLine))
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
  EditWith([&] { InsertNatively(TypedText(static_cast<unsigned char>(character))); });
}

template <class Editing>
void TextView::EditWith(Editing&& editing) {
  {
    const ScopedValue running(editing_, true);
    editing();
  }
  if (!IsAligned())
    Report(EditAct::Origin::Key);
  else
    SelectionMoved();
}

void TextView::TextChanged() {
  if (!refreshing_ && !editing_)
    Report(EditAct::Origin::Elsewhere);
}

void TextView::Report(EditAct::Origin origin) {
  const EditAct edit = {.field = &field_, .text = FieldText(), .selection = FieldSelection(), .origin = origin};
  // An assistive program enters texts wherever it likes: the focus comes first, as it does before all other editing.
  if (!IsActive())
    Acts().BringFocus(field_);
  if (IsActive())
    Acts().EditText(edit);
  if (field_.Owner().IsUp())
    Refresh();
}

void TextView::SelectionMoved() {
  if (!refreshing_ && !editing_ && !Acts().Acting() && IsActive())
    Acts().SelectText(field_, FieldSelection());
}

bool TextView::MousePressed(QMouseEvent& /*event*/) {
  // Any button brings the focus, as it does natively; where it stays, the editor places its caret, unless checks have
  // taken the focus and given it back.
  pressIsOver_ = Press() != AfterPress::Goes || Acts().IsFocusGiven();
  return pressIsOver_;
}

bool TextView::MouseReleased(QMouseEvent& /*event*/) {
  return std::exchange(pressIsOver_, false);
}

QPoint TextView::PointToPress() const {
  // Behind the text, where it does not fill the field.
  return MouseArea().rect().bottomRight() - QPoint(4, 4);
}

ShownControl TextView::Content() const {
  const QString text = NativeText();
  const Selection selection = NativeSelection();
  return {.text = FromQt(text), .selection = FromQt(text.mid(selection.start, selection.length)), .locked = IsLocked()};
}

Selection TextView::FieldSelection() const {
  const QString native = NativeText();
  const Selection selection = NativeSelection();
  const std::string text = FieldText();
  // A line that was just pasted may hold line ends as they came.
  const bool asItCame = !field_.IsMultiLine() && !IsAligned();
  const auto positionOf = [&](int inEditor) {
    const auto position = static_cast<int>(FromQt(native.left(inEditor)).size());
    return asItCame ? position : PositionInField(text, position);
  };
  const int start = positionOf(selection.start);
  return {.start = start, .length = positionOf(selection.End()) - start};
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
  if (field.MaxLength() != FieldDesign::kNoLimit)
    native_.setMaxLength(field.MaxLength());
  Restyle();
  QObject::connect(&native_, &QLineEdit::textChanged, &native_, Safely([this](const auto&...) { TextChanged(); }));
  QObject::connect(&native_, &QLineEdit::selectionChanged, &native_,
                   Safely([this](const auto&...) { SelectionMoved(); }));
  QObject::connect(&native_, &QLineEdit::cursorPositionChanged, &native_,
                   Safely([this](const auto&...) { SelectionMoved(); }));
}

void LineView::Restyle() {
  native_.setFont(Font());
  native_.setPalette(Shades());
  native_.setFixedWidth(QFontMetrics(native_.font()).horizontalAdvance(u'0') * CharactersOf(Field()) + Chrome());
  ShowBeginning();
}

int LineView::Chrome() const {
  constexpr int kCharactersOfHint = 17;
  return native_.sizeHint().width() - QFontMetrics(native_.font()).horizontalAdvance(u'x') * kCharactersOfHint;
}

void LineView::SetNativeText(const QString& text) {
  // Code may set a longer text than can be typed.
  if (native_.maxLength() < text.size())
    native_.setMaxLength(static_cast<int>(text.size()));
  native_.setText(text);
  ShowBeginning();
}

void LineView::ShowBeginning() {
  const bool fits = QFontMetrics(native_.font()).horizontalAdvance(native_.text()) + Chrome() <= native_.maximumWidth();
  const bool isCut = native_.isReadOnly() && !fits;
  native_.setToolTip(isCut ? native_.text().toHtmlEscaped() : QString());
  if (isCut && !IsActive())
    native_.setCursorPosition(0);
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
  ShowBeginning();
}

MultiLineView::MultiLineView(TextField& field, QWidget& parent, WatchedActs& acts)
    : TextView(field, *new QPlainTextEdit(&parent), acts), native_(static_cast<QPlainTextEdit&>(Widget())) {
  native_.setTabChangesFocus(true);
  Restyle();
  QObject::connect(&native_, &QPlainTextEdit::textChanged, &native_, Safely([this](const auto&...) { TextChanged(); }));
  QObject::connect(&native_, &QPlainTextEdit::selectionChanged, &native_,
                   Safely([this](const auto&...) { SelectionMoved(); }));
  QObject::connect(&native_, &QPlainTextEdit::cursorPositionChanged, &native_,
                   Safely([this](const auto&...) { SelectionMoved(); }));
}

void MultiLineView::Restyle() {
  native_.setFont(Font());
  native_.setPalette(Shades());
  const QFontMetrics metrics(native_.font());
  const int chrome = 2 * (native_.frameWidth() + static_cast<int>(native_.document()->documentMargin()));
  const QSize size(metrics.horizontalAdvance(u'0') * CharactersOf(Field()) + chrome,
                   metrics.lineSpacing() * kLinesOfText + chrome);
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

}  // namespace fiscalon::qt
