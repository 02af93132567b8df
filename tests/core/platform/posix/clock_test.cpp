#include "core/platform/clock.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

namespace fiscalon {
namespace {

/// Another time zone for as long as the object lives.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    ::setenv("TZ", name, 1);
    ::tzset();
  }
  ~TimeZone() {
    ::unsetenv("TZ");
    ::tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
};

TEST(SystemClock, TellsTheTimeOfTheTimeZone) {
  // Twelve hours apart, both without summer time: the day or the half of the day differs at any moment.
  const auto in = [](const char* zone) {
    const TimeZone use(zone);
    return SystemClock().Now();
  };
  const time_t before = ::time(nullptr);
  const DateTime west = in("WWW6");
  const DateTime east = in("EEE-6");
  if (::time(nullptr) / 60 != before / 60)
    GTEST_SKIP() << "a minute went by";
  EXPECT_EQ((west.hour + 12) % 24, east.hour);
  EXPECT_EQ(west.minute, east.minute);
  EXPECT_EQ(west.date == east.date, west.hour < 12);
}

TEST(SystemClock, AgreesWithTheSystem) {
  const TimeZone use("UTC0");
  const time_t before = ::time(nullptr);
  const DateTime now = SystemClock().Now();
  const time_t after = ::time(nullptr);
  tm fields = {};
  fields.tm_year = now.date.year - 1900;
  fields.tm_mon = now.date.month - 1;
  fields.tm_mday = now.date.day;
  fields.tm_hour = now.hour;
  fields.tm_min = now.minute;
  fields.tm_sec = now.second;
  const time_t told = ::timegm(&fields);
  EXPECT_LE(before, told);
  EXPECT_LE(told, after);
}

}  // namespace
}  // namespace fiscalon
