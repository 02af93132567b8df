#include "validation/expectation.h"

#include <algorithm>
#include <cmath>

#include "core/quebec_source_deductions.h"
#include "core/value_routines.h"

namespace fiscalon {

JudgingDay JudgingDayOf(const Date& today) {
  // Earlier years are read with a century of their own, so the quick tests leave them alone.
  constexpr int kFirstQuickYear = 100;
  const int month = today.year * 12 + today.month - 1;
  return {.today = today,
          .firstYear = std::max(today.year - kYearsAround, kFirstQuickYear),
          .lastYear = today.year + kYearsAround,
          .firstMonth = std::max(month - kRemittanceMonthsBack, kFirstQuickYear * 12),
          .lastMonth = month};
}

uint64_t CentsOfDollars(double dollars) {
  constexpr double kFifteenDigits = 1e15;
  const double cents = std::nearbyint(dollars * 100);
  if (!(cents >= 0 && cents < kFifteenDigits) || cents / 100 != dollars)
    return kNoCents;
  return static_cast<uint64_t>(cents);
}

}  // namespace fiscalon
