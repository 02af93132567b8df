#include "tools/desk/result_panel.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "core/module_state.h"
#include "frontends/qt/notice.h"
#include "frontends/qt/qt_text.h"
#include "tools/reading/field_remark.h"
#include "tools/reading/record_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

constexpr int kField = 0;
constexpr int kColumns = 1;
constexpr int kText = 2;

/// Where the raw text of a row stands: the line, and its columns, which count from 1.
constexpr int kLine = Qt::UserRole;
constexpr int kFrom = Qt::UserRole + 1;
constexpr int kTo = Qt::UserRole + 2;

QString Plain(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

void SetPlace(QTreeWidgetItem& row, int line, int from, int to) {
  row.setData(kField, kLine, line);
  row.setData(kField, kFrom, from);
  row.setData(kField, kTo, to);
  row.setText(kColumns, Plain(PlaceOf(from, to)));
}

}  // namespace

ResultPanel::ResultPanel(QWidget* parent)
    : QGroupBox(tr("The res&ult"), parent),
      said_(new QWidget(this)),
      words_(new QPlainTextEdit(said_)),
      records_(new QSplitter(Qt::Vertical, this)),
      fields_(new QTreeWidget),
      lines_(new QPlainTextEdit) {
  PrepareWords();
  PrepareRecords();
  for (QPlainTextEdit* text : {words_, lines_}) {
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(said_);
  rows->addWidget(records_, 1);
  rows->addStretch(0);
}

void ResultPanel::PrepareWords() {
  qt::MakeNotice(*said_);
  auto* line = new QVBoxLayout(said_);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(words_);
  words_->setObjectName(QStringLiteral("words"));
  words_->setAccessibleName(tr("How the screen ended"));
  words_->setFrameStyle(QFrame::NoFrame);
  words_->viewport()->setAutoFillBackground(false);
  words_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  words_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(words_->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
          [this] { FitWords(); });
}

void ResultPanel::PrepareRecords() {
  fields_->setObjectName(QStringLiteral("fields"));
  fields_->setHeaderLabels({tr("Field"), tr("Columns"), tr("Text"), tr("Meaning")});
  fields_->setUniformRowHeights(true);
  fields_->setAlternatingRowColors(true);
  fields_->setAccessibleName(tr("Fields of the records"));
  connect(fields_, &QTreeWidget::currentItemChanged, this, [this] { MarkChosen(); });
  auto* copy = new QAction(tr("Copy row"), fields_);
  copy->setObjectName(QStringLiteral("copyRow"));
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { CopyRow(); });
  // The view's own copying takes one cell.
  fields_->installEventFilter(this);
  fields_->addAction(copy);
  fields_->setContextMenuPolicy(Qt::ActionsContextMenu);
  lines_->setObjectName(QStringLiteral("lines"));
  lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
  lines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lines_->setAccessibleName(tr("The records as they are, each above a ruler of its columns"));
  records_->addWidget(fields_);
  records_->addWidget(lines_);
  records_->setStretchFactor(0, 2);
  records_->setStretchFactor(1, 1);
  records_->setChildrenCollapsible(false);
}

void ResultPanel::Say(const QString& words) {
  words_->setPlainText(words);
  fields_->clear();
  lines_->clear();
  records_->hide();
  // What has come of it is said to users who can't see it appear.
  qt::Announce(*said_, words);
}

void ResultPanel::ShowRecords(const QString& words, const std::vector<ShownRecord>& records) {
  Say(words);
  for (const ShownRecord& record : records) AddRecord(record);
  fields_->expandAll();
  const int gap = fontMetrics().horizontalAdvance(QStringLiteral("00"));
  for (const int column : {kField, kColumns, kText}) {
    fields_->resizeColumnToContents(column);
    fields_->setColumnWidth(column, fields_->columnWidth(column) + gap);
  }
  fields_->setCurrentItem(fields_->topLevelItem(0));
  lines_->moveCursor(QTextCursor::Start);
  records_->show();
}

void ResultPanel::AddRecord(const ShownRecord& record) {
  const int line = lines_->document()->isEmpty() ? 0 : lines_->blockCount();
  lines_->appendPlainText(Plain(VisibleText(record.record)));
  lines_->appendPlainText(Plain(Ruler(record.record.size())));
  auto* top = new QTreeWidgetItem(fields_, {Plain(HeadingOf(record))});
  QFont bold = fields_->font();
  bold.setBold(true);
  top->setFont(kField, bold);
  top->setFirstColumnSpanned(true);
  for (const ShownField& field : record.fields)
    if (IsWorthALine(field))
      AddField(*top, record, field, line);
  for (const Note& problem : record.problems) AddNote(*top, tr("Wrong"), problem, line);
  for (const Note& oddity : record.oddities) AddNote(*top, tr("Odd"), oddity, line);
}

void ResultPanel::AddField(QTreeWidgetItem& top, const ShownRecord& record, const ShownField& field, int line) {
  auto* row = new QTreeWidgetItem(&top, {qt::ToQt(field.name), QString(), Plain(DottedText(record.TextOf(field))),
                                         Plain(RemarkOn(record, field, TheModule().locale))});
  row->setFont(kText, lines_->font());
  SetPlace(*row, line, field.from, field.to);
}

void ResultPanel::AddNote(QTreeWidgetItem& record, const QString& heading, const Note& note, int line) {
  auto* row = new QTreeWidgetItem(&record, {heading, QString(), QString(), Plain(note.In(TheModule().language))});
  SetPlace(*row, line, note.from, note.to);
}

void ResultPanel::MarkChosen() {
  QList<QTextEdit::ExtraSelection> marks;
  const QTreeWidgetItem* row = fields_->currentItem();
  if (row != nullptr && row->data(kField, kTo).toInt() > 0) {
    const QTextBlock block = lines_->document()->findBlockByNumber(row->data(kField, kLine).toInt());
    const auto place = [&](int column) { return block.position() + std::min(column, block.length() - 1); };
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(block);
    mark.cursor.setPosition(place(row->data(kField, kFrom).toInt() - 1));
    lines_->setTextCursor(mark.cursor);
    mark.cursor.setPosition(place(row->data(kField, kTo).toInt()), QTextCursor::KeepAnchor);
    mark.format.setBackground(palette().highlight());
    mark.format.setForeground(palette().highlightedText());
    marks.append(mark);
  }
  lines_->setExtraSelections(marks);
}

bool ResultPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched != fields_ || event->type() != QEvent::KeyPress ||
      !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
    return QGroupBox::eventFilter(watched, event);
  CopyRow();
  return true;
}

void ResultPanel::CopyRow() const {
  const QTreeWidgetItem* row = fields_->currentItem();
  if (row == nullptr)
    return;
  QStringList cells;
  for (int column = 0; column < fields_->columnCount(); ++column) cells.append(row->text(column));
  while (!cells.isEmpty() && cells.last().isEmpty()) cells.removeLast();
  QGuiApplication::clipboard()->setText(cells.join(u'\t'));
}

void ResultPanel::FitWords() {
  constexpr int kMostLines = 7;
  // The document of a plain text counts its height in lines.
  const int lines = std::clamp(static_cast<int>(words_->document()->size().height()), 1, kMostLines);
  const int margins = 2 * static_cast<int>(words_->document()->documentMargin());
  words_->setFixedHeight((lines * words_->fontMetrics().lineSpacing()) + margins + 2);
}

}  // namespace fiscalon
