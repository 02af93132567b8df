#include "tools/desk/operators_page.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTextTable>
#include <QWindow>

namespace fiscalon {
namespace {

/// Tables of a page have frames about each cell by themselves, and no room in them.
void SetOut(QTextDocument& page, int room) {
  page.setDocumentMargin(2 * room);
  for (QTextFrame* frame : page.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr)
      continue;
    QTextTableFormat format = table->format();
    format.setCellSpacing(0);
    format.setCellPadding(room / 2.0);
    format.setBorderCollapse(true);
    // No wider than the window, whatever that is.
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    table->setFormat(format);
  }
}

}  // namespace

OperatorsPage::OperatorsPage(const QString& file) {
  setWindowTitle(tr("How forms are filled"));
  setObjectName(QStringLiteral("operatorsPage"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setOpenExternalLinks(true);
  // The keyboard moves a caret through the page, so that screen readers can follow it.
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
  const int unit = fontMetrics().horizontalAdvance(u'0');
  SetOut(*document(), unit);
  resize(QSize(100 * unit, 100 * unit).boundedTo(screen()->availableSize() * 9 / 10));
}

bool OperatorsPage::event(QEvent* event) {
  // A form or a box that opens has all other windows wait, but for its own: so this is made one of them, and can be
  // read while one fills the form in.
  if (event->type() == QEvent::WindowBlocked)
    windowHandle()->setTransientParent(QGuiApplication::modalWindow());
  return QTextBrowser::event(event);
}

bool OperatorsPage::IsThere(const QString& file) {
  const QFileInfo page(file);
  return page.isFile() && page.isReadable();
}

void OperatorsPage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QTextBrowser::keyPressEvent(event);
}

}  // namespace fiscalon
