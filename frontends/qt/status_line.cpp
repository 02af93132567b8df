#include "frontends/qt/status_line.h"

#include <QFontMetrics>

#include "frontends/qt/notice.h"

namespace fiscalon::qt {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("status"));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  hide();
  MakeNotice(*this);
}

bool StatusLine::Say(const QString& words) {
  if (text() == words)
    return false;
  // Qt tells of a text that changes too, but not where the label has a name.
  if (!words.isEmpty()) {
    setMinimumHeight(QFontMetrics(font()).height());
    Announce(*this, words);
  }
  setText(words);
  if (words.isEmpty())
    setAccessibleName(words);
  return true;
}

}  // namespace fiscalon::qt
