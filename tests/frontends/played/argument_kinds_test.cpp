#include "frontends/played/argument_kinds.h"

#include <gtest/gtest.h>

#include <string>

namespace fiscalon {
namespace {

TEST(ParseDateTime, ReadsRealDatesAndTimes) {
  const auto day = ParseDateTime("2026-06-15", "");
  ASSERT_TRUE(day);
  EXPECT_EQ(day->date, (Date{2026, 6, 15}));
  EXPECT_EQ(day->hour + day->minute + day->second, 0);
  const auto moment = ParseDateTime("2028-02-29", "23:59:58");
  ASSERT_TRUE(moment);
  EXPECT_EQ(moment->hour, 23);
  EXPECT_EQ(moment->minute, 59);
  EXPECT_EQ(moment->second, 58);
  const auto minute = ParseDateTime("2026-06-15", "13:05");
  ASSERT_TRUE(minute);
  EXPECT_EQ(minute->minute, 5);
  EXPECT_EQ(minute->second, 0);
}

TEST(ParseDateTime, RefusesWhatIsNone) {
  for (const char* date : {"", "2026-06-31", "2026-02-29", "2026-13-01", "2026-00-01", "2026-01-00", "0099-01-01",
                           "26-01-01", "2026/06/15", "2026-06-155", "2026-+6-15", "2026-06-1x", "-026-06-15"})
    EXPECT_FALSE(ParseDateTime(date, "")) << date;
  for (const char* time :
       {"1", "24:00", "13:60", "13:05:60", "13.05", "13:05-09", "1:05:09", "13:05:9", "-1:05", "ab:cd"})
    EXPECT_FALSE(ParseDateTime("2026-06-15", time)) << time;
}

TEST(DollarNameAt, BeginsWithALetterAndGoesOnToWhatIsNone) {
  for (const char* name : {"$A", "$Z", "$a", "$z", "$a1", "$Ab_9z"}) {
    EXPECT_EQ(DollarNameAt(name, 0), name);
    EXPECT_EQ(DollarNameAt(std::string("x") + name + "-y", 1), name);
  }
  for (const char* text : {"", "$", "$1", "$_a", "$@", "$[", "$`", "${", "a", "$$a"})
    EXPECT_EQ(DollarNameAt(text, 0), "") << text;
  EXPECT_EQ(DollarNameAt("$a", 1), "");
  EXPECT_EQ(DollarNameAt("$a", 2), "");
  EXPECT_EQ(DollarNameAt("$a", 3), "");
}

TEST(ParseNumber, ReadsDecimalAndHexadecimal) {
  EXPECT_EQ(ParseNumber("0"), 0);
  EXPECT_EQ(ParseNumber("-12"), -12);
  EXPECT_EQ(ParseNumber("0x80040001"), 2147745793);
  EXPECT_EQ(ParseNumber("0XfF"), 255);
  EXPECT_EQ(ParseNumber("-0x10"), -16);
  for (const char* text : {"", "-", "--1", "+1", "1.5", " 1", "1 ", "0x", "0x-1", "1e3", "ten", "99999999999999999999"})
    EXPECT_FALSE(ParseNumber(text)) << text;
}

TEST(ParseBoolean, ReadsWordsAndNumbersOf16Bits) {
  EXPECT_EQ(ParseBoolean("True"), -1);
  EXPECT_EQ(ParseBoolean("true"), -1);
  EXPECT_EQ(ParseBoolean("False"), 0);
  EXPECT_EQ(ParseBoolean("1"), 1);
  EXPECT_EQ(ParseBoolean("-32768"), -32768);
  for (const char* text : {"", "yes", "32768", "-32769", "T"}) EXPECT_FALSE(ParseBoolean(text)) << text;
}

}  // namespace
}  // namespace fiscalon
