#include "frontends/played/scenario_player.h"

#include "frontends/played/scenario_run.h"

namespace fiscalon {

PlayResult ScenarioPlayer::Play(const Scenario& scenario) {
  PlayResult result;
  try {
    ScenarioRun(scenario, toolkit_, settings_, watcher_).Play();
  } catch (const ScenarioFailure& failure) {
    result = {.passed = false, .line = failure.line, .expected = failure.expected, .seen = failure.seen};
  }
  return result;
}

}  // namespace fiscalon
