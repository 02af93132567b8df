#include "core/platform/clock.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace fiscalon {
namespace {

DateTime LocalTime() {
  SYSTEMTIME utc = {};
  SYSTEMTIME local = {};
  ::GetSystemTime(&utc);
  ::SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  return {{local.wYear, local.wMonth, local.wDay}, local.wHour, local.wMinute, local.wSecond};
}

TEST(SystemClock, TellsTheTimeOfTheTimeZone) {
  const DateTime before = LocalTime();
  const DateTime now = SystemClock().Now();
  const DateTime after = LocalTime();
  EXPECT_LE(before, now);
  EXPECT_LE(now, after);
}

}  // namespace
}  // namespace fiscalon
