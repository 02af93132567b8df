#include "tools/fiscalon/files/standard_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>

#include "tools/fiscalon/files/interrupt_watch.h"

namespace fiscalon {

StandardOutput::StandardOutput() {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  before_ = std::cout.rdbuf(this);
  std::cout.exceptions(std::ios::badbit);
  // A complaint about standard output must not try it again.
  std::cerr.tie(nullptr);
}

StandardOutput::~StandardOutput() {
  std::cout.exceptions(std::ios::goodbit);
  std::cout.rdbuf(before_);
}

StandardOutput::int_type StandardOutput::overflow(int_type character) {
  sync();
  if (traits_type::eq_int_type(character, traits_type::eof()))
    return traits_type::not_eof(character);
  return sputc(traits_type::to_char_type(character));
}

int StandardOutput::sync() {
  const auto size = static_cast<size_t>(pptr() - pbase());
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  Write(buffer_.data(), size);
  return 0;
}

std::streamsize StandardOutput::xsputn(const char* text, std::streamsize size) {
  if (size < epptr() - pptr())
    return std::streambuf::xsputn(text, size);
  sync();
  Write(text, static_cast<size_t>(size));
  return size;
}

/// Past the C library, which would take up a write again that an interrupt has ended, and wait for a reader that never
/// comes.
void StandardOutput::Write(const char* text, size_t size) {
  errno = 0;
  if (std::fflush(stdout) != 0)
    throw OutputError{.number = errno};
  while (size > 0) {
    // Systems differ in how much they take at once.
    constexpr size_t kMostAtOnce = size_t{1} << 30;
    const auto written = ::write(STDOUT_FILENO, text, static_cast<unsigned>(std::min(size, kMostAtOnce)));
    if (IsInterrupted() && (written < 0 || static_cast<size_t>(written) < size))
      throw OutputError{.number = EINTR};
    if (written < 0 && errno != EINTR)
      throw OutputError{.number = errno};
    const auto count = static_cast<size_t>(std::max<decltype(written)>(written, 0));
    text += count;
    size -= count;
  }
}

}  // namespace fiscalon
