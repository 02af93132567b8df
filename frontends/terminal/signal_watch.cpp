#include "frontends/terminal/signal_watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace fiscalon::terminal {
namespace {

/// What a signal handler may write to, and whoever waits reads from: made once.
std::array<int, 2>& NotesPipe() {
  static std::array<int, 2> pipe = [] {
    std::array<int, 2> made = {-1, -1};
    return ::pipe2(made.data(), O_CLOEXEC | O_NONBLOCK) == 0 ? made : std::array<int, 2>{-1, -1};
  }();
  return pipe;
}

/// The pipe's end, where a handler finds it.
volatile std::sig_atomic_t notes = -1;

void Note(int signal) {
  const int reason = errno;
  const auto note = static_cast<unsigned char>(signal);
  [[maybe_unused]] const auto written = ::write(notes, &note, 1);
  errno = reason;
}

}  // namespace

SignalWatch::SignalWatch() {
  notes = NotesPipe()[1];
  for (size_t i = 0; i < kWatched.size(); ++i) {
    ::sigaction(kWatched[i], nullptr, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN)
      continue;
    // Calls that wait are broken off: nothing waits on for a terminal that is gone.
    struct sigaction action = {};
    action.sa_handler = Note;
    ::sigaction(kWatched[i], &action, nullptr);
  }
}

SignalWatch::~SignalWatch() {
  for (size_t i = 0; i < kWatched.size(); ++i) ::sigaction(kWatched[i], &before_[i], nullptr);
}

int SignalWatch::Descriptor() const {
  return NotesPipe()[0];
}

std::optional<int> SignalWatch::Next() const {
  unsigned char note = 0;
  return ::read(Descriptor(), &note, 1) == 1 ? std::optional<int>(note) : std::nullopt;
}

bool SignalWatch::Ends(int signal) {
  return signal == SIGINT || signal == SIGQUIT || signal == SIGTERM || signal == SIGHUP;
}

}  // namespace fiscalon::terminal
