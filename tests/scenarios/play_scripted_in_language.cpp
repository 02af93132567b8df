#include <string>
#include <vector>

#include "frontends/scripted/scripted_toolkit.h"
#include "tests/scenarios/play_in_language.h"

int main(int argc, char** argv) {
  fiscalon::ScriptedToolkit toolkit;
  return fiscalon::PlayInLanguage(toolkit, std::vector<std::string>(argv + 1, argv + argc));
}
