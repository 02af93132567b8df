// The front end of the program itself: none. What wants one is done by the twin.

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "tools/fiscalon/context.h"
#include "tools/fiscalon/forms_front_end.h"

namespace fiscalon {
namespace {

/// From the folder of the program; empty where the build has no Qt.
constexpr std::string_view kTwin = FISCALON_QT_TWIN;

[[noreturn]] void MissesItsTwin() {
  throw std::logic_error("a command that wants Qt has not gone on with it");
}

}  // namespace

const char* const kFormsToolkit = "qt";

void GoOnWithForms(const Context& context) {
  if (kTwin.empty())
    throw CommandError("this build has no Qt front end; build it with FISCALON_QT=ON");
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  const auto twin = (program.parent_path() / kTwin).lexically_normal();
  ::execv(twin.c_str(), context.arguments);
  const std::string remedy = errno == ENOENT ? "; it is installed with the payment desk, fiscalon-desk" : "";
  throw CommandError("the Qt front end " + twin.string() + " can't be started: " + std::strerror(errno) + remedy);
}

std::unique_ptr<DrivenToolkit> NewPlayedForms() {
  MissesItsTwin();
}

std::unique_ptr<Toolkit> NewForms(ActWatcher* /*watcher*/) {
  MissesItsTwin();
}

std::unique_ptr<PhotographedToolkit> NewPhotographedForms(const PictureLook& /*look*/) {
  MissesItsTwin();
}

}  // namespace fiscalon
