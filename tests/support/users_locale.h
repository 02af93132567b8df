#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace fiscalon {

/// The environment's locale on a POSIX system, for as long as the object lives: variables and the names that they give.
/// What the variables were before is back afterwards. Locales are compiled once and lie in the build folder, but for
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
    ::setenv("LOCPATH", kFolder, 1);
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
    const std::filesystem::path locale = std::filesystem::path(kFolder) / name;
    if (!std::filesystem::exists(locale)) {
      const std::string source = name.substr(0, name.find('.'));
      const std::string charset = name.substr(name.find('.') + 1);
      // Beside its place, which it takes when it is whole: another test may be about to do the same.
      const std::string fresh = locale.string() + "-" + std::to_string(::getpid());
      std::error_code ignored;
      std::filesystem::create_directories(kFolder, ignored);
      const std::string command = "localedef -i " + source + " -f " + charset + " " + fresh + " 2>/dev/null";
      // The compiler's warnings make its exit status 1; the folder tells whether it made the locale.
      [[maybe_unused]] const int status = ::system(command.c_str());
      std::filesystem::rename(fresh, locale, ignored);
      std::filesystem::remove_all(fresh, ignored);
    }
    available_ = available_ && std::filesystem::exists(locale);
  }

  static constexpr const char* kFolder = FISCALON_BUILD_DIR "/tests/locales";

  std::vector<std::pair<const char*, std::optional<std::string>>> before_;
  bool available_ = true;
};

}  // namespace fiscalon
