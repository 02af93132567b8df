#include "frontends/played/scenario_grammar.h"

#include <gtest/gtest.h>

#include <sstream>

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
           "folder $TMP/a/b",
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
           "key Shift+Enter",
           "key Ctrl+Enter",
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
           "expect line p 1 x",
       })
    EXPECT_EQ(ComplaintOf(line), "") << line;
}

TEST(ScenarioGrammar, ComplainsOfWhatIsNoLine) {
  EXPECT_EQ(ComplaintOf("expect"), "s:1: \"expect\" needs to say what is expected");
  const std::pair<const char*, const char*> rows[] = {{"shows", "show"},
                                                      {"Show", "show"},
                                                      {"CLICK", "click"},
                                                      {"clik", "click"},
                                                      {"foldr", "folder"},
                                                      {"key:", "key"},
                                                      {"press", "paste"},
                                                      {"expct", "expect"},
                                                      {"Scenario:", "scenario"},
                                                      {"expect titel", "expect title"},
                                                      {"expect Record", "expect record"},
                                                      {"expect lines", "expect line"}};
  for (const auto& [words, nearest] : rows)
    EXPECT_EQ(
        ComplaintOf(std::string(words) + " x"),
        "s:1: \"" + std::string(words) + "\" is nothing that a scenario can say; did you mean \"" + nearest + "\"?");
}

TEST(ScenarioGrammar, NamesANearOneOfNothing) {
  EXPECT_EQ(ComplaintOf("\"\" x"), "s:1: \"\" is nothing that a scenario can say; did you mean \"key\"?");
}

TEST(ScenarioGrammar, NamesANearOneHoweverLongTheWordIs) {
  const std::string word = "type" + std::string(100'000, 'x');
  EXPECT_EQ(ComplaintOf(word), "s:1: \"" + word + "\" is nothing that a scenario can say; did you mean \"type\"?");
}

TEST(ScenarioGrammar, ComplainsOfTheNumberOfArguments) {
  EXPECT_EQ(ComplaintOf("show"), "s:1: \"show\" takes 1 argument, CODE; here are 0");
  EXPECT_EQ(ComplaintOf("show 15 16"), "s:1: \"show\" takes 1 argument, CODE; here are 2");
  EXPECT_EQ(ComplaintOf("host CompName"), "s:1: \"host\" takes 2 arguments, PROPERTY VALUE; here are 1");
  EXPECT_EQ(ComplaintOf("host CompName Summit Levies"), "s:1: \"host\" takes 2 arguments, PROPERTY VALUE; here are 3");
  EXPECT_EQ(ComplaintOf("today"), "s:1: \"today\" takes 1 or 2 arguments, DATE [TIME]; here are 0");
  EXPECT_EQ(ComplaintOf("expect beep beep"), "s:1: \"expect beep\" takes no arguments; here are 1");
  EXPECT_EQ(ComplaintOf("expect error 5 s"),
            "s:1: \"expect error\" takes 3 arguments, NUMBER SOURCE DESCRIPTION; here are 2");
}

TEST(ScenarioGrammar, NamesTheArgumentsOfEveryLine) {
  const std::pair<const char*, const char*> rows[] = {
      {"scenario", "1 argument, NAME"},
      {"screens", "1 or more arguments, CODE..."},
      {"name", "2 or more arguments, $NAME VALUE..."},
      {"today", "1 or 2 arguments, DATE [TIME]"},
      {"locale", "1 argument, NAME"},
      {"language", "1 argument, NAME"},
      {"host", "2 arguments, PROPERTY VALUE"},
      {"folder", "1 argument, PATH"},
      {"show", "1 argument, CODE"},
      {"type", "1 argument, TEXT"},
      {"key", "1 argument, NAME"},
      {"focus", "1 argument, CONTROL"},
      {"click", "1 argument, CONTROL"},
      {"choose", "2 arguments, CONTROL TEXT"},
      {"paste", "1 argument, TEXT"},
      {"close", "1 argument, REASON"},
      {"answer", "1 argument, BUTTON"},
      {"expect message", "2 or 4 arguments, STYLE TEXT [title TITLE]"},
      {"expect help", "2 arguments, FILE CONTEXT"},
      {"expect focus", "1 argument, CONTROL"},
      {"expect title", "1 argument, TEXT"},
      {"expect open", "1 argument, yes|no"},
      {"expect text", "2 arguments, CONTROL TEXT"},
      {"expect selection", "2 arguments, CONTROL TEXT"},
      {"expect items", "2 arguments, CONTROL N"},
      {"expect enabled", "2 arguments, CONTROL yes|no"},
      {"expect visible", "2 arguments, CONTROL yes|no"},
      {"expect checked", "2 arguments, CONTROL yes|no"},
      {"expect locked", "2 arguments, CONTROL yes|no"},
      {"expect result", "1 argument, True|False"},
      {"expect error", "3 arguments, NUMBER SOURCE DESCRIPTION"},
      {"expect chosen", "1 argument, True|False"},
      {"expect records", "1 argument, N"},
      {"expect record", "2 arguments, I TEXT"},
      {"expect length", "2 arguments, I N"},
      {"expect invoice", "4 arguments, I DATE AMOUNT DESCRIPTION"},
      {"expect file", "2 arguments, PATH yes|no"},
      {"expect line", "3 arguments, PATH I TEXT"},
  };
  for (const auto& [words, takes] : rows)
    EXPECT_EQ(ComplaintOf(words), "s:1: \"" + std::string(words) + "\" takes " + takes + "; here are 0");
}

TEST(ScenarioGrammar, ComplainsOfAMessageThatIsNotWhole) {
  const std::string complaint = "\"expect message\" takes 2 or 4 arguments, STYLE TEXT [title TITLE]; here are ";
  EXPECT_EQ(ComplaintOf("expect message critical"), "s:1: " + complaint + "1");
  EXPECT_EQ(ComplaintOf("expect message critical x title"), "s:1: " + complaint + "3");
  EXPECT_EQ(ComplaintOf("expect message critical x named y"),
            "s:1: \"expect message\": expected the word title, not \"named\"");
}

TEST(ScenarioGrammar, ComplainsOfArgumentsThatDoNotFit) {
  const std::pair<const char*, const char*> rows[] = {
      {"today 2026-6-15", "expected a date such as 2026-06-15, not \"2026-6-15\""},
      {"today 2026-06-15 25:00", "expected a time such as 13:05:09, not \"25:00\""},
      {"language de", "expected a language: en or fr, not \"de\""},
      {"locale de-DE", "expected a locale: en-CA, en-US, fr-CA or system, not \"de-DE\""},
      {"key F1",
       "expected a key: Tab, Shift+Tab, Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down, Home, End, "
       "Shift+Enter, Ctrl+Enter or Alt+LETTER, not \"F1\""},
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
      {"expect line p -1 x", "expected a number from 0 on, not \"-1\""},
      {"expect line p first x", "expected a number from 0 on, not \"first\""},
      {"expect help f x", "expected a number of 32 bits, not \"x\""},
      {"expect error five s d", "expected a number of 32 bits, not \"five\""},
      {"expect error 0x100000005 s d", "expected a number of 32 bits, not \"0x100000005\""},
      {"expect error -2147483649 s d", "expected a number of 32 bits, not \"-2147483649\""},
  };
  for (const auto& [line, complaint] : rows) {
    std::istringstream words(line);
    std::string verb, expected;
    words >> verb >> expected;
    if (verb == "expect")
      verb += ' ' + expected;
    EXPECT_EQ(ComplaintOf(line), "s:1: \"" + verb + "\": " + complaint);
  }
}

TEST(ScenarioGrammar, ComplainsOfWhatNoHostCanSet) {
  EXPECT_EQ(ComplaintOf("host APHoldFlg 256"), "s:1: APHoldFlg takes a whole number from 0 to 255, not \"256\"");
  EXPECT_EQ(ComplaintOf("host WriteFile maybe"),
            "s:1: WriteFile takes True, False or a number from -32768 to 32767, not \"maybe\"");
}

}  // namespace
}  // namespace fiscalon
