#include "tools/desk/desk_window.h"

#include <QAction>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <optional>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "frontends/qt/qt_text.h"
#include "tools/desk/operators_page.h"
#include "tools/desk/payment_panel.h"
#include "tools/desk/result_panel.h"
#include "tools/desk/screen_list.h"
#include "tools/reading/payment_advice.h"

namespace fiscalon {
namespace {

constexpr const char* kFirstScreen = "15";
constexpr int kMargin = 9;

QString Advice(const RuntimeError& error, const Levyra& session) {
  return QString::fromStdString(AdviceOn(error, session,
                                         {.govFilename = "The record file",
                                          .enterName = "Entered by",
                                          .enterTitle = "Title",
                                          .paidAmount = "The amount"}));
}

/// When the file was last written; invalid where there is none.
QDateTime LastWritten(const QString& name) {
  return QFileInfo(name).lastModified();
}

}  // namespace

DeskWindow::DeskWindow(QString operatorsPage)
    : operatorsPage_(std::move(operatorsPage)),
      payment_(new PaymentPanel),
      screens_(new ScreenList),
      result_(new ResultPanel),
      above_(new QSplitter(Qt::Horizontal)),
      whole_(new QSplitter(Qt::Vertical)),
      area_(new QScrollArea) {
  setWindowTitle(tr("Payment desk"));
  Arrange();
  AddKeys();
  screens_->onShow = [this](const std::string& code) { ShowScreen(code); };
  payment_->onEnter = [this] { screens_->ShowChosen(); };
  payment_->Show(ExamplePayment());
  screens_->Choose(kFirstScreen);
  result_->Say(
      tr("Nothing has been shown yet. Change the payment if you like, choose a screen, and show it. "
         "F1 tells how forms are filled."));
}

void DeskWindow::AddKeys() {
  for (const auto key : {QKeySequence::Quit, QKeySequence::Close}) {
    auto* close = new QAction(this);
    close->setShortcuts(key);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
  }
  auto* help = new QAction(this);
  help->setShortcuts(QKeySequence::HelpContents);
  connect(help, &QAction::triggered, this, [this] { OpenOperatorsPage(); });
  addAction(help);
}

void DeskWindow::OpenOperatorsPage() {
  if (openPage_.isNull() && !OperatorsPage::IsThere(operatorsPage_)) {
    result_->Say(tr("The page for operators can't be read. It belongs here:\n%1").arg(operatorsPage_));
    return;
  }
  if (openPage_.isNull()) {
    openPage_ = new OperatorsPage(operatorsPage_);
    // Without a window manager nobody else gives the keyboard, to it or back.
    connect(openPage_, &QObject::destroyed, this, [this] { activateWindow(); });
  }
  openPage_->show();
  openPage_->raise();
  openPage_->activateWindow();
}

DeskWindow::~DeskWindow() {
  delete openPage_;
}

void DeskWindow::closeEvent(QCloseEvent* event) {
  // The page is no reason for the program to go on.
  delete openPage_;
  QMainWindow::closeEvent(event);
}

void DeskWindow::Arrange() {
  above_->addWidget(payment_);
  above_->addWidget(screens_);
  above_->setStretchFactor(1, 1);
  whole_->addWidget(above_);
  whole_->addWidget(result_);
  whole_->setStretchFactor(1, 1);
  for (QSplitter* splitter : {above_, whole_}) splitter->setChildrenCollapsible(false);
  sideBySide_ = whole_->minimumSizeHint().width();
  // A screen may be smaller than what stands on the desk.
  area_->setObjectName(QStringLiteral("desk"));
  area_->setFrameStyle(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidgetResizable(true);
  area_->setWidget(whole_);
  setCentralWidget(area_);
  setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  const int unit = fontMetrics().horizontalAdvance(u'0');
  const QSize wanted = QSize(150 * unit, 90 * unit).expandedTo(whole_->minimumSizeHint() + QSize(1, 1) * 2 * kMargin);
  resize(wanted.boundedTo(screen()->availableSize() * 19 / 20));
}

void DeskWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  const bool isNarrow = width() < sideBySide_ + (2 * kMargin);
  above_->setOrientation(isNarrow ? Qt::Vertical : Qt::Horizontal);
}

void DeskWindow::ShowScreen(const std::string& code) {
  const Payment payment = payment_->Current();
  if (IsStopped(payment, code))
    return;
  Levyra session;
  result_->Say(tr("Screen %1 is open.").arg(qt::ToQt(code)));
  try {
    Give(payment, session);
    Launch(session, *FindLaunchRow(code));
  } catch (const RuntimeError& error) {
    result_->ShowError(
        tr("Screen %1 ended with an error. Shown again, it goes on with what was typed.").arg(qt::ToQt(code)), error,
        Advice(error, session));
  }
}

bool DeskWindow::IsStopped(const Payment& payment, const std::string& code) {
  QString reasons;
  std::optional<PaymentEntry> first;
  for (const Doubt& doubt : DoubtsAbout(payment)) {
    if (doubt.weight != Doubt::Weight::Stops)
      continue;
    reasons += u'\n' + QString::fromStdString(SentenceOf(doubt));
    first = first.value_or(doubt.entry);
  }
  const std::string question = first ? std::string() : QuestionAbout(payment);
  if (!question.empty() && !Agrees(question)) {
    reasons = u'\n' + tr("The file stays as it is: %1").arg(QString::fromStdString(payment.file));
    first = PaymentEntry::File;
  }
  if (!first)
    return false;
  result_->Say(tr("Screen %1 was not opened.").arg(qt::ToQt(code)) + reasons);
  payment_->GoTo(*first);
  area_->ensureWidgetVisible(focusWidget(), 0, fontMetrics().height());
  return true;
}

bool DeskWindow::Agrees(const std::string& question) const {
  return TheToolkit().ShowMessage({.text = FromUtf8(question),
                                   .style = MessageStyle::Exclamation,
                                   .buttons = MessageButtons::YesNo,
                                   .defaultButton = DefaultButton::Second,
                                   .title = qt::FromQt(windowTitle())}) == MessageAnswer::Yes;
}

void DeskWindow::Launch(Levyra& session, const LaunchRow& screen) {
  const bool toFile = session.WriteFile() == kTrue;
  const QString name = qt::ToQt(session.GovFilename());
  const QDateTime before = LastWritten(name);
  if (!session.ShowLevyraScreen(screen.code))
    result_->Say(tr("Cancelled. Nothing was written."));
  else if (!toFile)
    ShowRecordsHandedBack(session, screen);
  else if (LastWritten(name) == before)
    result_->Say(before.isValid() ? tr("Accepted, but no records were written: the file is from before.\n%1").arg(name)
                                  : tr("Accepted, but no records were written: there is no file.\n%1").arg(name));
  else
    ShowRecordFile(name, screen);
}

void DeskWindow::ShowRecordsHandedBack(const Levyra& session, const LaunchRow& screen) {
  std::vector<ShownRecord> records;
  if (const auto& members = session.PC4Records()) {
    records = TakeApart(*members, &screen);
    // The collection is the form's own: a show that writes nothing would hand these back once more.
    members->Clear();
  }
  if (records.empty())
    result_->Say(tr("Accepted, but no records were handed back."));
  else
    result_->ShowRecords(tr("Accepted. Records handed back: %1.").arg(records.size()), records);
}

void DeskWindow::ShowRecordFile(const QString& name, const LaunchRow& screen) {
  QFile file(name);
  if (!file.open(QFile::ReadOnly)) {
    result_->Say(tr("Accepted, but the record file can't be read: %1\n%2").arg(file.errorString(), name));
    return;
  }
  const std::vector<ShownRecord> records = TakeApart(std::string_view(file.readAll().toStdString()), &screen);
  result_->ShowRecords(tr("Accepted. Records written to the file: %1.\n%2").arg(records.size()).arg(name), records);
}

}  // namespace fiscalon
