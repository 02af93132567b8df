#include "tools/fiscalon/context.h"

#include <cstdlib>
#include <iostream>

#include "core/host_setup.h"
#include "tools/fiscalon/files/terminal.h"
#include "tools/reading/visible_text.h"

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

std::string_view Context::SpokenLocaleName() const {
  return localeName.empty() ? kSystemLocaleName : localeName;
}

Locale Context::SpokenLocale() const {
  return *NamedLocale(SpokenLocaleName());
}

Language Context::ShownLanguage() const {
  return languageName.empty() ? Language() : *NamedLanguage(languageName);
}

void Context::SetUpModule() const {
  UseLocale(SpokenLocaleName());
  UseLanguage(ShownLanguage());
  if (today)
    UseFixedClock(*today);
}

bool ColourIsWanted() {
  return TerminalWidth().has_value() && Variable("NO_COLOR").empty() && Variable("TERM") != "dumb";
}

void Complain(std::string_view line) {
  std::cout.flush();
  std::cerr << VisibleUtf8(line) << '\n';
}

}  // namespace fiscalon
