// What any program with a window of Qt takes to start: the yardstick of bench/qt/desk_start.cpp.

#include "bench/qt/painted_window.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  const fiscalon::PaintedWindow painted(window);
  return QApplication::exec();
}
