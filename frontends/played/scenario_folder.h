#pragma once

#include <filesystem>

namespace fiscalon {

/// The folder behind `$TMP`, which goes with its scenario.
class ScenarioFolder {
 public:
  ScenarioFolder();
  ~ScenarioFolder();
  ScenarioFolder(const ScenarioFolder&) = delete;
  ScenarioFolder& operator=(const ScenarioFolder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace fiscalon
