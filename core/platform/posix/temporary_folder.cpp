#include "core/platform/temporary_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "core/platform/utf8_path.h"

namespace fiscalon {

std::filesystem::path MakeTemporaryFolder() {
  std::error_code error;
  const auto folder = std::filesystem::temp_directory_path(error);
  if (error)
    throw std::system_error(error, "no temporary folder can be made where TMPDIR says");
  std::string name = Utf8Of(folder / "fiscalon-XXXXXX");
  if (::mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  return Utf8Path(name);
}

}  // namespace fiscalon
