#include "core/platform/temporary_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace fiscalon {

std::filesystem::path MakeTemporaryFolder() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error)
    throw std::system_error(error, "no temporary folder can be made where TMPDIR says");
  std::string name = (folder / "fiscalon-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  return name;
}

}  // namespace fiscalon
