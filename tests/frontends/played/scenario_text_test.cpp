#include "frontends/played/scenario_text.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

using Typing = ScenarioText::Typing;

const BoxRequest kQuestion = {.text = "Sure?", .style = MessageStyle::Question, .buttons = MessageButtons::YesNo};
const BoxRequest kBox = {.text = "No.\r\nNever.", .style = MessageStyle::Critical};

class ScenarioTextTest : public testing::Test {
 protected:
  void Type(std::string_view characters, Typing how = Typing::GoesOn) {
    for (const char character : characters) text.Type(character, how);
  }

  ScenarioText text;
};

TEST_F(ScenarioTextTest, IsItsLinesInOrder) {
  text.Begin("show 15");
  text.Begin("key Tab");
  EXPECT_EQ(text.Text(), "show 15\nkey Tab\n");
}

TEST_F(ScenarioTextTest, CharactersGoOnInOneLineInUtf8) {
  Type("C\xf4t\xe9 #1");
  EXPECT_EQ(text.Text(), "type \"Côté #1\"\n");
}

TEST_F(ScenarioTextTest, TypingBeginsAnewBehindWhatWasSeen) {
  Type("12");
  text.Expect("expect beep");
  Type("34");
  text.Answered(kBox, MessageAnswer::Ok);
  Type("56");
  EXPECT_EQ(text.Text(), "type 12\nexpect beep\ntype 34\nexpect message critical \"No.\\nNever.\"\ntype 56\n");
}

TEST_F(ScenarioTextTest, TypingBeginsAnewBehindAnotherLineAndWhereItMust) {
  Type("1");
  text.Begin("key Tab");
  Type("2");
  Type("3", Typing::Begins);
  EXPECT_EQ(text.Text(), "type 1\nkey Tab\ntype 2\ntype 3\n");
}

TEST_F(ScenarioTextTest, AnswersStandBeforeTheLineThatAsks) {
  text.Begin("click cmdAsk");
  text.Answered(kQuestion, MessageAnswer::No);
  EXPECT_EQ(text.Text(), "answer No\nclick cmdAsk\nexpect message question Sure?\n");
}

TEST_F(ScenarioTextTest, DefaultAnswersGoWithoutSayingUnlessAnotherOneFollows) {
  text.Begin("click cmdAsk");
  text.Answered(kQuestion, MessageAnswer::Yes);
  EXPECT_EQ(text.Text(), "click cmdAsk\nexpect message question Sure?\n");
  text.Answered(kQuestion, MessageAnswer::No);
  text.Answered(kBox, MessageAnswer::Ok);
  EXPECT_EQ(text.Text(),
            "answer Yes\nanswer No\nclick cmdAsk\nexpect message question Sure?\nexpect message question Sure?\n"
            "expect message critical \"No.\\nNever.\"\n");
}

TEST_F(ScenarioTextTest, AnswersBearTheNamesOfTheirButtons) {
  text.Begin("click cmdAsk");
  text.Answered(kBox, MessageAnswer::Ok);
  text.Answered({.text = "Go on?", .style = MessageStyle::Plain, .buttons = MessageButtons::OkCancel},
                MessageAnswer::Cancel);
  EXPECT_EQ(text.Text(),
            "answer OK\nanswer Cancel\nclick cmdAsk\nexpect message critical \"No.\\nNever.\"\n"
            "expect message plain \"Go on?\"\n");
}

TEST_F(ScenarioTextTest, NothingIsExpectedAheadOfTheFirstLine) {
  text.Expect("expect beep");
  text.Answered(kBox, MessageAnswer::Ok);
  EXPECT_EQ(text.Text(), "");
}

TEST_F(ScenarioTextTest, LineTakesThePlaceOfTheOneThatItGoesOnFrom) {
  text.BeginInPlaceOf("focus cmdOK", "click cmdOK");
  text.Begin("focus cmdOK");
  text.BeginInPlaceOf("focus cmdOK", "click cmdOK");
  text.BeginInPlaceOf("focus cmdCancel", "click cmdCancel");
  EXPECT_EQ(text.Text(), "click cmdOK\nclick cmdOK\nclick cmdCancel\n");
}

TEST_F(ScenarioTextTest, LinesAreInsertedInTheirOrderBeforeTheLast) {
  text.Begin("key Tab");
  text.Begin("key Delete");
  text.Expect("expect beep");
  text.InsertBeforeLast({"key End", "key Left"});
  text.ReplaceLast("key Backspace");
  EXPECT_EQ(text.Text(), "key Tab\nkey End\nkey Left\nkey Backspace\nexpect beep\n");
}

}  // namespace
}  // namespace fiscalon
