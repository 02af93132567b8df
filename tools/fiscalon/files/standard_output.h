#pragma once

#include <array>
#include <cerrno>
#include <iostream>
#include <span>
#include <streambuf>
#include <string>
#include <string_view>

namespace fiscalon {

/// Standard output takes nothing any more. It is no `std::exception`, so that nothing on the way mistakes it for a
/// failure of its own.
struct OutputError {
  /// The system's error number; EPIPE where the reader has gone.
  int number = 0;
};

/// What went wrong with it, in a sentence.
std::string TextOf(const OutputError& error);

/// Stands behind `std::cout` while it lives, so that a failed write is noticed when it happens: writing throws
/// `OutputError`. What is written comes out in order with standard error after each `flush`.
class StandardOutput final : public std::streambuf {
 public:
  StandardOutput();
  ~StandardOutput() override;
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;

  /// Writes pieces that mean something only as a whole, such as records, given by their ends in the text: where an
  /// interrupt or a full disk ends the output, it ends behind one of them. A piece that is larger than what a pipe
  /// takes at once is written to its end, and waits for its reader.
  static void WritePieces(std::string_view text, std::span<const size_t> ends);

 protected:
  int_type overflow(int_type character) override;
  int sync() override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;

 private:
  static void Write(const char* text, size_t size);

  std::array<char, 16384> buffer_ = {};
  std::streambuf* before_ = nullptr;
};

/// Runs a routine that prints what has been done. Where nobody takes that, what has been done stands, and the program's
/// status tells of it: standard error says that it could not be printed.
template <typename Routine>
void SayWhatStands(Routine say) {
  try {
    say();
    std::cout.flush();
  } catch (const OutputError& error) {
    std::cout.clear();
    if (error.number != EPIPE)
      std::cerr << "fiscalon: " << TextOf(error) << '\n';
  }
}

}  // namespace fiscalon
