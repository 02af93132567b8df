#include "tools/fiscalon/files/form_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace fiscalon {
namespace {

constexpr std::array kStreams = {STDIN_FILENO, STDOUT_FILENO};

/// The terminal that the process is started from; without one, nothing to read and what people are told.
void Replace(int stream) {
  const int direction = stream == STDIN_FILENO ? O_RDONLY : O_WRONLY;
  int other = ::open("/dev/tty", direction | O_CLOEXEC | O_NOCTTY);
  if (other < 0)
    other = stream == STDIN_FILENO ? ::open("/dev/null", direction | O_CLOEXEC)
                                   : ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
  if (other < 0)
    return;
  ::dup2(other, stream);
  ::close(other);
}

}  // namespace

void FormStreams::Take() {
  for (const int stream : kStreams) {
    int& kept = kept_[static_cast<size_t>(stream)];
    if (kept != -1 || ::isatty(stream) != 0)
      continue;
    // Above the standard streams, whichever of these there are.
    kept = ::fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (kept != -1)
      Replace(stream);
  }
}

void FormStreams::GiveBack() {
  for (const int stream : kStreams) {
    int& kept = kept_[static_cast<size_t>(stream)];
    if (kept == -1)
      continue;
    ::dup2(kept, stream);
    ::close(kept);
    kept = -1;
  }
}

}  // namespace fiscalon
