#include "tools/fiscalon/standard_output.h"

#include <cerrno>
#include <cstdio>
#include <iostream>

#if __has_include(<unistd.h>)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace fiscalon {

void OccupyStandardDescriptors() {
#if __has_include(<unistd.h>)
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1)
      continue;
    // The lowest free descriptor is the one that is taken. The wrong direction makes every use fail.
    if (::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0)
      return;
  }
#endif
}

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
  errno = 0;
  if (std::fwrite(buffer_.data(), 1, size, stdout) != size || std::fflush(stdout) != 0)
    throw OutputError{.number = errno};
  return 0;
}

}  // namespace fiscalon
