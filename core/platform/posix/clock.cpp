#include "core/platform/clock.h"

#include <time.h>

namespace fiscalon {

DateTime SystemClock::Now() const {
  const time_t now = ::time(nullptr);
  tm local = {};
  ::localtime_r(&now, &local);
  return {.date = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
          .hour = local.tm_hour,
          .minute = local.tm_min,
          .second = local.tm_sec};
}

}  // namespace fiscalon
