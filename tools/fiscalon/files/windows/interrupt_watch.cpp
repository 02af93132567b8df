#include "tools/fiscalon/files/interrupt_watch.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <utility>

#include "tools/fiscalon/files/file_places.h"

namespace fiscalon {
namespace {

std::atomic<bool> interrupted = false;

/// Runs on a thread of its own. Whoever presses Ctrl+C or Ctrl+Break waits for the program to end in order; where the
/// console goes, the program goes when this returns, so it doesn't: the system allows some seconds.
BOOL WINAPI NoteInterrupt(DWORD event) {
  // A second one is the system's, which ends the program at once.
  if (interrupted.exchange(true))
    return FALSE;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
    ::Sleep(INFINITE);
  return TRUE;
}

}  // namespace

bool IsInterrupted() {
  return interrupted;
}

/// The status tells it here.
void EndAsInterrupted() {}

/// Fleeting files stay until the next run that finds them.
void EndAtOnce(ExitStatus status) {
  ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
  std::abort();
}

bool WaitToRead(int /*descriptor*/) {
  return true;
}

bool WaitToWrite(int /*descriptor*/) {
  return true;
}

/// Nothing can be held off from the thread that hears of interrupts.
HeldOff::HeldOff() = default;
HeldOff::~HeldOff() = default;

void InterruptWatch::Begin() {
  ::SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

void InterruptWatch::End() {
  ::SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

/// The system lets no mapped file shrink.
void InterruptWatch::Mapped(std::string_view /*file*/, std::string_view /*bytes*/) {}

void FleetingFile::Become(std::string path) noexcept {
  path_ = std::move(path);
}

FleetingFile::~FleetingFile() {
  if (!path_.empty())
    Remove(path_);
}

void FleetingFile::Keep() {
  path_.clear();
}

}  // namespace fiscalon
