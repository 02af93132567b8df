#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "core/platform/utf8_path.h"
#include "frontends/scripted/front_end.h"
#include "frontends/terminal/front_end.h"
#include "tools/fiscalon/context.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/program_start.h"

/// The front ends of the program itself, and that of its twin.
namespace fiscalon {
namespace {

/// From the folder of the program; empty where the build has no Qt.
constexpr std::string_view kTwin = FISCALON_QT_TWIN;

void GoOnInTwin(char** arguments) {
  if (kTwin.empty())
    throw CommandError("this build has no Qt front end; build it with FISCALON_QT=ON");
  const auto twin = (Utf8Path(FolderOfProgram()) / kTwin).lexically_normal();
  ::execv(twin.c_str(), arguments);
  const std::string remedy = errno == ENOENT ? "; the package fiscalon-tools-qt has it" : "";
  throw CommandError("the Qt front end " + Utf8Of(twin) + " can't be started: " + std::strerror(errno) + remedy);
}

/// Loading Qt to be told so takes longer.
std::string WhyNoWindows() {
  if (kTwin.empty())
    return "this build has no Qt front end; build it with FISCALON_QT=ON";
  for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
    if (const char* const value = std::getenv(variable); value != nullptr && *value != '\0')
      return {};
  return "there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY";
}

}  // namespace

std::span<const FrontEnd> FrontEnds() {
  static constexpr auto kRows = FrontEndTable(
      {scripted::kFrontEnd, {.name = "qt", .hindrance = WhyNoWindows, .runsIn = GoOnInTwin}, terminal::kFrontEnd});
  return kRows;
}

}  // namespace fiscalon
