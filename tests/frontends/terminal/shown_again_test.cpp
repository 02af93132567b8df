#include "tests/support/shown_again.h"

#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "frontends/terminal/terminal_toolkit.h"
#include "frontends/terminal/virtual_terminal.h"
#include "tests/support/held_on_posix.h"

namespace fiscalon::terminal {
namespace {

/// A terminal with somebody at it who closes every form.
class ClosingTerminal {
 public:
  ClosingTerminal() : looks_([this] { Look(); }) {}
  ~ClosingTerminal() {
    ends_ = true;
    looks_.join();
  }
  ClosingTerminal(const ClosingTerminal&) = delete;
  ClosingTerminal& operator=(const ClosingTerminal&) = delete;

  int ProgramsSide() const { return terminal_.ProgramsSide(); }
  /// What was there before the form is there again.
  void WaitUntilGivenBack() const { showsForm_.wait(true); }

 private:
  void Look() {
    while (!ends_) {
      pollfd waiting = {.fd = terminal_.UsersSide(), .events = POLLIN, .revents = 0};
      if (::poll(&waiting, 1, 10) == 0)
        continue;
      terminal_.Receive();
      const bool shows = terminal_.IsOnOtherScreen();
      if (showsForm_.exchange(shows) == shows)
        continue;
      showsForm_.notify_all();
      if (shows)
        terminal_.Send(kControlQ);
    }
  }

  static constexpr std::string_view kControlQ = "\x11";

  VirtualTerminal terminal_{{.width = 80, .height = 24}};
  std::atomic<bool> ends_ = false;
  std::atomic<bool> showsForm_ = false;
  std::thread looks_;
};

/// Standard input and output are those of a terminal while it stands; what tests say is said where it was.
class AtTerminal {
 public:
  explicit AtTerminal(const ClosingTerminal& terminal) {
    for (size_t i = 0; i < kept_.size(); ++i) {
      kept_[i] = ::dup(static_cast<int>(i));
      ::dup2(terminal.ProgramsSide(), static_cast<int>(i));
    }
  }
  ~AtTerminal() {
    for (size_t i = 0; i < kept_.size(); ++i) {
      ::dup2(kept_[i], static_cast<int>(i));
      ::close(kept_[i]);
    }
  }
  AtTerminal(const AtTerminal&) = delete;
  AtTerminal& operator=(const AtTerminal&) = delete;

 private:
  std::array<int, 2> kept_ = {};
};

TEST(TerminalToolkit, HoldsNoMoreThanBeforeWhenFormsAreShownAgain) {
  ::setenv("TERM", "xterm-256color", 1);
  const ClosingTerminal terminal;
  const auto toolkit = [&] {
    const AtTerminal at(terminal);
    return std::make_unique<TerminalToolkit>();
  }();
  UseToolkit(toolkit.get());
  const auto show = [&](const GoodSession& session, Levyra& host) {
    const AtTerminal at(terminal);
    const bool confirmed = host.ShowLevyraScreen(session.code);
    terminal.WaitUntilGivenBack();
    return confirmed;
  };
  ExpectToHoldNoMoreWhenShownAgain(show, HeldNow, AllowedMore());
  UseToolkit(nullptr);
}

}  // namespace
}  // namespace fiscalon::terminal
