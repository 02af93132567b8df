#include "tests/scenarios/play_files.h"

#include <algorithm>
#include <iostream>

#include "frontends/played/scenario_player.h"

namespace fiscalon {
namespace {

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kSenseless = 2;

int PlayFile(DrivenToolkit& toolkit, const std::string& file) {
  try {
    const PlayResult result = ScenarioPlayer(toolkit).Play(ReadScenario(file));
    if (result.passed)
      return kPassed;
    std::cerr << file << ':' << result.line << ": expected " << result.expected << "\n  but saw " << result.seen
              << '\n';
    return kFailed;
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
