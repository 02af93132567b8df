#include "frontends/qt/played_qt_toolkit.h"

#include <QAbstractButton>
#include <QApplication>

#include "core/forms/among.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/message_window.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_driver.h"

namespace fiscalon {
PlayedQtToolkit::Platform::Platform() {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qt::InstallProgramMessages("fiscalon");
}

PlayedQtToolkit::PlayedQtToolkit() {
  if (QGuiApplication::applicationDisplayName() == QCoreApplication::applicationName())
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Fiscalon"));
}

void PlayedQtToolkit::ServeModal(Form& form) {
  if (Watcher() != nullptr)
    Watcher()->Opened(form);
  qt::FormDialog dialog(form, Dialog(), Watcher());
  const Among up(dialogs_, dialog);
  dialog.onHandler = [this](std::string_view object, std::string_view event) { HandlerRuns(object, event); };
  dialog.Present();
  QCoreApplication::processEvents();
  qt::QtDriver user(dialog);
  Drive(form, user);
  dialog.Rethrow();
}

MessageAnswer PlayedQtToolkit::ShowMessage(const BoxRequest& box) {
  const auto window = qt::NewMessageWindow(box, Dialog());
  window->show();
  if (QAbstractButton* button = qt::ButtonFor(*window, AnswerTo(qt::ShownIn(*window))))
    button->click();
  // The window beneath is active again before its handler goes on, as after a box that a person has answered.
  if (Dialog() != nullptr)
    Dialog()->activateWindow();
  QCoreApplication::processEvents();
  return Answered(box, qt::AnswerOf(*window, box));
}

}  // namespace fiscalon
