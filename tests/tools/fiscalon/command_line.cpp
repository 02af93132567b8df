#include "tests/tools/fiscalon/command_line.h"

#include <sys/wait.h>

#include <cstdlib>

#include "core/launch.h"

namespace fiscalon {

Outcome CommandLine::Run(const std::string& commandLine) const {
  const std::string shell =
      "cd '" + folder_.Path() +
      "' && unset NO_COLOR && export LC_ALL=C TERM=xterm && fiscalon() { '" FISCALON_PROGRAM "' \"$@\"; } && { " +
      commandLine + "\n} >'" + outputs_.Path("out") + "' 2>'" + outputs_.Path("err") + "' </dev/null";
  const int ended = std::system(shell.c_str());
  return {
      .status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, .out = outputs_.Read("out"), .err = outputs_.Read("err")};
}

std::string EveryScreenCode() {
  std::string codes;
  for (const LaunchRow& row : LaunchTable()) codes.append(codes.empty() ? "" : ", ").append(row.code);
  return codes;
}

}  // namespace fiscalon
