#include <QByteArray>
#include <string>
#include <vector>

#include "frontends/qt/played_qt_toolkit.h"
#include "tests/scenarios/play_files.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  fiscalon::PlayedQtToolkit toolkit;
  return fiscalon::PlayFiles(toolkit, std::vector<std::string>(argv + 1, argv + argc));
}
