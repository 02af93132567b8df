#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <functional>
#include <map>
#include <vector>

#include "tools/paying/payment_doubts.h"

class QGridLayout;
class QLabel;

namespace fiscalon {

/// The payment, to be changed at will. What speaks against an entry is said beneath them all while it is typed.
class PaymentPanel final : public QGroupBox {
 public:
  explicit PaymentPanel(QWidget* parent = nullptr);

  Payment Current() const;
  void Show(const Payment& payment);
  /// Has the user go on in that entry. Its text stays as it is.
  void GoTo(PaymentEntry entry);

  /// Called where the user presses Enter in an entry.
  std::function<void()> onEnter = {};

 private:
  QLineEdit* NewLine(const char* name, int characters);
  void Add(QGridLayout& grid, int row, int side, PaymentEntry entry, QWidget* field);
  void AddAmount(QGridLayout& grid, int row);
  void AddDate(QGridLayout& grid, int row);
  void AddDestination(QGridLayout& grid, int row);
  void AddDoubts(QGridLayout& grid);
  void ChooseFile();
  void NameDoubts();
  /// They stand there in full, however they break into lines.
  void FitDoubts();
  void resizeEvent(QResizeEvent* event) override;
  /// Says the doubts once more to users who can't see them, when they have left an entry.
  void AnnounceDoubts();
  /// What no entry takes for itself.
  void keyPressEvent(QKeyEvent* event) override;

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
  QWidget* notice_;
  QLabel* warning_;
  QLabel* doubts_;
  std::map<PaymentEntry, QWidget*> fields_;
};

}  // namespace fiscalon
