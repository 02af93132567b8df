#include "tools/fiscalon/report_file.h"

#include <array>
#include <cerrno>
#include <csignal>
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

#if __has_include(<unistd.h>)
void RunAndNote(int) {
  interrupted = 1;
}

void EndForShrunkenFile(int) {
  constexpr std::string_view kMessage = "fiscalon: an input file became shorter while it was read\n";
  if (partialFile[0] != '\0')
    ::unlink(partialFile.data());
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, kMessage.data(), kMessage.size());
  ::_exit(static_cast<int>(ExitStatus::Unusable));
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  ::sigaction(signal, &action, nullptr);
}
#endif

}  // namespace

bool IsInterrupted() {
  return interrupted != 0;
}

InterruptWatch::InterruptWatch() {
#if __has_include(<unistd.h>)
  Handle(SIGINT, RunAndNote);
  Handle(SIGTERM, RunAndNote);
  Handle(SIGBUS, EndForShrunkenFile);
#endif
}

InterruptWatch::~InterruptWatch() {
#if __has_include(<unistd.h>)
  for (const int signal : {SIGINT, SIGTERM, SIGBUS}) Handle(signal, SIG_DFL);
#endif
}

ReportFile::ReportFile(std::string path) : path_(std::move(path)) {
  if (path_ == "-")
    return;
  // A device or a pipe stays what it is, and is written as it comes.
  std::error_code ignored;
  const auto kind = std::filesystem::status(path_, ignored).type();
  const bool isPlace = kind == std::filesystem::file_type::not_found || kind == std::filesystem::file_type::regular;
  partialPath_ = isPlace ? path_ + ".partial" : std::string();
  file_ = std::fopen(isPlace ? partialPath_.c_str() : path_.c_str(), "wb");
  if (file_ == nullptr)
    Fail();
  if (partialPath_.size() < partialFile.size())
    std::strcpy(partialFile.data(), partialPath_.c_str());
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
