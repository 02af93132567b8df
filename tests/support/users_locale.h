#pragma once

#include <stdlib.h>

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace fiscalon {

/// The environment's locale on a POSIX system, for as long as the object lives: variables and the names that they give.
/// What the variables were before is back afterwards. Locales are compiled into a folder of the test's own, but for
/// "C" and its kin and for those of country XX, which no system has.
class UsersLocale {
 public:
  explicit UsersLocale(const std::string& name) : UsersLocale({{"LC_ALL", name}}) {}
  explicit UsersLocale(std::initializer_list<std::pair<const char*, std::string>> settings) {
    for (const char* variable :
         {"LC_ALL", "LC_CTYPE", "LC_NUMERIC", "LC_MONETARY", "LC_TIME", "LC_MESSAGES", "LANG", "LOCPATH"})
      Clear(variable);
    for (const auto& [variable, name] : settings) {
      if (!name.starts_with("C") && name != "POSIX" && name.find("_XX") == name.npos)
        Compile(name);
      ::setenv(variable, name.c_str(), 1);
    }
    ::setenv("LOCPATH", folder_.Path().c_str(), 1);
  }
  ~UsersLocale() {
    for (const auto& [variable, value] : before_)
      if (value)
        ::setenv(variable, value->c_str(), 1);
      else
        ::unsetenv(variable);
  }
  UsersLocale(const UsersLocale&) = delete;
  UsersLocale& operator=(const UsersLocale&) = delete;

  /// False where this system can't make one of the locales.
  bool Available() const { return available_; }

 private:
  void Clear(const char* variable) {
    const char* value = ::getenv(variable);
    before_.emplace_back(variable, value == nullptr ? std::nullopt : std::optional<std::string>(value));
    ::unsetenv(variable);
  }

  void Compile(const std::string& name) {
    const std::string source = name.substr(0, name.find('.'));
    const std::string charset = name.substr(name.find('.') + 1);
    const std::string command = "localedef -i " + source + " -f " + charset + " " + folder_.Path(name) + " 2>/dev/null";
    // The compiler's warnings make its exit status 1; the folder tells whether it made the locale.
    [[maybe_unused]] const int status = ::system(command.c_str());
    available_ = available_ && std::filesystem::exists(folder_.Path(name));
  }

  TemporaryFolder folder_;
  std::vector<std::pair<const char*, std::optional<std::string>>> before_;
  bool available_ = true;
};

}  // namespace fiscalon
