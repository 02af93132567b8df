#include "tools/fiscalon/files/interrupt_watch.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

namespace {

/// What comes of taking a file away.
void (*onRemoval)() = nullptr;

}  // namespace

/// Stands in front of the C library's.
extern "C" int unlink(const char* /*path*/) noexcept {
  onRemoval();
  return 0;
}

namespace fiscalon {
namespace {

std::atomic<bool> isBeingRemoved = false;

/// What a program ends with that has a fleeting file.
int EndOf(void (*program)()) {
  const pid_t child = ::fork();
  if (child == 0) {
    FleetingFile file;
    file.Become("fleeting");
    program();
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WEXITSTATUS(status);
}

TEST(EndAtOnce, TakesFleetingFilesAway) {
  onRemoval = [] { ::_exit(3); };
  EXPECT_EQ(EndOf([] { EndAtOnce(ExitStatus::Stalled); }), 3);
}

TEST(EndAtOnce, LeavesThemInTheMiddleOfStepsThatAreDoneTogether) {
  onRemoval = [] { ::_exit(3); };
  EXPECT_EQ(EndOf([] {
              const HeldOff together;
              EndAtOnce(ExitStatus::Stalled);
            }),
            75);
}

TEST(EndAtOnce, LetsNobodyBeginSuchStepsAsItTakesThemAway) {
  onRemoval = [] {
    isBeingRemoved = true;
    for (;;) ::pause();
  };
  EXPECT_EQ(EndOf([] {
              std::thread([] { EndAtOnce(ExitStatus::Stalled); }).detach();
              while (!isBeingRemoved) std::this_thread::yield();
              const HeldOff together;
              ::_exit(3);
            }),
            75);
}

}  // namespace
}  // namespace fiscalon
