#include "tools/fiscalon/files/interrupt_watch.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <future>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

#include "tools/fiscalon/files/terminal.h"

namespace fiscalon {
namespace {

/// The signal that was noted.
volatile std::sig_atomic_t interrupted = 0;

/// Set while steps are under way that are done together or not at all, and for good by who takes the fleeting files
/// away: in the middle of such steps one of these may be the only one that a user has left.
std::atomic_flag stepsOrRemoval;

/// A pipe that an interrupt can be read from, so that who waits for something else wakes up. It is made once.
std::array<int, 2> wake = {-1, -1};

/// The names of the files to take away, where a signal handler finds them. One that is too long for its place is no
/// name that the system takes.
std::array<std::array<char, 4096>, 8> fleetingFiles = {};

/// The mapped files and their names, for the same reason.
struct MappedInput {
  std::array<char, 4096> file = {};
  std::string_view bytes = {};
};
std::array<MappedInput, 2> mappedInputs = {};

void RemoveFleetingFiles() {
  for (const auto& file : fleetingFiles) {
    if (file[0] != '\0')
      ::unlink(file.data());
  }
}

void NoteInterrupt(int signal) {
  const int reason = errno;
  if (interrupted == 0) {
    interrupted = signal;
    [[maybe_unused]] const auto written = ::write(wake[1], "", 1);
  } else {
    RemoveFleetingFiles();
    ::signal(signal, SIG_DFL);
    ::raise(signal);
  }
  errno = reason;
}

/// A signal handler's way to complain.
void Say(std::string_view text) {
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text.data(), text.size());
}

bool Holds(std::string_view bytes, const void* address) {
  const auto start = reinterpret_cast<std::uintptr_t>(bytes.data());
  const auto at = reinterpret_cast<std::uintptr_t>(address);
  return at >= start && at - start < bytes.size();
}

void EndForShrunkenFile(int, siginfo_t* fault, void*) {
  RemoveFleetingFiles();
  if (ComplaintsAreSeen())
    Say(kWipedLine);
  Say("fiscalon: ");
  for (const MappedInput& input : mappedInputs) {
    if (Holds(input.bytes, fault->si_addr))
      Say(input.file.data());
  }
  Say(": the file became shorter while it was read\n");
  ::_exit(static_cast<int>(ExitStatus::Unusable));
}

/// The ways to end a program that a person, a terminal or a limit of time has.
constexpr std::array kInterrupts = {SIGINT, SIGQUIT, SIGTERM, SIGHUP, SIGXCPU};

/// Has an interrupt noted, unless whoever started the program wanted it ignored, as `nohup` does.
void Watch(int signal) {
  struct sigaction action = {};
  ::sigaction(signal, nullptr, &action);
  if (action.sa_handler == SIG_IGN)
    return;
  action = {};
  action.sa_handler = NoteInterrupt;
  ::sigaction(signal, &action, nullptr);
}

void Unwatch(int signal) {
  struct sigaction action = {};
  ::sigaction(signal, nullptr, &action);
  if (action.sa_handler == NoteInterrupt)
    ::signal(signal, SIG_DFL);
}

sigset_t Interrupts() {
  sigset_t all;
  sigemptyset(&all);
  for (const int signal : kInterrupts) sigaddset(&all, signal);
  return all;
}

/// What is ready is ready, interrupted or not: what was read before an interrupt can still be written to a file.
bool WaitFor(int descriptor, short event) {
  std::array<pollfd, 2> waiting = {pollfd{.fd = descriptor, .events = event, .revents = 0},
                                   pollfd{.fd = wake[0], .events = POLLIN, .revents = 0}};
  while (::poll(waiting.data(), waiting.size(), -1) < 0) {
    // The pipe has what an interrupt leaves, so another look finds it.
    if (errno != EINTR)
      return true;
  }
  return waiting[0].revents != 0;
}

}  // namespace

bool IsInterrupted() {
  return interrupted != 0;
}

void EndAsInterrupted() {
  if (interrupted == 0)
    return;
  ::signal(interrupted, SIG_DFL);
  ::raise(interrupted);
}

void EndAtOnce(ExitStatus status) {
  // Taking a file away may be one more thing that never ends.
  const auto removed = std::make_shared<std::promise<void>>();
  try {
    std::thread([removed] {
      if (!stepsOrRemoval.test_and_set())
        RemoveFleetingFiles();
      removed->set_value();
    }).detach();
    removed->get_future().wait_for(std::chrono::seconds(1));
  } catch (const std::system_error&) {
    // Without another thread nobody could end what never ends: the files stay.
  }
  ::_exit(static_cast<int>(status));
}

bool WaitToRead(int descriptor) {
  return WaitFor(descriptor, POLLIN);
}

bool WaitToWrite(int descriptor) {
  return WaitFor(descriptor, POLLOUT);
}

HeldOff::HeldOff() {
  const sigset_t all = Interrupts();
  ::sigprocmask(SIG_BLOCK, &all, nullptr);
  // Who waits here waits for the end of the program.
  while (stepsOrRemoval.test_and_set()) stepsOrRemoval.wait(true);
}

HeldOff::~HeldOff() {
  stepsOrRemoval.clear();
  const sigset_t all = Interrupts();
  ::sigprocmask(SIG_UNBLOCK, &all, nullptr);
}

void InterruptWatch::Begin() {
  if (wake[0] == -1 && ::pipe2(wake.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    wake = {-1, -1};
  for (const int signal : kInterrupts) Watch(signal);
  struct sigaction action = {};
  action.sa_flags = SA_SIGINFO;
  action.sa_sigaction = EndForShrunkenFile;
  ::sigaction(SIGBUS, &action, nullptr);
}

void InterruptWatch::End() {
  // Once interrupted the program is on its way out, and a second interrupt goes on counting as one.
  if (interrupted == 0)
    for (const int signal : kInterrupts) Unwatch(signal);
  ::signal(SIGBUS, SIG_DFL);
  mappedInputs = {};
}

void InterruptWatch::Mapped(std::string_view file, std::string_view bytes) {
  MappedInput& place = mappedInputs[mappedInputs[0].bytes.empty() ? 0 : 1];
  place = {.bytes = bytes};
  std::copy_n(file.begin(), std::min(file.size(), place.file.size() - 1), place.file.begin());
}

void FleetingFile::Become(std::string path) noexcept {
  path_ = std::move(path);
  const auto free =
      std::find_if(fleetingFiles.begin(), fleetingFiles.end(), [](const auto& file) { return file[0] == '\0'; });
  if (free == fleetingFiles.end() || path_.size() >= free->size())
    return;
  *std::copy(path_.begin(), path_.end(), free->begin()) = '\0';
  noted_ = free->data();
}

FleetingFile::~FleetingFile() {
  if (!path_.empty())
    ::unlink(path_.c_str());
  Keep();
}

void FleetingFile::Keep() {
  path_.clear();
  if (noted_ != nullptr)
    *noted_ = '\0';
  noted_ = nullptr;
}

}  // namespace fiscalon
