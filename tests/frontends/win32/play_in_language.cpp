#include <string>
#include <vector>

#include "frontends/win32/played_win32_toolkit.h"
#include "tests/scenarios/play_in_language.h"

int main(int argc, char** argv) {
  fiscalon::PlayedWin32Toolkit toolkit;
  return fiscalon::PlayInLanguage(toolkit, std::vector<std::string>(argv + 1, argv + argc));
}
