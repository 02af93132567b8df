#include "tests/scenarios/play_files.h"

#include <algorithm>
#include <iostream>

#include "frontends/played/scenario_player.h"

namespace fiscalon {
namespace {

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kSenseless = 2;

int PlayOne(DrivenToolkit& toolkit, const Scenario& scenario) {
  try {
    const PlayResult result = ScenarioPlayer(toolkit).Play(scenario);
    if (result.passed)
      return kPassed;
    std::cerr << scenario.Title() << '\n'
              << scenario.file << ':' << result.line << ": expected " << result.expected << "\n  but saw "
              << result.seen << '\n';
    return kFailed;
  } catch (const ScenarioError& error) {
    std::cerr << scenario.Title() << '\n' << error.what() << '\n';
    return kSenseless;
  }
}

int PlayFile(DrivenToolkit& toolkit, const std::string& file) {
  try {
    int status = kPassed;
    for (const Scenario& scenario : ReadScenarios(file)) status = std::max(status, PlayOne(toolkit, scenario));
    return status;
  } catch (const ScenarioError& error) {
    std::cerr << error.what() << '\n';
    return kSenseless;
  }
}

}  // namespace

int PlayFiles(DrivenToolkit& toolkit, std::span<const std::string> files) {
  int status = files.empty() ? kSenseless : kPassed;
  for (const std::string& file : files) status = std::max(status, PlayFile(toolkit, file));
  return status;
}

}  // namespace fiscalon
