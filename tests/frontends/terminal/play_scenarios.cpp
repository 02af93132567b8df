#include <string>
#include <vector>

#include "frontends/terminal/played_terminal_toolkit.h"
#include "tests/scenarios/play_files.h"

int main(int argc, char** argv) {
  fiscalon::PlayedTerminalToolkit toolkit;
  return fiscalon::PlayFiles(toolkit, std::vector<std::string>(argv + 1, argv + argc));
}
