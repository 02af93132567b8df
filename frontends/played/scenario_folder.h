#pragma once

#include <filesystem>
#include <optional>

namespace fiscalon {

/// The folder behind `$TMP`, which goes with its scenario. Most scenarios never name it, and then there is none: to
/// make and remove one takes longer than to play them.
class ScenarioFolder {
 public:
  ScenarioFolder() = default;
  ~ScenarioFolder();
  ScenarioFolder(const ScenarioFolder&) = delete;
  ScenarioFolder& operator=(const ScenarioFolder&) = delete;
  /// Makes it at the first call.
  const std::filesystem::path& Path();
  bool IsMade() const { return path_.has_value(); }

 private:
  std::optional<std::filesystem::path> path_;
};

}  // namespace fiscalon
