#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/record_line.h"

namespace fiscalon {

/// A line that was read. It holds until the next one is read.
struct ReadLine {
  RecordLine line = {};
  /// How many characters of a line that is longer than `kLongestLine` are left out of it, behind its beginning.
  uint64_t hidden = 0;
};

/// Reads the lines of a record file one by one, in a memory that grows neither with the file nor with a line. What a
/// pipe has to give is handed out before more is waited for. Failures throw `CommandError`, an interrupt too.
class LineReader {
 public:
  /// "-" is standard input. `beforeRead` is called each time before more is read, which may take long.
  LineReader(const std::string& path, std::function<void()> beforeRead);

  /// Whether there was a line left. A file that has become longer or shorter meanwhile throws at its end; of its last
  /// line, which may be half of one, nothing is known.
  bool Next(ReadLine& line);

  /// How messages call the file.
  const std::string& Name() const { return name_; }
  uint64_t BytesRead() const { return bytesRead_; }
  /// How many bytes there are in all, where that is known.
  std::optional<uint64_t> Size() const { return size_; }

 private:
  struct Closer {
    void operator()(std::FILE* file) const;
  };

  /// Reads on behind what is left in the buffer. False at the end of the file.
  bool Fill();
  size_t Read(char* place, size_t count);
  bool NextLong(ReadLine& line);
  void CheckSize() const;
  [[noreturn]] void Fail(const std::string& reason) const;

  std::string name_;
  std::function<void()> beforeRead_;
  std::unique_ptr<std::FILE, Closer> file_;
  std::optional<uint64_t> size_;
  uint64_t bytesRead_ = 0;
  std::vector<char> buffer_;
  size_t start_ = 0;
  size_t end_ = 0;
  bool atEnd_ = false;
  std::string long_;
};

}  // namespace fiscalon
