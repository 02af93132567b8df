#include "frontends/qt/status_line.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontMetrics>

namespace fiscalon::qt {
namespace {

/// Screen readers say what a notification holds when it appears. Of a label that changes they say nothing.
class ToldStatus final : public QAccessibleWidget {
 public:
  explicit ToldStatus(StatusLine& line) : QAccessibleWidget(&line, QAccessible::Notification), line_(line) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? line_.text() : QAccessibleWidget::text(kind);
  }

 private:
  const StatusLine& line_;
};

QAccessibleInterface* ToldBy(const QString& /*className*/, QObject* object) {
  auto* line = dynamic_cast<StatusLine*>(object);
  return line == nullptr ? nullptr : new ToldStatus(*line);
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  QAccessible::installFactory(&ToldBy);
  setObjectName(QStringLiteral("status"));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  hide();
}

bool StatusLine::Say(const QString& words) {
  if (text() == words)
    return false;
  hide();
  setText(words);
  if (words.isEmpty())
    return true;
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  setMinimumHeight(QFontMetrics(font()).height());
  show();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
  return true;
}

}  // namespace fiscalon::qt
