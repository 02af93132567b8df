#include "tools/fiscalon/report_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <utility>

#include "tools/fiscalon/context.h"

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace fiscalon {
namespace {

volatile std::sig_atomic_t interrupted = 0;

/// The name of the file to take away, where a signal handler finds it.
std::array<char, 4096> partialFile = {};

/// The mapped files and their names, for the same reason.
struct MappedInput {
  std::string file = {};
  std::string_view bytes = {};
};
std::array<MappedInput, 2> mappedInputs = {};

#if __has_include(<unistd.h>)
void RunAndNote(int) {
  interrupted = 1;
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
  if (partialFile[0] != '\0')
    ::unlink(partialFile.data());
  Say("fiscalon: ");
  for (const MappedInput& input : mappedInputs) {
    if (Holds(input.bytes, fault->si_addr))
      Say(input.file);
  }
  Say(": the file became shorter while it was read\n");
  ::_exit(static_cast<int>(ExitStatus::Unusable));
}

constexpr std::array kInterrupts = {SIGINT, SIGTERM, SIGHUP};

/// Has an interrupt noted, unless whoever started the program wanted it ignored, as `nohup` does.
void NoteInterrupt(int signal) {
  struct sigaction action = {};
  ::sigaction(signal, nullptr, &action);
  if (action.sa_handler == SIG_IGN)
    return;
  action = {};
  action.sa_handler = RunAndNote;
  ::sigaction(signal, &action, nullptr);
}

void NoteNoInterrupt(int signal) {
  struct sigaction action = {};
  ::sigaction(signal, nullptr, &action);
  if (action.sa_handler == RunAndNote)
    ::signal(signal, SIG_DFL);
}
#endif

}  // namespace

bool IsInterrupted() {
  return interrupted != 0;
}

InterruptWatch::InterruptWatch() {
#if __has_include(<unistd.h>)
  for (const int signal : kInterrupts) NoteInterrupt(signal);
  struct sigaction action = {};
  action.sa_flags = SA_SIGINFO;
  action.sa_sigaction = EndForShrunkenFile;
  ::sigaction(SIGBUS, &action, nullptr);
#endif
}

InterruptWatch::~InterruptWatch() {
#if __has_include(<unistd.h>)
  for (const int signal : kInterrupts) NoteNoInterrupt(signal);
  ::signal(SIGBUS, SIG_DFL);
#endif
  mappedInputs = {};
}

void InterruptWatch::Mapped(std::string file, std::string_view bytes) {
  MappedInput& place = mappedInputs[mappedInputs[0].bytes.empty() ? 0 : 1];
  place = {std::move(file), bytes};
}

ReportFile::ReportFile(std::string path) : path_(std::move(path)) {
  if (path_ == "-")
    return;
  // A device or a pipe stays what it is, and is written as it comes. A link stays one too: the file that it leads to
  // is replaced.
  std::error_code ignored;
  const auto kind = std::filesystem::status(path_, ignored).type();
  const bool isPlace = kind == std::filesystem::file_type::not_found || kind == std::filesystem::file_type::regular;
  if (isPlace && std::filesystem::is_symlink(path_, ignored))
    path_ = std::filesystem::weakly_canonical(path_, ignored).string();
  partialPath_ = isPlace ? path_ + ".partial" : std::string();
  file_ = std::fopen(isPlace ? partialPath_.c_str() : path_.c_str(), "wb");
  if (file_ == nullptr)
    Fail();
  if (partialPath_.size() < partialFile.size())
    *std::copy(partialPath_.begin(), partialPath_.end(), partialFile.begin()) = '\0';
}

ReportFile::~ReportFile() {
  if (file_ == nullptr)
    return;
  std::fclose(file_);
  if (!partialPath_.empty())
    std::remove(partialPath_.c_str());
  partialFile[0] = '\0';
}

void ReportFile::Fail() {
  const int reason = errno;
  throw CommandError(path_ + " can't be written: " + std::strerror(reason));
}

void ReportFile::Write(std::string_view bytes) {
  if (file_ == nullptr)
    std::cout << bytes;
  else if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
    Fail();
}

void ReportFile::Commit() {
  if (file_ == nullptr) {
    std::cout.flush();
    return;
  }
  if (std::fflush(file_) != 0)
    Fail();
  std::FILE* const file = std::exchange(file_, nullptr);
  partialFile[0] = '\0';
  const bool isWhole = std::fclose(file) == 0;
  if (partialPath_.empty() ? isWhole : isWhole && std::rename(partialPath_.c_str(), path_.c_str()) == 0)
    return;
  const int reason = errno;
  if (!partialPath_.empty())
    std::remove(partialPath_.c_str());
  errno = reason;
  Fail();
}

}  // namespace fiscalon
