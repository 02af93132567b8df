#pragma once

#include <cstdint>
#include <string_view>

#include "core/platform/date.h"

namespace fiscalon {

/// What a judgement writes to the two logs on its way.
enum class Logging {
  None,     ///< nothing: a batch of a million payments keeps a report instead
  Errors,   ///< run-time errors of the rules, in the error log
  Entries,  ///< and the entry of each routine, in the play-by-play log
};

/// A day, and the dates that payments judged on it may hold.
struct JudgingDay {
  Date today = {};  ///< the day itself

  // Remitting periods that end in these years may be right.
  int firstYear = 0;  ///< the first of those years
  int lastYear = 0;   ///< the last of them
  // Remittance periods of Revenue Quebec, as months counted from year 0, that may be right.
  int firstMonth = 0;  ///< the first of those months
  int lastMonth = 0;   ///< the last of them
};

/// What may be right on a day.
JudgingDay JudgingDayOf(const Date& today);

/// An amount that is no whole number of cents.
inline constexpr uint64_t kNoCents = UINT64_MAX;

/// What a payment's records are held against.
struct Expectation {
  /// The amount to be paid, in dollars, as `LeadingNumber` reads `PaymentAmount`.
  double paymentAmount = 0;
  /// The whole cents whose hundredth part, as a 64-bit float, is just that; `kNoCents` where there are none.
  uint64_t paymentCents = kNoCents;
  std::string_view billerCode = {};  ///< such as "001052"
  const JudgingDay* day = nullptr;   ///< the day of the judgement; not owned
  Logging logging = Logging::None;   ///< what goes to the logs
};

/// The whole cents whose hundredth part an amount of dollars is, or `kNoCents`.
uint64_t CentsOfDollars(double dollars);

}  // namespace fiscalon
