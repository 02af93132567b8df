#pragma once

#include <cstddef>
#include <cstdint>
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

  /// Has the system take back the pages of some of the bytes, which it finds again where they are looked at; one that
  /// knows no such thing keeps them. Unmapping a file is work for each of its pages, which threads can share this way.
  void ReturnPages(std::string_view part) const;

  /// Whether the file has been written to since it was mapped: its bytes may be neither those before nor those after.
  /// One that was renamed or removed is what it was.
  bool HasChanged() const;

 private:
  /// What tells that a file was written to: its size, and when that was, in the system's own count.
  struct Stamp {
    uint64_t size = 0;
    int64_t written = 0;

    bool operator==(const Stamp&) const = default;
  };

  MappedFile(std::string_view bytes, int descriptor) : bytes_(bytes), descriptor_(descriptor), mapped_(Now()) {}

  Stamp Now() const;

  std::string_view bytes_;
  /// The file once more, for as long as this lives.
  int descriptor_;
  Stamp mapped_;
};

}  // namespace fiscalon
