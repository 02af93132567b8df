#pragma once

#include <cstdint>
#include <ctime>
#include <optional>

#include "core/platform/date.h"

namespace fiscalon {

/// Where today and now come from. Nothing else in the library reads the system's time.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The moment in the user's time zone.
  virtual DateTime Now() const = 0;

  /// Seconds since a fixed moment, whatever the time zone, to find out whether the clock was set back. Nothing for one
  /// that does not run.
  virtual std::optional<int64_t> Seconds() const { return std::nullopt; }

  Date Today() const { return Now().date; }
};

/// The system's clock.
class SystemClock : public Clock {
 public:
  DateTime Now() const override;
  std::optional<int64_t> Seconds() const override { return std::time(nullptr); }
};

/// A clock that stands still, for tests, scenarios and runs that must be repeatable.
class FixedClock : public Clock {
 public:
  explicit FixedClock(const DateTime& now) : now_(now) {}

  DateTime Now() const override { return now_; }

 private:
  DateTime now_;
};

}  // namespace fiscalon
