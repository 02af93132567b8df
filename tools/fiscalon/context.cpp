#include "tools/fiscalon/context.h"

#include <cstdlib>
#include <iostream>

#if __has_include(<unistd.h>)
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace fiscalon {
namespace {

std::string_view Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

}  // namespace

std::string Paint::In(std::string_view code, std::string_view text) const {
  if (!on_ || text.empty())
    return std::string(text);
  return std::string("\x1B[").append(code).append("m").append(text).append("\x1B[0m");
}

Locale Context::SpokenLocale() const {
  return *NamedLocale(localeName.empty() ? "system" : localeName);
}

bool ColourIsWanted() {
  return TerminalWidth().has_value() && Variable("NO_COLOR").empty() && Variable("TERM") != "dumb";
}

std::optional<size_t> TerminalWidth() {
#if __has_include(<unistd.h>)
  constexpr size_t kUsualWidth = 80;
  if (::isatty(STDOUT_FILENO) == 0)
    return std::nullopt;
  winsize size = {};
  const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size_t{size.ws_col} : kUsualWidth;
#else
  return std::nullopt;
#endif
}

void Complain(std::string_view line) {
  std::cout.flush();
  std::cerr << line << '\n';
}

}  // namespace fiscalon
