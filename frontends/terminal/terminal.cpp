#include "frontends/terminal/terminal.h"

#include <fcntl.h>
#include <langinfo.h>
#include <locale.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace fiscalon::terminal {
namespace {

using std::chrono::milliseconds;

/// How long it takes until what may be part of a key is none: a line between may cut a sequence in two.
constexpr milliseconds kUntilKeyIsOver = milliseconds(50);
/// Until a paste that stops in its middle is over.
constexpr milliseconds kUntilPasteIsOver = milliseconds(2000);
/// For the last words to a terminal that may not listen.
constexpr milliseconds kForLastWords = milliseconds(500);

Charset CharsetOfUser() {
  const locale_t own = ::newlocale(LC_CTYPE_MASK, "", nullptr);
  if (own == nullptr)
    return Charset::Ascii;
  const std::string_view name = ::nl_langinfo_l(CODESET, own);
  const Charset charset = name == "UTF-8"                            ? Charset::Utf8
                          : name == "ISO-8859-1" || name == "CP1252" ? Charset::Latin1
                                                                     : Charset::Ascii;
  ::freelocale(own);
  return charset;
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

/// The same terminal by a way of our own, on which writing never waits. Where there is none, the given one does.
int OwnWayTo(int descriptor) {
  std::array<char, 4096> name = {};
  if (::ttyname_r(descriptor, name.data(), name.size()) != 0)
    return -1;
  return ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
}

/// Keys come one by one and are not echoed; those that end and suspend programs stay the terminal's own.
termios WithSingleKeys(termios modes) {
  modes.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
  modes.c_iflag &= ~static_cast<tcflag_t>(ICRNL | INLCR | IGNCR | ISTRIP | IXON | IXOFF);
  modes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  modes.c_cc[VMIN] = 1;
  modes.c_cc[VTIME] = 0;
  return modes;
}

}  // namespace

TerminalKind TerminalKind::OfUser() {
  using Colours = TerminalDescription::Colours;
  return {.name = Environment("TERM"),
          .colours = Environment("NO_COLOR").empty() ? Colours::Yes : Colours::No,
          .charset = CharsetOfUser()};
}

Terminal::Terminal(int input, int output, const TerminalKind& kind, Signals signals)
    : input_(input),
      output_(output),
      description_(kind.name.empty() ? "dumb" : kind.name, kind.colours),
      writer_(description_, kind.charset),
      decoder_(kind.charset),
      signals_(signals) {}

Terminal::~Terminal() {
  Leave();
}

void Terminal::Enter() {
  if (entered_)
    return;
  if (::tcgetattr(input_, &before_) != 0)
    throw TerminalLost("the terminal is gone");
  if (signals_ == Signals::Watched)
    watch_ = std::make_unique<SignalWatch>();
  ownOutput_ = OwnWayTo(output_);
  const termios modes = WithSingleKeys(before_);
  ::tcsetattr(input_, TCSANOW, &modes);
  entered_ = true;
  pending_.clear();
  writer_.Forget();
  Write(description_.enter);
}

void Terminal::Leave() {
  if (!std::exchange(entered_, false))
    return;
  // What it was still to show, but begun, it need not show any more; in the middle of a sequence it takes anything.
  Write(description_.leave);
  if (!isGone_)
    SendFor(kForLastWords);
  pending_.clear();
  ::tcsetattr(input_, TCSANOW, &before_);
  if (ownOutput_ >= 0)
    ::close(std::exchange(ownOutput_, -1));
  watch_.reset();
}

Size Terminal::Extent() const {
  winsize size = {};
  const bool known = ::ioctl(output_, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0;
  return known ? Size{.width = size.ws_col, .height = size.ws_row} : description_.usualSize;
}

bool Terminal::Show(const Screen& screen) {
  // A picture that is on the way is not overtaken: the next one tells what is different by then.
  const bool free = pending_.empty() || pending_ == description_.enter;
  if (free)
    Write(writer_.Update(screen));
  Send();
  return free;
}

void Terminal::Beep() {
  Write(description_.ring);
  Send();
}

std::optional<Input> Terminal::Next() {
  return decoder_.Next();
}

void Terminal::Receive() {
  std::array<char, 4096> bytes = {};
  const auto count = ::read(input_, bytes.data(), bytes.size());
  if (count > 0) {
    bytesRead_ += static_cast<size_t>(count);
    decoder_.Feed({bytes.data(), static_cast<size_t>(count)});
  } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
    isGone_ = true;
  }
}

void Terminal::Send() {
  // A way that may wait is given little at a time, when it has room.
  constexpr size_t kLittle = 256;
  const bool waits = ownOutput_ < 0;
  const int way = waits ? output_ : ownOutput_;
  while (!pending_.empty()) {
    pollfd room = {.fd = way, .events = POLLOUT, .revents = 0};
    if (waits && ::poll(&room, 1, 0) <= 0)
      return;
    const auto count = ::write(way, pending_.data(), waits ? std::min(pending_.size(), kLittle) : pending_.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
      return;
    if (count < 0) {
      isGone_ = true;
      pending_.clear();
      return;
    }
    bytesWritten_ += static_cast<size_t>(count);
    pending_.erase(0, static_cast<size_t>(count));
  }
}

void Terminal::SendFor(milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  Send();
  while (!pending_.empty()) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - std::chrono::steady_clock::now());
    if (left.count() <= 0)
      return;
    pollfd room = {.fd = ownOutput_ < 0 ? output_ : ownOutput_, .events = POLLOUT, .revents = 0};
    ::poll(&room, 1, static_cast<int>(left.count()));
    Send();
  }
}

void Terminal::WaitForWork() {
  const auto rest = decoder_.Waiting();
  const int most = rest == KeyDecoder::Rest::Key     ? static_cast<int>(kUntilKeyIsOver.count())
                   : rest == KeyDecoder::Rest::Paste ? static_cast<int>(kUntilPasteIsOver.count())
                                                     : -1;
  std::array<pollfd, 3> waiting = {pollfd{.fd = input_, .events = POLLIN, .revents = 0},
                                   pollfd{.fd = watch_ ? watch_->Descriptor() : -1, .events = POLLIN, .revents = 0},
                                   pollfd{.fd = pending_.empty() ? -1
                                                : ownOutput_ < 0 ? output_
                                                                 : ownOutput_,
                                          .events = POLLOUT,
                                          .revents = 0}};
  const int ready = ::poll(waiting.data(), waiting.size(), isGone_ ? 0 : most);
  MindSignals();
  if (ready == 0)
    decoder_.NothingFollows();
  if (waiting[0].revents != 0)
    Receive();
  if (waiting[2].revents != 0)
    Send();
  if (isGone_) {
    // A terminal that hangs up says so by a signal too, which may come later than its end.
    Leave();
    throw TerminalLost("the terminal is gone");
  }
}

void Terminal::Work() {
  pollfd arrived = {.fd = input_, .events = POLLIN, .revents = 0};
  if (::poll(&arrived, 1, 0) > 0)
    Receive();
  Send();
  if (isGone_)
    throw TerminalLost("the terminal is gone");
}

void Terminal::MindSignals() {
  while (const auto signal = watch_ ? watch_->Next() : std::nullopt) {
    if (SignalWatch::Ends(*signal))
      End(*signal);
    if (*signal == SIGTSTP)
      Suspend();
    // After SIGCONT of anybody, such as a shell, the modes may be others. A new size shows by itself.
    if (*signal == SIGCONT) {
      Leave();
      Enter();
    }
  }
}

void Terminal::Suspend() {
  Leave();
  ::raise(SIGTSTP);
  // From here on the user is back.
  Enter();
}

void Terminal::End(int signal) {
  isGone_ = signal == SIGHUP;
  Leave();
  // Where the host has nothing else in mind the program ends here.
  ::raise(signal);
  throw TerminalLost("interrupted");
}

}  // namespace fiscalon::terminal
