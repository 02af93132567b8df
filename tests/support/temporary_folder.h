#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "core/platform/temporary_folder.h"
#include "core/platform/utf8_path.h"

namespace fiscalon {

/// A fresh folder that goes away with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() : path_(MakeTemporaryFolder()) {}
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return Utf8Of(path_); }
  std::string Path(std::string_view name) const { return Utf8Of(path_ / Utf8Path(name)); }

  std::string Read(std::string_view name) const {
    std::ifstream file(path_ / Utf8Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(path_ / Utf8Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

 private:
  std::filesystem::path path_;
};

}  // namespace fiscalon
