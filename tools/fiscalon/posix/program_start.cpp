#include "tools/fiscalon/program_start.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <system_error>

#include "core/platform/utf8_path.h"

namespace fiscalon {
namespace {

/// No file that is opened later gets the descriptor of a standard stream that was closed by whoever started the
/// program: what is printed would go into that file. Using such a stream fails as before.
void OccupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1)
      continue;
    // The lowest free descriptor is the one that is taken. The wrong direction makes every use fail.
    if (::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0)
      return;
  }
}

}  // namespace

ProgramStart::ProgramStart(int argc, char** argv) : arguments_(argv, argv + argc + 1) {
  // A reader that goes away shows as a failed write, and so does a file that would grow over its owner's limit.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  OccupyStandardDescriptors();
}

ProgramStart::~ProgramStart() = default;

std::string FolderOfProgram() {
  std::error_code error;
  return Utf8Of(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
}

}  // namespace fiscalon
