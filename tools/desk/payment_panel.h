#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <functional>

#include "tools/desk/payment.h"

class QGridLayout;
class QLabel;

namespace fiscalon {

/// The payment, to be changed at will.
class PaymentPanel final : public QGroupBox {
 public:
  explicit PaymentPanel(QWidget* parent = nullptr);

  Payment Current() const;
  void Show(const Payment& payment);

  /// Called where the user presses Enter in a field.
  std::function<void()> onEnter = {};

 private:
  QLineEdit* NewLine(const char* name, int characters);
  void AddAmount(QGridLayout& grid, int row);
  void AddDate(QGridLayout& grid, int row);
  void AddDestination(QGridLayout& grid, int row);
  void ChooseFile();
  /// Says beneath the entries which of them records do not bear, before a screen is shown.
  void NameDoubts();

  QLineEdit* customerNumber_;
  QLineEdit* sequence_;
  QLineEdit* billerName_;
  QLineEdit* billerCode_;
  QLineEdit* cents_;
  QLineEdit* dollars_;
  QDateEdit* date_;
  QCheckBox* onHold_;
  QLineEdit* enteredBy_;
  QLineEdit* title_;
  QLineEdit* businessName_;
  QSpinBox* items_;
  QRadioButton* toCollection_;
  QRadioButton* toFile_;
  QLineEdit* file_;
  QPushButton* chooseFile_;
  QLabel* doubts_;
};

}  // namespace fiscalon
