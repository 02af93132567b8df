#include "core/platform/clock.h"

#include <windows.h>

namespace fiscalon {

DateTime SystemClock::Now() const {
  SYSTEMTIME local = {};
  ::GetLocalTime(&local);
  return {.date = {local.wYear, local.wMonth, local.wDay},
          .hour = local.wHour,
          .minute = local.wMinute,
          .second = local.wSecond};
}

}  // namespace fiscalon
