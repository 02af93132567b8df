#include "frontends/qt/qt_toolkit.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QPointer>
#include <QUrl>
#include <vector>

#include "core/forms/among.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/message_window.h"
#include "frontends/qt/qt_application.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {
namespace {

/// Without a window manager nobody gives the keyboard back to the window beneath.
void GiveKeyboardBackTo(QWidget* window) {
  if (window != nullptr)
    window->activateWindow();
}

}  // namespace

struct QtToolkit::State {
  qt::QtApplication application;
  std::vector<qt::FormDialog*> dialogs;
  ActWatcher* watcher = nullptr;

  MessageAnswer Ask(const BoxRequest& box) const;
  void Warn(const Wording& text) const;
  QWidget* TopWindow() const { return dialogs.empty() ? QApplication::activeWindow() : dialogs.back(); }
};

QtToolkit::QtToolkit() : state_(std::make_unique<State>()) {}
QtToolkit::~QtToolkit() = default;

bool QtToolkit::HasDisplay() {
  return qt::QtApplication::CanShow();
}

void QtToolkit::Watch(ActWatcher* watcher) {
  state_->watcher = watcher;
}

void QtToolkit::ServeModal(Form& form) {
  if (state_->watcher != nullptr)
    state_->watcher->Opened(form);
  const QPointer<QWidget> parent = state_->TopWindow();
  qt::FormDialog dialog(form, parent, state_->watcher);
  {
    const Among up(state_->dialogs, dialog);
    dialog.Serve();
  }
  GiveKeyboardBackTo(parent);
}

void QtToolkit::State::Warn(const Wording& text) const {
  const Language language = dialogs.empty() ? Language() : dialogs.back()->ShownIn();
  Ask({.text = text.In(language), .style = MessageStyle::Exclamation, .language = language});
}

MessageAnswer QtToolkit::State::Ask(const BoxRequest& box) const {
  QWidget* parent = TopWindow();
  const auto window = qt::NewMessageWindow(box, parent);
  window->exec();
  GiveKeyboardBackTo(parent);
  return qt::AnswerOf(*window, box);
}

MessageAnswer QtToolkit::ShowMessage(const BoxRequest& box) {
  const MessageAnswer answer = state_->Ask(box);
  if (state_->watcher != nullptr)
    state_->watcher->BoxAnswered(box, answer);
  return answer;
}

void QtToolkit::Beep() {
  if (state_->watcher != nullptr)
    state_->watcher->Beeped();
  QApplication::beep();
}

void QtToolkit::OpenHelp(std::string_view file, int32_t context) {
  if (state_->watcher != nullptr)
    state_->watcher->HelpOpened(file, context);
  const QString path = qt::ToQt(file.substr(0, file.find('>')));
  if (!QFileInfo::exists(path))
    state_->Warn(Filled("The help file {1} is missing.", AsGiven(qt::FromQt(path))));
  else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath())))
    state_->Warn(Filled("No program on this computer opens the help file {1}.", AsGiven(qt::FromQt(path))));
}

}  // namespace fiscalon
