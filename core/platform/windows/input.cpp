#include "core/platform/input.h"

#include "core/platform/windows/system_path.h"

namespace fiscalon {

std::FILE* OpenInput(const std::string& path) {
  return ::_wfopen(SystemPath(path).c_str(), L"rb");
}

}  // namespace fiscalon
