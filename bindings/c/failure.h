#pragma once

#include <fiscalon/c.h>

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

/// How a failure leaves the library: as the last error of the thread. It needs no memory.
namespace fiscalon::c {

inline constexpr std::string_view kSource = "Fiscalon";

/// A failure of this interface itself, told in UTF-8. No handler of a screen swallows it.
class Failure : public std::exception {
 public:
  Failure(int32_t number, std::string_view description) : number_(number), description_(description) {}

  int32_t Number() const { return number_; }
  /// The description.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int32_t number_;
  std::string description_;
};

/// Throws one.
[[noreturn]] void Fail(int32_t number, std::string_view description);

/// Keeps the exception being handled as the thread's last error. What has no source of its own gets that one.
void KeepFailure(std::string_view source) noexcept;

/// The thread's last error; number 0 where there is none.
fiscalon_error LastFailure();

/// Calls a routine of the host, if there is one, and throws FISCALON_ERROR_CALLBACK where that answers that it failed.
/// What the library last refused it while it ran is told along.
template <typename... Parameters, typename... Arguments>
void CallHost(std::string_view name, int (*routine)(Parameters...), Arguments... arguments);

/// How many calls have failed on this thread.
uint64_t Failures();
[[noreturn]] void FailCallback(std::string_view name, int answer, uint64_t failuresBefore);

template <typename... Parameters, typename... Arguments>
void CallHost(std::string_view name, int (*routine)(Parameters...), Arguments... arguments) {
  if (routine == nullptr)
    return;
  const uint64_t failuresBefore = Failures();
  if (const int answer = routine(arguments...); answer != 0)
    FailCallback(name, answer, failuresBefore);
}

}  // namespace fiscalon::c
