// A system whose clock is set back by an hour whenever somebody looks at it: loaded in front of the C library.

#include <time.h>

extern "C" time_t time(time_t* told) noexcept {
  static time_t lost = 0;
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const time_t shown = now.tv_sec - lost;
  lost += 3600;
  if (told != nullptr)
    *told = shown;
  return shown;
}
