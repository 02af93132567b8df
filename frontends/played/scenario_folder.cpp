#include "frontends/played/scenario_folder.h"

#include <system_error>

#include "core/platform/temporary_folder.h"

namespace fiscalon {

ScenarioFolder::ScenarioFolder() : path_(MakeTemporaryFolder()) {}

ScenarioFolder::~ScenarioFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace fiscalon
