#include "frontends/played/scenario_folder.h"

#include <stdlib.h>

#include <string>
#include <system_error>

namespace fiscalon {

ScenarioFolder::ScenarioFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "fiscalon-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  path_ = name;
}

ScenarioFolder::~ScenarioFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace fiscalon
