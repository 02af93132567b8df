#include "tools/fiscalon/files/standard_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

#include "tools/fiscalon/files/file_places.h"
#include "tools/fiscalon/files/interrupt_watch.h"

namespace fiscalon {

std::string TextOf(const OutputError& error) {
  return std::string("standard output can't be written: ") + std::strerror(error.number);
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

namespace {

/// Writes past the C library, which would take up a write again that an interrupt has ended, and wait for a reader that
/// never comes. How many bytes were taken: less than there are where an interrupt or a failure came, which `errno`
/// tells.
size_t Send(std::string_view text, bool untilInterrupted) {
  size_t sent = 0;
  while (sent < text.size()) {
    // Systems differ in how much they take at once.
    constexpr size_t kMostAtOnce = size_t{1} << 30;
    if (untilInterrupted && !WaitToWrite(STDOUT_FILENO)) {
      errno = EINTR;
      break;
    }
    const auto written =
        ::write(STDOUT_FILENO, text.data() + sent, static_cast<unsigned>(std::min(text.size() - sent, kMostAtOnce)));
    if (written < 0 && errno != EINTR)
      break;
    sent += static_cast<size_t>(std::max<decltype(written)>(written, 0));
  }
  return sent;
}

/// What was printed by the C library's own routines comes first.
void FlushEarlier() {
  if (std::fflush(stdout) != 0)
    throw OutputError{.number = errno};
}

}  // namespace

void StandardOutput::Write(const char* text, size_t size) {
  FlushEarlier();
  if (Send({text, size}, true) < size)
    throw OutputError{.number = errno};
}

void StandardOutput::WritePieces(std::string_view text, std::span<const size_t> ends) {
  FlushEarlier();
  size_t from = 0;
  for (auto end = ends.begin(); end != ends.end();) {
    // As many pieces as go out in one step, or the next one.
    if (!WaitToWrite(STDOUT_FILENO))
      throw OutputError{.number = EINTR};
    const size_t most = from + OutputTakesAtOnce();
    const auto behind = std::upper_bound(end + 1, ends.end(), most);
    const size_t to = *(behind - 1);
    const size_t sent = Send(text.substr(from, to - from), false);
    if (sent < to - from) {
      const int reason = errno;
      const auto torn = std::upper_bound(end, behind, from + sent);
      TakeOutputBack(from + sent - (torn == end ? from : *(torn - 1)));
      throw OutputError{.number = reason};
    }
    from = to;
    end = behind;
  }
}

}  // namespace fiscalon
