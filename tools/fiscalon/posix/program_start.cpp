#include "tools/fiscalon/program_start.h"

#include <csignal>

namespace fiscalon {

ProgramStart::ProgramStart(int argc, char** argv) : arguments_(argv, argv + argc + 1) {
  // A reader that goes away shows as a failed write, and so does a file that would grow over its owner's limit.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

ProgramStart::~ProgramStart() = default;

}  // namespace fiscalon
