#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace fiscalon {

/// A file that is either whole or not there: it is written beside its place under another name, and moves
/// there when it is done. Whatever ends the program before takes it away, a signal too. Failures throw
/// `CommandError`.
class ReportFile {
 public:
  /// "-" is standard output.
  explicit ReportFile(std::string path);
  ~ReportFile();
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;

  void Write(std::string_view bytes);
  /// Moves the file to its place.
  void Commit();

 private:
  [[noreturn]] void Fail();

  std::string path_;
  std::string partialPath_;
  std::FILE* file_ = nullptr;
};

/// Whether the user has interrupted the program, as long as it watches out for that.
bool IsInterrupted();

/// Watches out for interrupts while it lives: they are noted, so that the program can end in order. A mapped
/// file that shrinks ends the program with a message that names it.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// Where the bytes of a mapped file lie. At most two files can be watched.
  void Mapped(std::string file, std::string_view bytes);
};

}  // namespace fiscalon
