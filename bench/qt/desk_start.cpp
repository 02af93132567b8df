// The payment desk as a program that ends when its window is up. bench/start_speed.py times it.

#include "bench/qt/painted_window.h"
#include "core/host_setup.h"
#include "frontends/qt/qt_toolkit.h"
#include "tools/desk/desk_window.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  fiscalon::QtToolkit toolkit;
  fiscalon::UseToolkit(&toolkit);
  fiscalon::DeskWindow desk{QString()};
  const fiscalon::PaintedWindow painted(desk);
  const int status = QApplication::exec();
  fiscalon::UseToolkit(nullptr);
  return status;
}
