#include "frontends/terminal/help_viewer.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace fiscalon::terminal {
namespace {

bool HasDesktop() {
  const auto isSet = [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

}  // namespace

bool OpenOnDesktop(const std::string& path) {
  if (!HasDesktop())
    return false;
  // A shell starts it in the background and is over: nobody waits for the viewer, and it writes over no form.
  constexpr const char* kScript =
      "command -v xdg-open >/dev/null || exit 1; xdg-open \"$1\" </dev/null >/dev/null 2>&1 &";
  std::string file = path;
  std::string script = kScript;
  std::string shell = "sh", option = "-c", name = "help";
  char* const arguments[] = {shell.data(), option.data(), script.data(), name.data(), file.data(), nullptr};
  pid_t child = 0;
  if (::posix_spawn(&child, "/bin/sh", nullptr, nullptr, arguments, environ) != 0)
    return false;
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace fiscalon::terminal
