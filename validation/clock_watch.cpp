#include "validation/clock_watch.h"

#include <string>

#include "core/module_state.h"
#include "validation/batch_error.h"

namespace fiscalon {

std::optional<int64_t> SetBackBy(int64_t shown, int64_t passed) {
  const int64_t lost = passed - shown;
  const int64_t slack = 1 + passed / 1000;
  return shown < 0 || lost > slack ? std::optional(lost) : std::nullopt;
}

ClockWatch::ClockWatch() : shown_(TheModule().clock->Seconds()) {}

void ClockWatch::RefuseSettingBack() const {
  const std::optional<int64_t> shows = TheModule().clock->Seconds();
  if (!shown_ || !shows)
    return;
  const auto passed = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - began_);
  if (const auto lost = SetBackBy(*shows - *shown_, passed.count()))
    throw BatchError("the clock",
                     "it was set back by " + std::to_string(*lost) + (*lost == 1 ? " second" : " seconds") +
                         " while the batch was judged, and may have had the wrong day; judge it again, or as "
                         "of a day that is named");
}

}  // namespace fiscalon
