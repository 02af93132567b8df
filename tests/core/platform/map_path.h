#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "core/platform/input.h"
#include "core/platform/mapped_file.h"

namespace fiscalon {

/// Maps a file that is closed again. It must be there.
inline std::unique_ptr<MappedFile> MapPath(const std::string& path) {
  std::FILE* const file = OpenInput(path);
  auto mapped = MappedFile::Of(file);
  std::fclose(file);
  return mapped;
}

}  // namespace fiscalon
