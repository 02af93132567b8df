#include "tools/desk/payment_panel.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>

#include "frontends/qt/notice.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

constexpr int kNameCharacters = 16;
constexpr int kCodeCharacters = 7;
constexpr int kAmountCharacters = 12;
constexpr QStringView kDateForm = u"yyyy-MM-dd";

/// Two fields stand side by side, each behind its label: the columns of the labels.
constexpr int kLeft = 0;
constexpr int kRight = 2;

QString Said(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString CaptionOf(PaymentEntry entry) {
  return Said(Utf8Words(WordsOf(entry).caption));
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
      onHold_(new QCheckBox(CaptionOf(PaymentEntry::OnHold), this)),
      enteredBy_(NewLine("enteredBy", kNameCharacters)),
      title_(NewLine("title", kAmountCharacters)),
      businessName_(NewLine("businessName", kNameCharacters)),
      items_(new QSpinBox(this)),
      toCollection_(new QRadioButton(CaptionOf(PaymentEntry::ToCollection), this)),
      toFile_(new QRadioButton(CaptionOf(PaymentEntry::ToFile), this)),
      file_(NewLine("file", kNameCharacters)),
      chooseFile_(new QPushButton(tr("Ch&oose..."), this)),
      notice_(new QWidget(this)),
      warning_(new QLabel(notice_)),
      doubts_(new QLabel(notice_)) {
  for (QLineEdit* narrow : {sequence_, billerCode_, cents_, dollars_}) narrow->setFixedWidth(narrow->minimumWidth());
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(3 * grid->horizontalSpacing() / 2);
  grid->setColumnStretch(kLeft + 1, 3);
  grid->setColumnStretch(kRight + 1, 2);
  Add(*grid, 0, kLeft, PaymentEntry::CustomerNumber, customerNumber_);
  Add(*grid, 0, kRight, PaymentEntry::Sequence, sequence_);
  Add(*grid, 1, kLeft, PaymentEntry::BillerName, billerName_);
  Add(*grid, 1, kRight, PaymentEntry::BillerCode, billerCode_);
  AddAmount(*grid, 2);
  AddDate(*grid, 3);
  Add(*grid, 4, kLeft, PaymentEntry::EnteredBy, enteredBy_);
  Add(*grid, 4, kRight, PaymentEntry::Title, title_);
  items_->setObjectName(QStringLiteral("items"));
  items_->setRange(1, 12);
  items_->setFixedWidth(CharactersWide(*items_, kCodeCharacters));
  Add(*grid, 5, kLeft, PaymentEntry::BusinessName, businessName_);
  Add(*grid, 5, kRight, PaymentEntry::Items, items_);
  AddDestination(*grid, 6);
  AddDoubts(*grid);
}

QLineEdit* PaymentPanel::NewLine(const char* name, int characters) {
  auto* line = new QLineEdit(this);
  line->setObjectName(QLatin1String(name));
  line->setMinimumWidth(CharactersWide(*line, characters));
  connect(line, &QLineEdit::textChanged, this, [this] { NameDoubts(); });
  connect(line, &QLineEdit::editingFinished, this, [this] { AnnounceDoubts(); });
  return line;
}

void PaymentPanel::Add(QGridLayout& grid, int row, int side, PaymentEntry entry, QWidget* field) {
  auto* label = new QLabel(CaptionOf(entry));
  label->setBuddy(field);
  field->setToolTip(Said(Utf8Words(WordsOf(entry).hint)));
  fields_[entry] = field;
  grid.addWidget(label, row, side);
  grid.addWidget(field, row, side + 1, field->maximumWidth() < QWIDGETSIZE_MAX ? Qt::AlignLeft : Qt::Alignment());
}

void PaymentPanel::AddAmount(QGridLayout& grid, int row) {
  Add(grid, row, kLeft, PaymentEntry::Cents, cents_);
  Add(grid, row, kRight, PaymentEntry::Dollars, dollars_);
  for (QLineEdit* line : {cents_, dollars_}) {
    line->setAlignment(Qt::AlignRight);
    line->setPlaceholderText(tr("no amount"));
  }
  // The other one follows an amount, and keeps what it has where there is none.
  const auto follow = [](QLineEdit* typed, QLineEdit* other, std::string (*otherOf)(std::string_view)) {
    connect(typed, &QLineEdit::textEdited, other, [other, otherOf](const QString& text) {
      if (const std::string amount = otherOf(text.toStdString()); !amount.empty() || text.trimmed().isEmpty())
        other->setText(Said(amount));
    });
  };
  follow(cents_, dollars_, DollarsOf);
  follow(dollars_, cents_, CentsOf);
}

void PaymentPanel::AddDate(QGridLayout& grid, int row) {
  date_->setObjectName(QStringLiteral("date"));
  date_->setDisplayFormat(kDateForm.toString());
  date_->setCalendarPopup(true);
  date_->setMaximumWidth(CharactersWide(*date_, kNameCharacters));
  Add(grid, row, kLeft, PaymentEntry::Date, date_);
  onHold_->setObjectName(QStringLiteral("onHold"));
  grid.addWidget(onHold_, row, kRight, 1, 2);
}

void PaymentPanel::AddDestination(QGridLayout& grid, int row) {
  toCollection_->setObjectName(QStringLiteral("toCollection"));
  toFile_->setObjectName(QStringLiteral("toFile"));
  chooseFile_->setObjectName(QStringLiteral("chooseFile"));
  // Enter presses it where it has the focus, as any button.
  chooseFile_->setAutoDefault(true);
  file_->setAccessibleName(CaptionOf(PaymentEntry::File));
  fields_[PaymentEntry::File] = file_;
  // Whoever names a file wants it written.
  connect(file_, &QLineEdit::textEdited, toFile_, [this] { toFile_->setChecked(true); });
  connect(toFile_, &QRadioButton::toggled, this, [this] { NameDoubts(); });
  connect(chooseFile_, &QPushButton::clicked, this, [this] { ChooseFile(); });
  grid.addWidget(new QLabel(tr("Records:")), row, kLeft);
  grid.addWidget(toCollection_, row, kLeft + 1, Qt::AlignLeft);
  auto* line = new QHBoxLayout;
  line->setSpacing(grid.verticalSpacing());
  line->addWidget(toFile_);
  line->addWidget(file_, 1);
  line->addWidget(chooseFile_);
  grid.addLayout(line, row + 1, kLeft + 1, 1, kRight + 1);
}

void PaymentPanel::AddDoubts(QGridLayout& grid) {
  doubts_->setObjectName(QStringLiteral("doubts"));
  doubts_->setWordWrap(true);
  doubts_->setTextFormat(Qt::PlainText);
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
  warning_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(side));
  qt::MakeNotice(*notice_);
  auto* line = new QHBoxLayout(notice_);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(grid.verticalSpacing());
  line->addWidget(warning_, 0, Qt::AlignTop);
  line->addWidget(doubts_, 1);
  for (QLabel* label : {warning_, doubts_}) label->hide();
  grid.addWidget(notice_, grid.rowCount(), kLeft, 1, -1);
  grid.setRowStretch(grid.rowCount(), 1);
}

void PaymentPanel::NameDoubts() {
  QStringList sentences;
  std::map<PaymentEntry, QString> about;
  for (const Doubt& doubt : DoubtsAbout(Current())) {
    sentences.append(Said(SentenceOf(doubt)));
    about[doubt.entry] += Said(doubt.text) + u' ';
  }
  doubts_->setText(sentences.join(u'\n'));
  for (QLabel* label : {warning_, doubts_}) label->setVisible(!sentences.isEmpty());
  FitDoubts();
  // Whoever comes back to an entry without seeing the sentences hears its own.
  for (const auto& [entry, field] : fields_)
    field->setAccessibleDescription(about[entry] + Said(Utf8Words(WordsOf(entry).hint)));
}

void PaymentPanel::FitDoubts() {
  // Splitters ask nobody how high a text is that breaks into lines.
  const int width = contentsRect().width() - layout()->contentsMargins().left() - layout()->contentsMargins().right() -
                    warning_->sizeHint().width() - static_cast<QGridLayout*>(layout())->verticalSpacing();
  doubts_->setMinimumHeight(doubts_->heightForWidth(width));
}

void PaymentPanel::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  FitDoubts();
}

void PaymentPanel::AnnounceDoubts() {
  if (doubts_->text() == notice_->accessibleName())
    return;
  if (doubts_->text().isEmpty())
    notice_->setAccessibleName({});
  else
    qt::Announce(*notice_, doubts_->text());
}

void PaymentPanel::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || (event->modifiers() & ~Qt::KeypadModifier) != 0 || !onEnter)
    QGroupBox::keyPressEvent(event);
  else
    onEnter();
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
  return {.customerNumber = customerNumber_->text().toStdString(),
          .billerCode = billerCode_->text().toStdString(),
          .billerName = billerName_->text().toStdString(),
          .cents = cents_->text().toStdString(),
          .dollars = dollars_->text().toStdString(),
          .date = date_->date().toString(kDateForm).toStdString(),
          .enteredBy = enteredBy_->text().toStdString(),
          .title = title_->text().toStdString(),
          .onHold = onHold_->isChecked(),
          .sequence = sequence_->text().toStdString(),
          .items = items_->value(),
          .businessName = businessName_->text().toStdString(),
          .destination = toFile_->isChecked() ? Payment::Destination::File : Payment::Destination::Collection,
          .file = file_->text().toStdString()};
}

void PaymentPanel::Show(const Payment& payment) {
  customerNumber_->setText(Said(payment.customerNumber));
  billerCode_->setText(Said(payment.billerCode));
  billerName_->setText(Said(payment.billerName));
  cents_->setText(Said(payment.cents));
  dollars_->setText(Said(payment.dollars));
  date_->setDate(QDate::fromString(Said(payment.date), kDateForm));
  enteredBy_->setText(Said(payment.enteredBy));
  title_->setText(Said(payment.title));
  onHold_->setChecked(payment.onHold);
  sequence_->setText(Said(payment.sequence));
  items_->setValue(payment.items);
  businessName_->setText(Said(payment.businessName));
  (payment.destination == Payment::Destination::File ? toFile_ : toCollection_)->setChecked(true);
  file_->setText(Said(payment.file));
}

void PaymentPanel::GoTo(PaymentEntry entry) {
  if (const auto field = fields_.find(entry); field != fields_.end())
    field->second->setFocus(Qt::OtherFocusReason);
}

}  // namespace fiscalon
