#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/played/argument_kinds.h"
#include "frontends/played/scenario.h"

/// What the lines of a scenario may say. Each form of a line is registered once, beside the routine that plays it.
namespace fiscalon {

class ScenarioRun;

/// The arguments of a line when it is played, with `$TMP` replaced.
using Arguments = std::vector<std::string>;

/// Who speaks with a line, which decides when it may stand.
enum class Turn {
  /// The file: where a scenario begins, for which screens it is played. Such a line is not played itself.
  Heading,
  /// The host, which has no turn while a form is up.
  Host,
  /// The user at the form that is up. What the act before has shown must have been claimed.
  User,
  /// The user, who will answer a box: at any time.
  Answer,
  /// Whoever says what must be seen: at any time.
  Watcher
};

/// One form that a line can have.
struct LineForm {
  using Kinds = std::array<const ArgumentKind*, 4>;

  /// Its verb, or "expect" and what is expected.
  std::string_view words;
  Turn turn;
  /// The arguments in their order.
  Kinds needed = {};
  /// Those behind them, of which there are all or none.
  Kinds perhaps = {};
  void (*play)(ScenarioRun& run, const Arguments& arguments) = nullptr;
  /// What is wrong with arguments that fit one by one.
  std::string (*complaint)(const Arguments& arguments) = nullptr;
  /// Any number of these may follow the needed ones; null for a line that has an end.
  const ArgumentKind* more = nullptr;
};

// The forms, by who speaks and of what.
std::span<const LineForm> HostLines();
std::span<const LineForm> UserLines();
std::span<const LineForm> ShownExpectations();
std::span<const LineForm> HostExpectations();

/// Null where no line begins with these words.
const LineForm* FindLineForm(std::string_view words);

/// Words of a file as complaints show them.
std::string InQuotes(std::string_view words);

/// What is wrong with a line, or an empty text: an unknown verb, too few arguments, a word that should be one of a few,
/// a number that is none.
std::string ComplaintAbout(const ScenarioLine& line);

}  // namespace fiscalon
