#include "core/platform/input.h"

namespace fiscalon {

std::FILE* OpenInput(const std::string& path) {
  return std::fopen(path.c_str(), "rb");
}

}  // namespace fiscalon
