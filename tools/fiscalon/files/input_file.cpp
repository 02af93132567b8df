#include "tools/fiscalon/files/input_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "core/platform/input.h"

namespace fiscalon {

namespace {

/// Far more than any file that people write.
constexpr size_t kLargestInput = size_t{64} << 20;

}  // namespace

std::string ReadInput(const std::string& path) {
  const auto close = [](std::FILE* file) { return file == stdin ? 0 : std::fclose(file); };
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(path == "-" ? stdin : OpenInput(path), close);
  if (!file)
    throw UnreadableFile(std::strerror(errno));
  std::string bytes;
  std::array<char, 65536> piece;
  try {
    while (const size_t count = std::fread(piece.data(), 1, piece.size(), file.get())) {
      if (bytes.size() + count > kLargestInput)
        throw UnreadableFile("it holds more than 64 MiB");
      bytes.append(piece.data(), count);
    }
  } catch (const std::bad_alloc&) {
    throw UnreadableFile("it is too large for the memory there is");
  }
  if (std::ferror(file.get()) != 0)
    throw UnreadableFile(std::strerror(errno));
  return bytes;
}

}  // namespace fiscalon
