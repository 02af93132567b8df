#include <string>
#include <vector>

#include "frontends/win32/played_win32_toolkit.h"
#include "tests/scenarios/play_files.h"

int main(int argc, char** argv) {
  fiscalon::PlayedWin32Toolkit toolkit;
  return fiscalon::PlayFiles(toolkit, std::vector<std::string>(argv + 1, argv + argc));
}
