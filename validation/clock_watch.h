#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace fiscalon {

/// By how many seconds a clock was set back that shows so many more than it did, after so many that have passed.
/// Nothing where it was not: whole seconds differ by one where two clocks agree, and one that is kept right may run a
/// thousandth too slow.
std::optional<int64_t> SetBackBy(int64_t shown, int64_t passed);

/// Finds out whether the module's clock was set back while this lives. A batch is judged as of the day when it began; a
/// clock that is set right meanwhile was wrong then, by seconds or by days.
class ClockWatch {
 public:
  ClockWatch();

  /// Throws `BatchError` where the clock was set back. One that is slowed down to be kept right was not, nor one that
  /// stands still, nor the user's time at the end of summer.
  void RefuseSettingBack() const;

 private:
  const std::optional<int64_t> shown_;
  const std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
};

}  // namespace fiscalon
