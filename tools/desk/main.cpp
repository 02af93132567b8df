// The payment desk: a small host program with a Qt application of its own, for trying the screens out.

#include <QApplication>
#include <QTextStream>

#include "core/module_state.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_toolkit.h"
#include "tools/desk/desk_window.h"

int main(int argc, char** argv) {
  if (!fiscalon::QtToolkit::HasDisplay()) {
    QTextStream(stderr) << "fiscalon-desk: there is no display to open the desk on; set DISPLAY or WAYLAND_DISPLAY\n";
    return 2;
  }
  fiscalon::InstallProgramMessages("fiscalon-desk");
  const QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Fiscalon"));
  fiscalon::QtToolkit toolkit;
  fiscalon::UseToolkit(&toolkit);
  fiscalon::DeskWindow desk;
  desk.show();
  // Without a window manager nobody else gives it the keyboard.
  desk.activateWindow();
  const int status = QApplication::exec();
  fiscalon::UseToolkit(nullptr);
  return status;
}
