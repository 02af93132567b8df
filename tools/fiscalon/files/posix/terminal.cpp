#include "tools/fiscalon/files/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace fiscalon {

std::optional<size_t> TerminalWidth() {
  constexpr size_t kUsualWidth = 80;
  if (::isatty(STDOUT_FILENO) == 0)
    return std::nullopt;
  winsize size = {};
  const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size_t{size.ws_col} : kUsualWidth;
}

bool ComplaintsAreSeen() {
  return ::isatty(STDERR_FILENO) != 0;
}

}  // namespace fiscalon
