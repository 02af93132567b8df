#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fiscalon {

/// One line of a scenario that says something: a verb and its arguments, in UTF-8.
struct ScenarioLine {
  int number = 0;
  std::string verb = {};
  std::vector<std::string> arguments = {};
  /// The line as it stands in the file, for reports.
  std::string source = {};
};

/// A text file that plays a host and a user against a screen and states what must be seen.
struct Scenario {
  std::string name = {};
  std::vector<ScenarioLine> lines = {};
};

/// A scenario that makes no sense: what `what()` says is "file:line: reason".
class ScenarioError : public std::runtime_error {
 public:
  ScenarioError(const std::string& file, int line, const std::string& reason)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason) {}
};

/// Takes a scenario's text apart and checks each line's verb, number of arguments and their form, so that nothing is
/// played of a file that makes no sense further down. Throws `ScenarioError`.
Scenario ParseScenario(const std::string& name, std::string_view text);

/// Reads a file and parses it. Throws `ScenarioError`, with line 0 for a file that can't be read.
Scenario ReadScenario(const std::string& path);

/// An argument as a scenario writes it: in quotes where it needs them.
std::string QuotedArgument(std::string_view argument);

}  // namespace fiscalon
