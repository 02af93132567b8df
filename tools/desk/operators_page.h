#pragma once

#include <QTextBrowser>

namespace fiscalon {

/// The operators' page in a window of its own, beside the desk and its forms. Escape closes it.
class OperatorsPage final : public QTextBrowser {
 public:
  explicit OperatorsPage(const QString& file);

  /// Whether the page is there to be read.
  static bool IsThere(const QString& file);

 private:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace fiscalon
