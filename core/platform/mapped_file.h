#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// The bytes of a file where the system keeps them, so that any size takes no memory of its own.
class MappedFile {
 public:
  /// Maps an open file, which may be closed afterwards. Null for what can't be mapped: a pipe, a folder, an
  /// empty file, one too large for the addresses there are, one that can't be opened once more. It is then still where
  /// it was and can be read.
  static std::unique_ptr<MappedFile> Of(std::FILE* file);

  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Bytes() const { return bytes_; }

  /// Some of the bytes, wherever looking at all of them is quickest: where they are, or read into `storage` where the
  /// system maps the file in small pieces, each of which must be found, mapped and unmapped. Fewer where the file has
  /// become shorter; nothing, and `errno` set, where it can't be read. Threads may call it side by side.
  std::optional<std::string_view> Read(std::string_view part, std::string& storage) const;

  /// Whether the file has been written to since it was mapped: its bytes may be neither those before nor those after.
  /// One that was renamed or removed is what it was.
  bool HasChanged() const { return Now() != mapped_; }

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
  /// How many parts were read, and whether the last one that was asked lay in a large piece.
  mutable std::atomic<unsigned> partsRead_ = 0;
  mutable std::atomic<bool> isInLargePieces_ = false;
};

}  // namespace fiscalon
