#pragma once

#include <string>
#include <string_view>

#include "tools/fiscalon/files/program_end.h"

namespace fiscalon {

/// Whether the user has interrupted the program, as long as it watches out for that.
bool IsInterrupted();

/// Ends the program by the interrupt that was noted, if one was: a shell's loop ends with a program that a signal has
/// ended, and goes on with one that tidies up and gives a status. Systems without such an end leave that to the status.
void EndAsInterrupted();

/// Ends the program although other threads of it may never come back. Fleeting files are taken away where their folder
/// answers.
[[noreturn]] void EndAtOnce(ExitStatus status);

// Wait until a descriptor can be read from or written to, without missing an interrupt. False where one comes first.
bool WaitToRead(int descriptor);
bool WaitToWrite(int descriptor);

/// Watches out for interrupts while it lives: the first one is noted, so that the program can end in order; a second
/// one ends it at once, whatever it is at, and takes its fleeting files away. A mapped file that shrinks ends the
/// program with a message that names it. Watches may live within each other; the outermost counts.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// Where the bytes of a mapped file lie. At most two files can be watched.
  void Mapped(std::string_view file, std::string_view bytes);

 private:
  void Begin();
  void End();
};

/// Holds a second interrupt off while it lives: for steps that are done together or not at all. Nor does `EndAtOnce`
/// take a file away in the middle of them; where it has begun to, these don't begin. None lives within another.
class HeldOff {
 public:
  HeldOff();
  ~HeldOff();
  HeldOff(const HeldOff&) = delete;
  HeldOff& operator=(const HeldOff&) = delete;
};

/// A file that is to be taken away whatever ends the program: by whoever made it or, for a signal that no program
/// outlives, by the handler of that signal.
class FleetingFile {
 public:
  /// None yet.
  FleetingFile() = default;
  ~FleetingFile();
  FleetingFile(const FleetingFile&) = delete;
  FleetingFile& operator=(const FleetingFile&) = delete;

  /// The file that it is, now that it has been made. Nothing can fail here that would leave it behind.
  void Become(std::string path) noexcept;
  const std::string& Path() const { return path_; }
  /// It has another name now, and stays.
  void Keep();

 private:
  std::string path_;
  char* noted_ = nullptr;
};

}  // namespace fiscalon
