#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QScrollArea>
#include <QSplitter>
#include <string>

#include "tools/paying/payment.h"

namespace fiscalon {

class OperatorsPage;
class PaymentPanel;
class ResultPanel;
class ScreenList;

/// The payment desk: a host program with one window. It knows a payment, shows a screen, and takes the records over.
/// It keeps nothing: each show has a session of its own, and what was handed over is taken out of the form.
class DeskWindow final : public QMainWindow {
 public:
  /// The operators' page is the file that F1 opens.
  explicit DeskWindow(QString operatorsPage);
  ~DeskWindow() override;

 private:
  void AddKeys();
  void OpenOperatorsPage();
  void Arrange();
  /// Where the window is too narrow for both, the screens stand beneath the payment.
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void ShowScreen(const std::string& code);
  /// Whether the payment is nothing to show a screen with, or the user will not have a file replaced; says so then.
  bool IsStopped(const Payment& payment, const std::string& code);

  QString operatorsPage_;
  QPointer<OperatorsPage> openPage_;
  PaymentPanel* payment_;
  ScreenList* screens_;
  ResultPanel* result_;
  QSplitter* above_;
  QSplitter* whole_;
  QScrollArea* area_;
  /// How wide the window must be for payment and screens side by side.
  int sideBySide_ = 0;
};

}  // namespace fiscalon
