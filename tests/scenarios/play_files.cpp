#include "tests/scenarios/play_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "core/platform/utf8_path.h"
#include "frontends/played/scenario_player.h"

namespace fiscalon {
namespace {

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kSenseless = 2;

/// The scenarios, and where what they write is gathered: nowhere if the stream is closed.
class Playing {
 public:
  explicit Playing(DrivenToolkit& toolkit) : toolkit_(toolkit) {}

  void GatherInto(const std::string& name) { gathered_.open(Utf8Path(name), std::ios::binary); }
  int PlayFile(const std::string& file);

 private:
  int PlayOne(const Scenario& scenario);
  void Gather(const Scenario& scenario, const std::filesystem::path& folder);

  DrivenToolkit& toolkit_;
  std::ofstream gathered_;
};

void Playing::Gather(const Scenario& scenario, const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  for (const std::filesystem::path& path : paths) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto name = path.lexically_relative(folder).generic_u8string();
    gathered_ << scenario.Title() << '\n'
              << std::string(name.begin(), name.end()) << ", " << bytes.size() << " bytes\n"
              << bytes << '\n';
  }
}

int Playing::PlayOne(const Scenario& scenario) {
  PlayWatcher watcher;
  if (gathered_.is_open())
    watcher.folderGoes = [&](const std::filesystem::path& folder) { Gather(scenario, folder); };
  try {
    const PlayResult result = ScenarioPlayer(toolkit_, {}, watcher).Play(scenario);
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

int Playing::PlayFile(const std::string& file) {
  try {
    int status = kPassed;
    for (const Scenario& scenario : ReadScenarios(file)) status = std::max(status, PlayOne(scenario));
    return status;
  } catch (const ScenarioError& error) {
    std::cerr << error.what() << '\n';
    return kSenseless;
  }
}

}  // namespace

int PlayFiles(DrivenToolkit& toolkit, std::span<const std::string> arguments) {
  Playing playing(toolkit);
  if (arguments.size() >= 2 && arguments[0] == "--files") {
    playing.GatherInto(arguments[1]);
    arguments = arguments.subspan(2);
  }
  int status = arguments.empty() ? kSenseless : kPassed;
  for (const std::string& file : arguments) status = std::max(status, playing.PlayFile(file));
  return status;
}

}  // namespace fiscalon
