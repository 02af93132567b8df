#include "tools/desk/desk_window.h"

#include <QAction>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <optional>

#include "frontends/qt/qt_text.h"
#include "tools/desk/operators_page.h"
#include "tools/desk/payment_panel.h"
#include "tools/desk/result_panel.h"
#include "tools/desk/screen_list.h"
#include "tools/paying/screen_show.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

constexpr const char* kFirstScreen = "15";
constexpr int kMargin = 9;

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
  result_->Say(tr("Screen %1 is open.").arg(qt::ToQt(code)));
  const ShowOutcome outcome = fiscalon::ShowScreen(payment, *FindLaunchRow(code));
  const QString words = QString::fromStdString(outcome.words);
  if (outcome.records.empty())
    result_->Say(words);
  else
    result_->ShowRecords(words, outcome.records);
}

bool DeskWindow::IsStopped(const Payment& payment, const std::string& code) {
  std::optional<Obstacle> obstacle = ObstacleIn(payment);
  if (!obstacle && !MayReplaceFile(payment, qt::FromQt(windowTitle())))
    obstacle = {.reasons = Utf8Words("The file stays as it is: {1}", {payment.file}), .entry = PaymentEntry::File};
  if (!obstacle)
    return false;
  result_->Say(tr("Screen %1 was not opened.").arg(qt::ToQt(code)) + u'\n' + QString::fromStdString(obstacle->reasons));
  payment_->GoTo(obstacle->entry);
  area_->ensureWidgetVisible(focusWidget(), 0, fontMetrics().height());
  return true;
}

}  // namespace fiscalon
