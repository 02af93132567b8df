#include "frontends/played/scenario_grammar.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

std::string ComplaintOf(const std::string& text) {
  try {
    ParseScenario("s", text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "";
}

TEST(ScenarioGrammar, KnowsEveryLineThatAScenarioCanSay) {
  for (const char* line : {
           "today 2026-06-15",
           "today 2026-06-15 13:05:09",
           "today 2026-06-15 13:05",
           "locale en-CA",
           "locale en-US",
           "locale fr-CA",
           "locale system",
           "host CompName x",
           "show 15",
           "type abc",
           "key Tab",
           "key Shift+Tab",
           "key Enter",
           "key Escape",
           "key Backspace",
           "key Delete",
           "key Space",
           "key Left",
           "key Right",
           "key Up",
           "key Down",
           "key Home",
           "key End",
           "key Alt+O",
           "key Alt+o",
           "focus txtA",
           "click cmdOK",
           "choose lst row",
           "paste x",
           "answer OK",
           "answer Cancel",
           "answer Yes",
           "answer No",
           "close 0",
           "close 5",
           "expect message critical x",
           "expect message exclamation x",
           "expect message question x",
           "expect message information x",
           "expect message plain x title y",
           "expect focus txtA",
           "expect text txtA x",
           "expect selection txtA x",
           "expect enabled txtA yes",
           "expect visible txtA no",
           "expect checked chk yes",
           "expect locked txtA no",
           "expect title x",
           "expect items lst 0x10",
           "expect open yes",
           "expect beep",
           "expect help file 100000004",
           "expect result True",
           "expect result False",
           "expect error 0x80040001 s d",
           "expect error -2147221503 s d",
           "expect chosen True",
           "expect records 2",
           "expect record 1 x",
           "expect length 1 160",
           "expect invoice 1 d a n",
           "expect file p yes",
       })
    EXPECT_EQ(ComplaintOf(line), "") << line;
}

TEST(ScenarioGrammar, ComplainsOfWhatIsNoLine) {
  EXPECT_EQ(ComplaintOf("shows 15"), "s:1: \"shows\" is nothing that a scenario can say");
  EXPECT_EQ(ComplaintOf("Show 15"), "s:1: \"Show\" is nothing that a scenario can say");
  EXPECT_EQ(ComplaintOf("expect"), "s:1: \"expect\" needs to say what is expected");
  EXPECT_EQ(ComplaintOf("expect luck"), "s:1: \"expect luck\" is nothing that a scenario can say");
}

TEST(ScenarioGrammar, ComplainsOfTheNumberOfArguments) {
  EXPECT_EQ(ComplaintOf("show"), "s:1: \"show\" takes 1 argument, not 0");
  EXPECT_EQ(ComplaintOf("show 15 16"), "s:1: \"show\" takes 1 argument, not 2");
  EXPECT_EQ(ComplaintOf("host CompName"), "s:1: \"host\" takes 2 arguments, not 1");
  EXPECT_EQ(ComplaintOf("host CompName Summit Levies"), "s:1: \"host\" takes 2 arguments, not 3");
  EXPECT_EQ(ComplaintOf("today"), "s:1: \"today\" takes 1 or 2 arguments, not 0");
  EXPECT_EQ(ComplaintOf("expect beep beep"), "s:1: \"expect beep\" takes 0 arguments, not 1");
  EXPECT_EQ(ComplaintOf("expect error 5 s"), "s:1: \"expect error\" takes 3 arguments, not 2");
}

TEST(ScenarioGrammar, ComplainsOfAMessageThatIsNotWhole) {
  const std::string complaint = "\"expect message\" takes a style, a text, and perhaps title and a title, not ";
  EXPECT_EQ(ComplaintOf("expect message critical"), "s:1: " + complaint + "1");
  EXPECT_EQ(ComplaintOf("expect message critical x title"), "s:1: " + complaint + "3");
  EXPECT_EQ(ComplaintOf("expect message critical x named y"), "s:1: expected the word title, not \"named\"");
}

TEST(ScenarioGrammar, ComplainsOfArgumentsThatDoNotFit) {
  const std::pair<const char*, const char*> rows[] = {
      {"today 2026-6-15", "expected a date such as 2026-06-15, not \"2026-6-15\""},
      {"today 2026-06-15 25:00", "expected a time such as 13:05:09, not \"25:00\""},
      {"locale de-DE", "expected a locale: en-CA, en-US, fr-CA or system, not \"de-DE\""},
      {"key F1",
       "expected a key: Tab, Shift+Tab, Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down, Home, End or "
       "Alt+LETTER, not \"F1\""},
      {"answer Maybe", "expected OK, Cancel, Yes or No, not \"Maybe\""},
      {"close 6", "expected a close reason from 0 to 5, not \"6\""},
      {"close -1", "expected a close reason from 0 to 5, not \"-1\""},
      {"expect message loud x", "expected critical, exclamation, question, information or plain, not \"loud\""},
      {"expect enabled txtA True", "expected yes or no, not \"True\""},
      {"expect open maybe", "expected yes or no, not \"maybe\""},
      {"expect result yes", "expected True or False, not \"yes\""},
      {"expect chosen 40000", "expected True or False, not \"40000\""},
      {"expect records two", "expected a number from 0 on, not \"two\""},
      {"expect records -1", "expected a number from 0 on, not \"-1\""},
      {"expect help f x", "expected a number of 32 bits, not \"x\""},
      {"expect error five s d", "expected a number of 32 bits, not \"five\""},
      {"expect error 0x100000005 s d", "expected a number of 32 bits, not \"0x100000005\""},
      {"expect error -2147483649 s d", "expected a number of 32 bits, not \"-2147483649\""},
  };
  for (const auto& [line, complaint] : rows) EXPECT_EQ(ComplaintOf(line), std::string("s:1: ") + complaint);
}

TEST(ScenarioGrammar, ComplainsOfWhatNoHostCanSet) {
  EXPECT_EQ(ComplaintOf("host APHoldFlg 256"), "s:1: APHoldFlg takes a whole number from 0 to 255, not \"256\"");
  EXPECT_EQ(ComplaintOf("host WriteFile maybe"),
            "s:1: WriteFile takes True, False or a number from -32768 to 32767, not \"maybe\"");
}

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
