#include "validation/clock_watch.h"

#include <algorithm>
#include <string>

#include "core/module_state.h"
#include "validation/batch_error.h"

namespace fiscalon {

ClockWatch::ClockWatch() : shown_(TheModule().clock->Seconds()) {}

void ClockWatch::RefuseSettingBack() const {
  const std::optional<int64_t> shows = TheModule().clock->Seconds();
  if (!shown_ || !shows)
    return;
  const auto passed = std::chrono::steady_clock::now() - began_;
  const int64_t seconds = std::max<int64_t>(std::chrono::duration_cast<std::chrono::seconds>(passed).count(), 0);
  const int64_t lost = seconds - (*shows - *shown_);
  // Whole seconds differ by one where two clocks agree, and one that is kept right may run a thousandth too slow.
  const int64_t slack = 1 + seconds / 1000;
  if (*shows >= *shown_ && lost <= slack)
    return;
  throw BatchError("the clock",
                   "it was set back by " + std::to_string(lost) + (lost == 1 ? " second" : " seconds") +
                       " while the batch was judged, and may have had the wrong day; judge it again, or as "
                       "of a day that is named");
}

}  // namespace fiscalon
