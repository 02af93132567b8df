// A system on which the folder "silent" lies on a server that does not answer: loaded in front of the C library. A
// server that does answer is asked, and that is told to the pipe "asked".

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <string_view>

extern "C" int statx(int folder, const char* path, int flags, unsigned wanted, struct statx* seen) noexcept {
  if (std::string_view(path).starts_with("silent/")) {
    for (;;) ::pause();
  }
  if (const int told = ::open("asked", O_WRONLY | O_NONBLOCK); told >= 0) {
    [[maybe_unused]] const auto written = ::write(told, path, std::string_view(path).size());
    ::close(told);
  }
  return static_cast<int>(::syscall(SYS_statx, folder, path, flags, wanted, seen));
}
