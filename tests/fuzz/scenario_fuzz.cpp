#include <algorithm>
#include <string>

#include "frontends/played/scenario.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

/// A line as it would be written down from its verb and arguments.
std::string Written(const ScenarioLine& line) {
  std::string written = line.verb;
  for (const std::string& argument : line.arguments) written += ' ' + QuotedArgument(argument);
  return written;
}

void CheckReading(std::string_view text) {
  const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
  Scenario scenario;
  try {
    scenario = ParseScenario("s", text);
  } catch (const ScenarioError& error) {
    const std::string_view what = error.what();
    Law(what.starts_with("s:"), "a complaint names its file");
    const int line = std::atoi(error.what() + 2);
    Law(line >= 1 && line <= lines, "a complaint names a line of the file");
    Law(what.size() > what.find(": ") + 2, "a complaint gives its reason");
    return;
  }
  Law(!scenario.lines.empty(), "a scenario says something");
  int before = 0;
  for (const ScenarioLine& line : scenario.lines) {
    Law(line.number > before && line.number <= lines, "lines are numbered in order");
    before = line.number;
    const Scenario again = ParseScenario("s", Written(line));
    Law(again.lines.size() == 1, "a line written down is one line");
    Law(again.lines[0].verb == line.verb && again.lines[0].arguments == line.arguments,
        "a line written down is read as it was");
  }
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::CheckReading(fiscalon::TextOf(data, size));
  return 0;
}
