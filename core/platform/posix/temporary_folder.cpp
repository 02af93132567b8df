#include "core/platform/temporary_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace fiscalon {

std::filesystem::path MakeTemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "fiscalon-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  return name;
}

}  // namespace fiscalon
