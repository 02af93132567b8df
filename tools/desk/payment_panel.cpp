#include "tools/desk/payment_panel.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>

#include "frontends/qt/qt_text.h"
#include "tools/reading/payment_advice.h"

namespace fiscalon {
namespace {

constexpr int kNameCharacters = 16;
constexpr int kCodeCharacters = 7;
constexpr int kAmountCharacters = 12;
constexpr QStringView kDateOfHosts = u"MMddyyyy";

/// Two fields stand side by side, each behind its label: the columns of the labels.
constexpr int kLeft = 0;
constexpr int kRight = 2;

void Add(QGridLayout& grid, int row, int side, const QString& caption, QWidget* field, const QString& hint = {}) {
  auto* label = new QLabel(caption);
  label->setBuddy(field);
  field->setToolTip(hint);
  field->setAccessibleDescription(hint);
  grid.addWidget(label, row, side);
  grid.addWidget(field, row, side + 1, field->maximumWidth() < QWIDGETSIZE_MAX ? Qt::AlignLeft : Qt::Alignment());
}

int CharactersWide(const QWidget& widget, int characters) {
  return widget.fontMetrics().horizontalAdvance(u'0') * (characters + 2);
}

}  // namespace

PaymentPanel::PaymentPanel(QWidget* parent)
    : QGroupBox(tr("The payment"), parent),
      customerNumber_(NewLine("customerNumber", kNameCharacters)),
      sequence_(NewLine("sequence", kCodeCharacters)),
      billerName_(NewLine("billerName", kNameCharacters)),
      billerCode_(NewLine("billerCode", kCodeCharacters)),
      cents_(NewLine("cents", kAmountCharacters)),
      dollars_(NewLine("dollars", kAmountCharacters)),
      date_(new QDateEdit(this)),
      onHold_(new QCheckBox(tr("On &hold, without a fixed date"), this)),
      enteredBy_(NewLine("enteredBy", kNameCharacters)),
      title_(NewLine("title", kAmountCharacters)),
      businessName_(NewLine("businessName", kNameCharacters)),
      items_(new QSpinBox(this)),
      toCollection_(new QRadioButton(tr("Hand them bac&k"), this)),
      toFile_(new QRadioButton(tr("&Write them to a file:"), this)),
      file_(NewLine("file", kNameCharacters)),
      chooseFile_(new QPushButton(tr("Ch&oose..."), this)),
      doubts_(new QLabel(this)) {
  for (QLineEdit* narrow : {sequence_, billerCode_, cents_, dollars_}) narrow->setFixedWidth(narrow->minimumWidth());
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(3 * grid->horizontalSpacing() / 2);
  grid->setColumnStretch(kLeft + 1, 3);
  grid->setColumnStretch(kRight + 1, 2);
  Add(*grid, 0, kLeft, tr("Customer nu&mber:"), customerNumber_);
  Add(*grid, 0, kRight, tr("&Sequence:"), sequence_, tr("Four characters that head each record"));
  Add(*grid, 1, kLeft, tr("&Biller:"), billerName_, tr("Shown on the screens"));
  Add(*grid, 1, kRight, tr("Biller &code:"), billerCode_,
      tr("001051, 001052, 001053 and 001055 have rules of their own"));
  AddAmount(*grid, 2);
  AddDate(*grid, 3);
  Add(*grid, 4, kLeft, tr("&Entered by:"), enteredBy_, tr("A record has room for 30 characters"));
  Add(*grid, 4, kRight, tr("T&itle:"), title_, tr("A record has room for 20 characters"));
  items_->setObjectName(QStringLiteral("items"));
  items_->setRange(1, 12);
  items_->setFixedWidth(CharactersWide(*items_, kCodeCharacters));
  Add(*grid, 5, kLeft, tr("Business &name:"), businessName_, tr("Offered on screen 10"));
  Add(*grid, 5, kRight, tr("Number o&f items:"), items_, tr("How many screen 07 collects"));
  AddDestination(*grid, 6);
  doubts_->setObjectName(QStringLiteral("doubts"));
  doubts_->setWordWrap(true);
  doubts_->hide();
  grid->addWidget(doubts_, grid->rowCount(), kLeft, 1, -1);
  grid->setRowStretch(grid->rowCount(), 1);
  for (QLineEdit* line : {sequence_, enteredBy_, title_, file_})
    connect(line, &QLineEdit::textChanged, this, [this] { NameDoubts(); });
  connect(toFile_, &QRadioButton::toggled, this, [this] { NameDoubts(); });
}

void PaymentPanel::NameDoubts() {
  Levyra session;
  session.SeqNumber(qt::FromQt(sequence_->text()));
  session.EnterName(qt::FromQt(enteredBy_->text()));
  session.EnterTitle(qt::FromQt(title_->text()));
  session.GovFilename(qt::FromQt(file_->text()));
  session.WriteFile(toFile_->isChecked());
  QStringList doubts;
  for (const std::string& doubt : DoubtsAbout(session)) doubts.append(QString::fromStdString(doubt));
  doubts_->setText(doubts.join(u'\n'));
  doubts_->setVisible(!doubts.isEmpty());
}

QLineEdit* PaymentPanel::NewLine(const char* name, int characters) {
  auto* line = new QLineEdit(this);
  line->setObjectName(QLatin1String(name));
  line->setMinimumWidth(CharactersWide(*line, characters));
  connect(line, &QLineEdit::returnPressed, this, [this] {
    if (onEnter)
      onEnter();
  });
  return line;
}

void PaymentPanel::AddAmount(QGridLayout& grid, int row) {
  Add(grid, row, kLeft, tr("&Amount in cents:"), cents_, tr("What the host sets"));
  Add(grid, row, kRight, tr("In &dollars:"), dollars_, tr("The same amount, with a point or a comma"));
  for (QLineEdit* line : {cents_, dollars_}) {
    line->setAlignment(Qt::AlignRight);
    line->setPlaceholderText(tr("no amount"));
  }
  connect(cents_, &QLineEdit::textEdited, this, [this](const QString& text) { dollars_->setText(DollarsOf(text)); });
  connect(dollars_, &QLineEdit::textEdited, this, [this](const QString& text) { cents_->setText(CentsOf(text)); });
}

void PaymentPanel::AddDate(QGridLayout& grid, int row) {
  date_->setObjectName(QStringLiteral("date"));
  date_->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  date_->setCalendarPopup(true);
  date_->setMaximumWidth(CharactersWide(*date_, kNameCharacters));
  Add(grid, row, kLeft, tr("Payment da&te:"), date_);
  onHold_->setObjectName(QStringLiteral("onHold"));
  grid.addWidget(onHold_, row, kRight, 1, 2);
}

void PaymentPanel::AddDestination(QGridLayout& grid, int row) {
  toCollection_->setObjectName(QStringLiteral("toCollection"));
  toFile_->setObjectName(QStringLiteral("toFile"));
  chooseFile_->setObjectName(QStringLiteral("chooseFile"));
  file_->setAccessibleName(tr("Record file"));
  // Whoever names a file wants it written.
  connect(file_, &QLineEdit::textEdited, toFile_, [this] { toFile_->setChecked(true); });
  connect(chooseFile_, &QPushButton::clicked, this, [this] { ChooseFile(); });
  grid.addWidget(new QLabel(tr("Records:")), row, kLeft);
  grid.addWidget(toCollection_, row, kLeft + 1, Qt::AlignLeft);
  auto* line = new QHBoxLayout;
  line->addWidget(toFile_);
  line->addWidget(file_, 1);
  line->addWidget(chooseFile_);
  grid.addLayout(line, row + 1, kLeft + 1, 1, kRight + 1);
}

void PaymentPanel::ChooseFile() {
  const QString chosen = QFileDialog::getSaveFileName(this, tr("Record file"), file_->text(), {}, nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
  // Without a window manager nobody else gives it the keyboard.
  window()->activateWindow();
  if (chosen.isEmpty())
    return;
  file_->setText(chosen);
  toFile_->setChecked(true);
}

Payment PaymentPanel::Current() const {
  return {.customerNumber = customerNumber_->text(),
          .billerCode = billerCode_->text(),
          .billerName = billerName_->text(),
          .cents = cents_->text(),
          .date = date_->date().toString(kDateOfHosts),
          .enteredBy = enteredBy_->text(),
          .title = title_->text(),
          .onHold = onHold_->isChecked(),
          .sequence = sequence_->text(),
          .items = items_->value(),
          .businessName = businessName_->text(),
          .destination = toFile_->isChecked() ? Payment::Destination::File : Payment::Destination::Collection,
          .file = file_->text()};
}

void PaymentPanel::Show(const Payment& payment) {
  customerNumber_->setText(payment.customerNumber);
  billerCode_->setText(payment.billerCode);
  billerName_->setText(payment.billerName);
  cents_->setText(payment.cents);
  dollars_->setText(DollarsOf(payment.cents));
  date_->setDate(QDate::fromString(payment.date, kDateOfHosts));
  enteredBy_->setText(payment.enteredBy);
  title_->setText(payment.title);
  onHold_->setChecked(payment.onHold);
  sequence_->setText(payment.sequence);
  items_->setValue(payment.items);
  businessName_->setText(payment.businessName);
  (payment.destination == Payment::Destination::File ? toFile_ : toCollection_)->setChecked(true);
  file_->setText(payment.file);
}

}  // namespace fiscalon
