#pragma once

#include <chrono>
#include <string>

#include "validation/batch.h"

namespace fiscalon {

/// How far a batch is, in one line of standard error that is written over and over, a few times a second.
/// Shows nothing where standard error is no terminal.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(const BatchProgress& progress);

 private:
  using Clock = std::chrono::steady_clock;

  bool isShown_ = false;
  bool isDirty_ = false;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_ = start_;
};

/// "1,234,567 payments  37 %  8.4 million a second  0:03 left"
std::string ProgressText(const BatchProgress& progress, double seconds);

}  // namespace fiscalon
