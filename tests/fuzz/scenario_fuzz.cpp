#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "frontends/played/scenario.h"
#include "frontends/played/scenario_grammar.h"
#include "frontends/played/seen_things.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

/// A line as it would be written down from its verb and arguments.
std::string Written(const ScenarioLine& line) {
  std::string written = line.verb;
  for (const std::string& argument : line.arguments) written += ' ' + QuotedArgument(argument);
  return written;
}

/// As they are when they have been written down: a line end is one, however it is written.
std::vector<std::string> WithPlainLineEnds(std::vector<std::string> arguments) {
  for (std::string& argument : arguments) argument = fiscalon::WithPlainLineEnds(std::move(argument));
  return arguments;
}

/// A scenario's lines as its numbers tell, each in the part of the file that is the scenario's.
void CheckLines(const Scenario& scenario, long lines) {
  Law(!scenario.lines.empty(), "a scenario says something");
  int before = 0;
  for (const ScenarioLine& line : scenario.lines) {
    Law(line.number > before && line.number <= lines, "lines are numbered in order");
    before = line.number;
    const bool ahead = line.number >= scenario.ahead.from && line.number < scenario.ahead.to;
    const bool own = line.number >= scenario.own.from && line.number < scenario.own.to;
    Law(ahead || own, "a line is of the scenario or ahead of all");
    Law(line.form != nullptr && line.form->play != nullptr, "a line can be played");
    // Written down alone, it would stand in a file without screens.
    if (Written(line).find("$SCREEN") != std::string::npos)
      continue;
    const Scenario again = ParseScenario("s", Written(line));
    Law(again.lines.size() == 1, "a line written down is one line");
    Law(again.lines[0].verb == line.verb && again.lines[0].arguments == WithPlainLineEnds(line.arguments),
        "a line written down is read as it was");
  }
}

void CheckReading(std::string_view text) {
  const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
  std::vector<Scenario> scenarios;
  try {
    scenarios = ParseScenarios("s", text);
  } catch (const ScenarioError& error) {
    const std::string_view what = error.what();
    Law(what.starts_with("s:"), "a complaint names its file");
    const int line = std::atoi(error.what() + 2);
    Law(line >= 1 && line <= lines, "a complaint names a line of the file");
    Law(what.size() > what.find(": ") + 2, "a complaint gives its reason");
    return;
  }
  Law(!scenarios.empty(), "a file holds a scenario");
  std::set<std::string> labels;
  for (const Scenario& scenario : scenarios) {
    Law(labels.insert(scenario.Label()).second,
        "scenarios of a file have different names, or are of different screens");
    Law(scenarios.size() == 1 || !scenario.Label().empty(), "one of several has a name or a screen");
    CheckLines(scenario, lines);
  }
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::CheckReading(fiscalon::TextOf(data, size));
  return 0;
}
