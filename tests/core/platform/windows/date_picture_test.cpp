#include "core/platform/windows/date_picture.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(PatternOfPicture, HasATokenForEachField) {
  EXPECT_EQ(PatternOfPicture("d/M/yy"), "%-d/%-m/%y");
  EXPECT_EQ(PatternOfPicture("dd.MM.yyyy"), "%d.%m.%Y");
  EXPECT_EQ(PatternOfPicture("ddd d MMM yyyy"), "%a %-d %b %Y");
  EXPECT_EQ(PatternOfPicture("dddd, d MMMM yyyy"), "%A, %-d %B %Y");
  EXPECT_EQ(PatternOfPicture("h:mm:ss tt"), "%-I:%M:%S %p");
  EXPECT_EQ(PatternOfPicture("HH:m:s"), "%H:%-M:%-S");
  EXPECT_EQ(PatternOfPicture("hh H t"), "%I %-H %p");
}

TEST(PatternOfPicture, KeepsWhatIsQuoted) {
  EXPECT_EQ(PatternOfPicture("d' de 'MMMM"), "%-d de %B");
  EXPECT_EQ(PatternOfPicture("HH 'h' mm"), "%H h %M");
  EXPECT_EQ(PatternOfPicture("h 'o''clock'"), "%-I o'clock");
}

TEST(PatternOfPicture, KeepsAPercentSignAndDropsTheEra) {
  EXPECT_EQ(PatternOfPicture("d%"), "%-d%%");
  EXPECT_EQ(PatternOfPicture("yyyy gg"), "%Y ");
  EXPECT_EQ(PatternOfPicture(""), "");
}

}  // namespace
}  // namespace fiscalon
