#include "frontends/played/scenario_folder.h"

#include <stdlib.h>

#include <string>
#include <system_error>

namespace fiscalon {

namespace {

std::filesystem::path FolderForTemporaries() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error)
    throw std::system_error(error, "no temporary folder can be made where TMPDIR says");
  return folder;
}

}  // namespace

ScenarioFolder::ScenarioFolder() {
  std::string name = (FolderForTemporaries() / "fiscalon-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  path_ = name;
}

ScenarioFolder::~ScenarioFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace fiscalon
