#include "frontends/qt/form_dialog.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "core/forms/label.h"
#include "core/forms/laid_out.h"
#include "core/forms/scoped_value.h"
#include "frontends/qt/accessible_names.h"
#include "frontends/qt/key_strokes.h"
#include "frontends/qt/qt_text.h"
#include "frontends/qt/status_line.h"

namespace fiscalon::qt {
namespace {

/// Layouts inside layouts and inside boxes remember sizes until they are activated, the innermost first.
void ForgetOldSizes(const QWidget& widget) {
  for (const QObject* child : widget.children())
    if (const auto* inner = qobject_cast<const QWidget*>(child))
      ForgetOldSizes(*inner);
  if (widget.layout() != nullptr)
    widget.layout()->activate();
}

}  // namespace

FormDialog::FormDialog(Form& form, QWidget* parent, ActWatcher* watcher)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      form_(form),
      acts_(form, watcher, [this] {
        AlignFocus();
        ShowStatus();
      }) {
  setWindowModality(Qt::ApplicationModal);
  // A parent that goes takes its children along, and the dialog is not its to delete.
  if (parent != nullptr)
    QObject::connect(parent, &QObject::destroyed, this, [this] { GoOnAlone(); });
  // The host's application does not end with its last form.
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName(ToQt(form.Name()));
  MakeViews();
  LayOut();
  SetTabOrder();
  installEventFilter(this);
  form_.Observe(this);
  CaptionChanged();
  AlignFocus();
}

FormDialog::~FormDialog() {
  form_.Observe(nullptr);
}

void FormDialog::MakeViews() {
  for (Control* control : form_.Controls()) {
    auto view = MakeView(*control, *this, acts_);
    QWidget& widget = view->Widget();
    widget.setObjectName(ToQt(control->Name()));
    // The form gives the focus on a mouse press, not the widget.
    if (control->TakesKeys())
      widget.setFocusPolicy(Qt::TabFocus);
    for (QWidget* watched : {&widget, &view->MouseArea()}) {
      watched_[watched] = view.get();
      watched->installEventFilter(this);
    }
    views_[control] = std::move(view);
  }
}

void FormDialog::LayOut() {
  scroller_ = new QScrollArea(this);
  scroller_->setFrameStyle(QFrame::NoFrame);
  scroller_->setWidgetResizable(true);
  scroller_->setFocusPolicy(Qt::NoFocus);
  auto* body = new QWidget(scroller_);
  layout_.emplace(
      form_, [this](const Control& control) -> QWidget& { return WidgetOf(control); }, *body);
  scroller_->setWidget(body);
  // What lies behind the body is the dialog, not a sheet of paper.
  scroller_->viewport()->setAutoFillBackground(false);
  body->setAutoFillBackground(false);

  auto* whole = new QVBoxLayout(this);
  whole->addWidget(scroller_, 1);
  whole->addSpacing(whole->spacing());
  whole->addLayout(layout_->Buttons());
  status_ = new StatusLine(this);
  whole->addWidget(status_);
  for (const auto& [control, view] : views_) {
    // A frame without a place in the layout is no box, it only hides and disables with what it holds.
    if (view->Widget().parentWidget() == this && control->Kind() == ControlKind::Frame)
      view->Widget().setGeometry(0, 0, 0, 0);
    view->Refresh();
  }
  for (const Control* control : StandingOut(form_)) ViewOf(*control).StandOut();
  layout_->AlignCaptions();
  NameFields(form_, [this](const Control& control) -> QWidget& { return WidgetOf(control); });
}

void FormDialog::SetTabOrder() {
  QWidget* before = nullptr;
  for (const Control* control : form_.TabOrder()) {
    QWidget& widget = WidgetOf(*control);
    if (before != nullptr)
      setTabOrder(before, &widget);
    before = &widget;
  }
}

void FormDialog::Present() {
  resize(sizeHint());
  show();
  windowHandle()->installEventFilter(this);
  activateWindow();
  setAttribute(Qt::WA_KeyboardFocusChange);
  AlignFocus();
}

void FormDialog::GoOnAlone() {
  setParent(nullptr, windowFlags());
  if (form_.IsUp())
    Present();
}

void FormDialog::Serve() {
  Present();
  QEventLoop loop;
  const ScopedValue serving(loop_, &loop);
  if (form_.IsUp())
    loop.exec(QEventLoop::DialogExec);
  hide();
  Rethrow();
}

void FormDialog::HasFailed() {
  if (!failure_)
    failure_ = std::current_exception();
  form_.Hide();
}

void EndFormOf(const QWidget& widget) {
  if (auto* const dialog = dynamic_cast<FormDialog*>(widget.window()))
    dialog->HasFailed();
}

void FormDialog::Rethrow() const {
  if (failure_)
    std::rethrow_exception(failure_);
}

QSize FormDialog::sizeHint() const {
  if (scroller_ == nullptr || scroller_->widget() == nullptr)
    return QDialog::sizeHint();
  ForgetOldSizes(*scroller_->widget());
  layout()->activate();
  // Everything without scroll bars where the screen has room for it.
  const QSize around = layout()->sizeHint() - scroller_->sizeHint();
  const QSize wanted = scroller_->widget()->sizeHint();
  // Where nothing is seen, in tests and pictures, no screen is too small.
  const bool seen = QGuiApplication::platformName() != QStringLiteral("offscreen");
  const QSize room = seen ? screen()->availableSize() * 9 / 10 : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const int scrollBar =
      wanted.height() + around.height() > room.height() ? scroller_->verticalScrollBar()->sizeHint().width() : 0;
  // The status stands below the buttons.
  const QSize buttons = layout()->itemAt(layout()->count() - 2)->sizeHint() + QSize(around.width(), 0);
  const QSize whole(std::max(wanted.width() + around.width() + scrollBar, buttons.width()),
                    wanted.height() + around.height());
  // Window managers size windows by steps. At a scale such as 1.5 these are more than one pixel of the screen, and a
  // window becomes less than it asks for by up to a pixel of the form's own.
  constexpr QSize kStep(1, 1);
  return (whole + kStep).boundedTo(room);
}

void FormDialog::GrowToFit() {
  const QSize wanted = sizeHint().expandedTo(size());
  if (isVisible() && wanted != size())
    resize(wanted);
}

Control* FormDialog::ControlOf(const QObject* widget) const {
  const ControlView* view = ViewOfWatched(widget);
  return view == nullptr ? nullptr : &view->Model();
}

ControlView* FormDialog::ViewOfWatched(const QObject* watched) const {
  const auto found = watched_.find(watched);
  return found == watched_.end() ? nullptr : found->second;
}

bool FormDialog::eventFilter(QObject* watched, QEvent* event) {
  try {
    return Hear(watched, event);
  } catch (...) {
    HasFailed();
    return true;
  }
}

bool FormDialog::Hear(QObject* watched, QEvent* event) {
  if (watched == windowHandle()) {
    if (event->type() == QEvent::MouseButtonRelease)
      for (const auto& [control, view] : views_)
        view->ReleasedLate(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    return false;
  }
  ControlView* view = ViewOfWatched(watched);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      // All keys come as key presses: access keys are the form's.
      event->accept();
      return true;
    case QEvent::KeyPress:
      return PressKey(view, *static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
      return Compose(view, *event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return view != nullptr && watched == &view->MouseArea() && view->MousePressed(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return view != nullptr && watched == &view->MouseArea() && view->MouseReleased(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      return view != nullptr && watched == &view->MouseArea() && view->MouseMoved();
    case QEvent::Wheel:
      return view != nullptr && view->WheelTurned();
    case QEvent::WindowBlocked:
      if (watched == this)
        acts_.Interrupted();
      return false;
    case QEvent::FocusIn:
      if (view != nullptr && watched == &view->Widget())
        FocusArrived(*view, *static_cast<QFocusEvent*>(event));
      return false;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

bool FormDialog::PressKey(ControlView* view, QKeyEvent& event) {
  if (view != nullptr && view->KeepsKey(event))
    return false;
  event.accept();
  const auto stroke = StrokeOf(event);
  if (!stroke)
    return true;
  const KeyOutcome outcome = acts_.Key(*stroke);
  if (outcome.editing && form_.IsUp() && view != nullptr)
    view->Edit(outcome, event);
  // An editor that has no use for a key would send it on to the widgets around it, and so here again.
  event.accept();
  return true;
}

bool FormDialog::Compose(ControlView* view, QEvent& event) {
  auto& composed = static_cast<QInputMethodEvent&>(event);
  if (view == nullptr || composed.commitString().isEmpty() || composed.replacementLength() != 0)
    return false;
  // The finished characters are keystrokes; the editor only takes away what was being composed.
  QInputMethodEvent finished;
  static_cast<QObject&>(view->Widget()).event(&finished);
  for (const char character : FromQt(composed.commitString())) {
    if (!form_.IsUp() || form_.ActiveControl() == nullptr)
      break;
    ControlView& active = ViewOf(*form_.ActiveControl());
    const KeyOutcome outcome = acts_.Key(fiscalon::StrokeOf(character));
    if (outcome.editing && form_.IsUp())
      active.Insert(static_cast<char>(outcome.character));
  }
  return true;
}

void FormDialog::FocusArrived(const ControlView& view, const QFocusEvent& event) {
  const bool byWindow = event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
                        event.reason() == Qt::MenuBarFocusReason;
  // Qt moves the focus off a widget that is hidden or disabled; the form has its own rule and says where to.
  if (movingFocus_ || byWindow || acts_.Acting() || !form_.IsUp() || form_.ActiveControl() == &view.Model())
    return;
  acts_.BringFocus(view.Model());
}

void FormDialog::AlignFocus() {
  if (!form_.IsUp())
    return;
  QWidget* wanted = form_.ActiveControl() == nullptr ? this : &WidgetOf(*form_.ActiveControl());
  if (focusWidget() == wanted)
    return;
  const ScopedValue moving(movingFocus_, true);
  wanted->setFocus(Qt::OtherFocusReason);
  if (form_.ActiveControl() == nullptr)
    return;
  ViewOf(*form_.ActiveControl()).Refresh();
  if (scroller_->isAncestorOf(wanted))
    scroller_->ensureWidgetVisible(wanted);
}

void FormDialog::ShowStatus() {
  if (!form_.IsUp() || !status_->Say(ToQt(StatusOf(form_))))
    return;
  NameFields(form_, [this](const Control& each) -> QWidget& { return WidgetOf(each); });
  GrowToFit();
}

void FormDialog::ControlChanged(const Control& control) {
  const bool wasHidden = ViewOf(control).Widget().isHidden();
  ViewOf(control).Refresh();
  if (control.Kind() == ControlKind::Frame)
    for (const auto& [other, view] : views_)
      if (other->EnclosingFrame() == &control)
        view->Refresh();
  if (control.Kind() == ControlKind::Label)
    NameFields(form_, [this](const Control& each) -> QWidget& { return WidgetOf(each); });
  const bool isHidden = ViewOf(control).Widget().isHidden();
  if (wasHidden && !isHidden)
    layout_->AlignCaptions();
  if (wasHidden != isHidden || control.Kind() == ControlKind::Label)
    GrowToFit();
}

void FormDialog::FocusMoved(const Control& /*control*/, FocusBy by) {
  // Styles mark the button or the list that has the focus for users who go by keyboard.
  setAttribute(Qt::WA_KeyboardFocusChange, by != FocusBy::Mouse);
  acts_.FocusMoved(by);
  AlignFocus();
}

void FormDialog::CaptionChanged() {
  setWindowTitle(AsTitle(ToQt(form_.ShownCaption())));
}

void FormDialog::ShowEnded() {
  if (loop_ != nullptr)
    loop_->quit();
}

void FormDialog::HandlerRuns(std::string_view object, std::string_view event) {
  if (onHandler)
    onHandler(object, event);
}

void FormDialog::CloseFor(CloseReason reason) {
  acts_.Close(reason);
}

void FormDialog::closeEvent(QCloseEvent* event) {
  try {
    if (!acts_.Acting())
      CloseFor(qGuiApp->isSavingSession() ? CloseReason::SystemEnds : CloseReason::CloseBox);
  } catch (...) {
    HasFailed();
  }
  event->setAccepted(!form_.IsUp());
}

void FormDialog::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  const bool restyles = event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange ||
                        event->type() == QEvent::PaletteChange || event->type() == QEvent::ThemeChange;
  if (!restyles || !layout_)
    return;
  for (const auto& [control, view] : views_) view->Restyle();
  // Widgets hear of a new font one after the other; the sizes are right when all have.
  QMetaObject::invokeMethod(
      this,
      [this] {
        layout_->AlignCaptions();
        GrowToFit();
      },
      Qt::QueuedConnection);
}

}  // namespace fiscalon::qt
