#pragma once

#include <QLabel>

namespace fiscalon::qt {

/// The line below a form that says which entry keeps the focus. It is there from the first time that it says something:
/// after that its place stays, so that no button moves under a mouse that is down.
class StatusLine final : public QLabel {
 public:
  explicit StatusLine(QWidget* parent);

  /// Shows the text, and announces it. Whether it is another one than before.
  bool Say(const QString& words);
};

}  // namespace fiscalon::qt
