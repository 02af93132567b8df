#pragma once

#include <stdexcept>
#include <string>

namespace fiscalon {

/// Why a file can't be read, such as "No such file or directory".
class UnreadableFile : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// All bytes of a file; "-" is standard input. Throws `UnreadableFile`, for a folder too, and for more than 64 MiB.
std::string ReadInput(const std::string& path);

}  // namespace fiscalon
