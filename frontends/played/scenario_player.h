#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "core/found_records.h"
#include "core/platform/date.h"
#include "frontends/played/driven_toolkit.h"
#include "frontends/played/scenario.h"

namespace fiscalon {

/// How a scenario went. Texts are UTF-8.
struct PlayResult {
  bool passed = true;
  /// Of the line that failed.
  int line = 0;
  std::string expected = {};
  std::string seen = {};
};

/// What somebody who watches a scenario hears of it. `form` is null while no form is up.
struct PlayWatcher {
  std::function<void(const ScenarioLine& line)> lineBegins = {};
  std::function<void(const ScenarioLine& line, Form* form)> lineEnds = {};
  std::function<void(const std::string& handler)> handlerRuns = {};
  std::function<void(const BoxRequest& box, MessageAnswer answer, Form* form)> boxAnswered = {};
  /// A beep, or a help page, in the words of an `expect` line.
  std::function<void(const std::string& what)> noticed = {};
  /// A line has given the form a status.
  std::function<void(const std::string& status)> statusCame = {};
  /// `ShowLevyraScreen` has ended: "result True", or the error, in the words of an `expect` line.
  std::function<void(const std::string& ending)> showEnded = {};
  /// The scenario is over, and what it made is still there: the records, before they go.
  std::function<void(const FoundRecords& found)> ended = {};
  /// The last that is heard: the folder behind `$TMP`, before it goes. Not where no line named it.
  std::function<void(const std::filesystem::path& folder)> folderGoes = {};
};

struct PlaySettings {
  /// For scenarios that name none; without it the real clock.
  std::optional<DateTime> today = {};
  std::string locale = "en-CA";
  /// The same.
  Language language = {};
};

/// Plays scenarios through a front end. Each starts as in a freshly loaded library, with a folder of its own for
/// `$TMP` that goes when the scenario ends.
class ScenarioPlayer {
 public:
  explicit ScenarioPlayer(DrivenToolkit& toolkit, PlaySettings settings = {}, PlayWatcher watcher = {})
      : toolkit_(toolkit), settings_(std::move(settings)), watcher_(std::move(watcher)) {}

  /// Throws `ScenarioError` for a line that makes no sense for the form that is up, such as an unknown control.
  PlayResult Play(const Scenario& scenario);

 private:
  DrivenToolkit& toolkit_;
  PlaySettings settings_;
  PlayWatcher watcher_;
};

}  // namespace fiscalon
