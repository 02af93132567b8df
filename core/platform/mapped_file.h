#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>

namespace fiscalon {

/// The bytes of a file where the system keeps them, so that any size takes no memory of its own.
class MappedFile {
 public:
  /// Maps an open file, which may be closed afterwards. Null for what can't be mapped: a pipe, a folder, an
  /// empty file, one too large for the addresses there are. It is then still where it was and can be read.
  static std::unique_ptr<MappedFile> Of(std::FILE* file);

  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Bytes() const { return bytes_; }

 private:
  explicit MappedFile(std::string_view bytes) : bytes_(bytes) {}

  std::string_view bytes_;
};

}  // namespace fiscalon
