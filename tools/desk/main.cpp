// The payment desk: a small host program with a Qt application of its own, for trying the screens out.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <exception>
#include <iostream>

#include "core/module_state.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_toolkit.h"
#include "tools/desk/desk_window.h"

namespace {

constexpr int kUnusable = 2;

int OpenDesk(int argc, char** argv) {
  fiscalon::qt::InstallProgramMessages("fiscalon-desk");
  const QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Fiscalon"));
  fiscalon::QtToolkit toolkit;
  fiscalon::UseToolkit(&toolkit);
  // As the program is installed, wherever that lies.
  fiscalon::DeskWindow desk(
      QDir::cleanPath(QApplication::applicationDirPath() + QStringLiteral("/" FISCALON_OPERATORS_PAGE)));
  desk.show();
  // Without a window manager nobody else gives it the keyboard.
  desk.activateWindow();
  const int status = QApplication::exec();
  fiscalon::UseToolkit(nullptr);
  return status;
}

int RunProgram(int argc, char** argv) {
  CLI::App program("The payment desk: try the screens out with a payment of your own", "fiscalon-desk");
  program.set_version_flag("--version", "fiscalon " FISCALON_VERSION, "Print the version and exit");
  program.footer("Exit status: 0; 2 where there is no display, or for an unknown argument.");
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return program.exit(end) == 0 ? 0 : kUnusable;
  }
  if (!fiscalon::QtToolkit::HasDisplay()) {
    std::cerr << "fiscalon-desk: there is no display to open the desk on; set DISPLAY or WAYLAND_DISPLAY\n";
    return kUnusable;
  }
  return OpenDesk(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return RunProgram(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "fiscalon-desk: " << error.what() << '\n';
  }
  return kUnusable;
}
