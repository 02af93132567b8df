#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "validation/batch.h"

namespace fiscalon {

/// How far a command is.
struct Progress {
  uint64_t count = 0;
  std::string_view things = {};
  /// Bytes that were taken, and of how many, where that is known.
  uint64_t bytes = 0;
  std::optional<uint64_t> totalBytes = {};
};

/// How far a command is, in one line of standard error that is written over and over, a few times a second.
/// Shows nothing where standard error is no terminal.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(const Progress& progress);
  void Show(const BatchProgress& progress) {
    Show(Progress{progress.payments, "payments", progress.bytes, progress.totalBytes});
  }

 private:
  using Clock = std::chrono::steady_clock;

  bool isShown_ = false;
  bool isDirty_ = false;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_ = start_;
};

/// Takes away what a line of progress has left on standard error, for whoever has something to say in its place. Leaves
/// no trace where standard error is no terminal.
void WipeProgress();

/// "1,234,567 payments  37 %  8.4 million a second  0:03 left"
std::string ProgressText(const Progress& progress, double seconds);

}  // namespace fiscalon
