#pragma once

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fiscalon {

struct LineForm;

/// One line of a scenario that says something: a verb and its arguments, in UTF-8.
struct ScenarioLine {
  int number = 0;
  /// What the line can say, with the routine that plays it.
  const LineForm* form = nullptr;
  /// The words that name its form, such as "type" or "expect title".
  std::string verb = {};
  /// What stands behind the verb.
  std::vector<std::string> arguments = {};
  /// The line as it stands in the file, for reports.
  std::string source = {};
};

/// Lines of a file, by number: from the first one to before the last one.
struct LineRange {
  int from = 1;
  int to = std::numeric_limits<int>::max();
};

/// What plays a host and a user against a screen and states what must be seen.
struct Scenario {
  std::string file = {};
  /// As its `scenario` line says it; empty where the file is one scenario.
  std::string name = {};
  /// The code for which it is played, of those that its file names; empty where the file names none.
  std::string screen = {};
  /// What the file says ahead of its scenarios, then the scenario's own lines.
  std::vector<ScenarioLine> lines = {};
  /// The parts of the file ahead of its scenarios, and of this one; for one in a file of its own the whole file.
  LineRange ahead = {};
  LineRange own = {};

  /// "NAME", "NAME (16)" or "(16)": what tells it from the others of its file; empty for one in a file of its own.
  std::string Label() const;
  /// "FILE", "FILE: NAME", "FILE: NAME (16)" or "FILE (16)": under what it is reported.
  std::string Title() const;
};

/// A scenario that makes no sense: what `what()` says is "file:line: reason".
class ScenarioError : public std::runtime_error {
 public:
  ScenarioError(const std::string& file, int line, const std::string& reason)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason) {}
};

/// Takes a file's text apart into its scenarios, one at least, for each of its screens in turn, and checks each line's
/// verb, number of arguments and their form, so that nothing is played of a file that makes no sense further down.
/// Throws `ScenarioError`.
std::vector<Scenario> ParseScenarios(const std::string& file, std::string_view text);

/// Takes a text apart that is one scenario, or one for each of several screens, of which it is that of `screen`. Throws
/// `ScenarioError`, also for a text that holds several.
Scenario ParseScenario(const std::string& file, std::string_view text, std::string_view screen = {});

/// Reads a file and parses it. Throws `ScenarioError`, with line 0 for a file that can't be read.
std::vector<Scenario> ReadScenarios(const std::string& path);

/// An argument as a scenario writes it: in quotes where it needs them.
std::string QuotedArgument(std::string_view argument);

}  // namespace fiscalon
