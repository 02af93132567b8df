#include "frontends/played/scenario_folder.h"

#include <system_error>

#include "core/platform/temporary_folder.h"

namespace fiscalon {

ScenarioFolder::~ScenarioFolder() {
  std::error_code ignored;
  if (path_)
    std::filesystem::remove_all(*path_, ignored);
}

const std::filesystem::path& ScenarioFolder::Path() {
  if (!path_)
    path_ = MakeTemporaryFolder();
  return *path_;
}

}  // namespace fiscalon
