#pragma once

#include <array>
#include <streambuf>

namespace fiscalon {

/// Standard output takes nothing any more. It is no `std::exception`, so that nothing on the way mistakes it for a
/// failure of its own.
struct OutputError {
  /// The system's error number; EPIPE where the reader has gone.
  int number = 0;
};

/// Stands behind `std::cout` while it lives, so that a failed write is noticed when it happens: writing throws
/// `OutputError`. What is written comes out in order with standard error after each `flush`.
class StandardOutput final : public std::streambuf {
 public:
  StandardOutput();
  ~StandardOutput() override;
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;

 protected:
  int_type overflow(int_type character) override;
  int sync() override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;

 private:
  static void Write(const char* text, size_t size);

  std::array<char, 16384> buffer_ = {};
  std::streambuf* before_ = nullptr;
};

}  // namespace fiscalon
