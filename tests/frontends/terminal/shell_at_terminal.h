#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

#include "frontends/terminal/virtual_terminal.h"

namespace fiscalon::terminal {

/// A program of one's own at a terminal, started by a shell that knows jobs: it can be interrupted, suspended and gone
/// on with as people do. What it comes to is waited for, never slept for.
class ShellAtTerminal {
 public:
  /// What a job comes to that an exception ends.
  static constexpr int kThrew = 99;
  static constexpr Size kUsual = {.width = 80, .height = 24};

  explicit ShellAtTerminal(const std::function<int()>& program, Size size = kUsual) : terminal(size) {
    ::tcgetattr(terminal.UsersSide(), &before_);
    EXPECT_EQ(::pipe2(told_.data(), O_CLOEXEC), 0);
    EXPECT_EQ(::pipe2(asked_.data(), O_CLOEXEC), 0);
    shell_ = ::fork();
    if (shell_ == 0)
      RunShell(program);
    ::close(told_[1]);
    ::close(asked_[0]);
    EXPECT_EQ(::read(told_[0], &job, sizeof job), static_cast<ssize_t>(sizeof job));
    terminal.LetGoOfProgramsSide();
  }
  ~ShellAtTerminal() {
    ::kill(job, SIGKILL);
    ::kill(shell_, SIGKILL);
    ::waitpid(shell_, nullptr, 0);
    ::close(told_[0]);
    ::close(asked_[1]);
  }
  ShellAtTerminal(const ShellAtTerminal&) = delete;
  ShellAtTerminal& operator=(const ShellAtTerminal&) = delete;

  VirtualTerminal terminal;
  pid_t job = 0;

  std::string Row(int y) const { return terminal.Seen().Text({0, y}, terminal.Seen().Extent().width); }
  bool Shows(std::string_view text) const {
    for (int y = 0; y < terminal.Seen().Extent().height; ++y)
      if (Row(y).find(text) != std::string::npos)
        return true;
    return false;
  }

  /// Waits until something is so, while the terminal takes what it is sent. False where it never is.
  bool Until(const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (true) {
      const bool goesOn = terminal.Receive();
      if (isSo())
        return true;
      if (std::chrono::steady_clock::now() > end)
        return false;
      std::array<pollfd, 2> waiting = {pollfd{.fd = goesOn ? terminal.UsersSide() : -1, .events = POLLIN, .revents = 0},
                                       pollfd{.fd = told_[0], .events = POLLIN, .revents = 0}};
      ::poll(waiting.data(), waiting.size(), 10);
    }
  }
  bool UntilShows(std::string_view text) {
    return Until([&] { return Shows(text); });
  }

  void Type(std::string_view bytes) {
    while (!bytes.empty()) {
      terminal.Receive();
      bytes.remove_prefix(terminal.Send(bytes));
    }
  }

  /// How the job has changed, as `waitpid` has it.
  int NextStatus(bool listens = true) {
    int status = -1;
    constexpr int kLongest = 20'000;
    pollfd waiting = {.fd = told_[0], .events = POLLIN, .revents = 0};
    const bool came = listens ? Until([&] { return ::poll(&waiting, 1, 0) > 0; }) : ::poll(&waiting, 1, kLongest) > 0;
    EXPECT_TRUE(came);
    if (!came)
      return -1;
    if (::read(told_[0], &status, sizeof status) != static_cast<ssize_t>(sizeof status))
      return -1;
    if (listens)
      terminal.Receive();
    return status;
  }
  /// The job goes on in the foreground.
  void GoOn() { EXPECT_EQ(::write(asked_[1], "g", 1), 1); }

  /// The modes of the terminal are those of before, and so is its screen.
  bool IsGivenBack() {
    termios now = {};
    ::tcgetattr(terminal.UsersSide(), &now);
    return now.c_lflag == before_.c_lflag && now.c_iflag == before_.c_iflag && now.c_oflag == before_.c_oflag &&
           std::memcmp(now.c_cc, before_.c_cc, sizeof now.c_cc) == 0 && !terminal.IsOnOtherScreen() &&
           terminal.Seen().Cursor().has_value();
  }

 private:
  [[noreturn]] void RunShell(const std::function<int()>& program) const {
    ::setsid();
    ::close(terminal.UsersSide());
    ::ioctl(terminal.ProgramsSide(), TIOCSCTTY, 0);
    ::signal(SIGTTOU, SIG_IGN);
    ::signal(SIGHUP, SIG_IGN);
    const pid_t child = ::fork();
    if (child == 0)
      RunJob(program);
    ::setpgid(child, child);
    ::tcsetpgrp(terminal.ProgramsSide(), child);
    Tell(&child, sizeof child);
    int status = 0;
    while (::waitpid(child, &status, WUNTRACED) == child) {
      const bool isStopped = WIFSTOPPED(status);
      if (isStopped)
        ::tcsetpgrp(terminal.ProgramsSide(), ::getpid());
      Tell(&status, sizeof status);
      if (!isStopped)
        break;
      char order = 0;
      if (::read(asked_[0], &order, 1) != 1)
        break;
      ::tcsetpgrp(terminal.ProgramsSide(), child);
      ::kill(-child, SIGCONT);
    }
    ::_exit(0);
  }

  void Tell(const void* what, size_t size) const { [[maybe_unused]] const auto told = ::write(told_[1], what, size); }

  [[noreturn]] void RunJob(const std::function<int()>& program) const {
    ::setpgid(0, 0);
    ::tcsetpgrp(terminal.ProgramsSide(), ::getpid());
    for (const int signal : {SIGTTOU, SIGHUP, SIGINT, SIGTERM, SIGTSTP}) ::signal(signal, SIG_DFL);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(terminal.ProgramsSide(), standard);
    ::close(terminal.ProgramsSide());
    ::setenv("TERM", "xterm-256color", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::unsetenv("NO_COLOR");
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    // Nothing of the test goes on in this process.
    try {
      ::_exit(program());
    } catch (...) {
      ::_exit(kThrew);
    }
  }

  termios before_ = {};
  std::array<int, 2> told_ = {-1, -1};
  std::array<int, 2> asked_ = {-1, -1};
  pid_t shell_ = 0;
};

}  // namespace fiscalon::terminal
