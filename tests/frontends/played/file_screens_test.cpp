#include "frontends/played/file_screens.h"

#include <gmock/gmock.h>

#include "tests/frontends/played/complaint.h"
#include "tests/frontends/played/play_scenario.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

std::vector<std::string> Titles(std::string_view text) {
  std::vector<std::string> titles;
  for (const Scenario& scenario : ParseScenarios("f", text)) titles.push_back(scenario.Title());
  return titles;
}

/// The arguments of the last line, for each screen.
std::vector<std::vector<std::string>> LastArguments(std::string_view text) {
  std::vector<std::vector<std::string>> arguments;
  for (const Scenario& scenario : ParseScenarios("s", text)) arguments.push_back(scenario.lines.back().arguments);
  return arguments;
}

TEST(FileScreens, FileIsPlayedOnceForEachCode) {
  EXPECT_THAT(Titles("screens 16 15\nscenario a\nshow $SCREEN\nscenario \"b c\"\nclose 0\n"),
              ElementsAre("f: a (16)", "f: b c (16)", "f: a (15)", "f: b c (15)"));
  EXPECT_THAT(Titles("screens 15 16\nshow $SCREEN\n"), ElementsAre("f (15)", "f (16)"));
  EXPECT_THAT(Titles("screens 15\nshow $SCREEN\n"), ElementsAre("f (15)"));
}

TEST(FileScreens, ScenarioKnowsItsScreenAndItsPartOfTheFile) {
  const std::vector<Scenario> scenarios =
      ParseScenarios("f", "# why\nscreens 15 16\nhost CompName x\nscenario a\nshow $SCREEN\nscenario b\nclose 0\n");
  ASSERT_EQ(scenarios.size(), 4U);
  const Scenario& last = scenarios.back();
  EXPECT_EQ(last.name, "b");
  EXPECT_EQ(last.screen, "16");
  EXPECT_EQ(last.Label(), "b (16)");
  ASSERT_EQ(last.lines.size(), 2U) << "the heading is not played";
  EXPECT_EQ(last.lines[0].number, 3);
  EXPECT_EQ(last.lines[1].number, 7);
  EXPECT_EQ(last.ahead.to, 4);
  EXPECT_EQ(last.own.from, 6);
}

TEST(FileScreens, ScreenStandsForTheCodeInEveryArgument) {
  EXPECT_THAT(LastArguments("screens 15 16\nhost CompName \"on $SCREEN, $SCREEN\"\n"),
              ElementsAre(ElementsAre("CompName", "on 15, 15"), ElementsAre("CompName", "on 16, 16")));
}

TEST(FileScreens, LineKeepsItsSourceForReports) {
  EXPECT_EQ(ParseScenarios("s", "screens 15\nshow $SCREEN # it\n").at(0).lines.at(0).source, "show $SCREEN # it");
}

TEST(FileScreens, ButtonsAreTheFormsOwn) {
  EXPECT_THAT(LastArguments("screens 15\nclick $OK\n"), ElementsAre(ElementsAre("cmdOK")));
  EXPECT_THAT(LastArguments("screens 15\nclick $CANCEL\n"), ElementsAre(ElementsAre("cmdCancel")));
  EXPECT_THAT(LastArguments("screens 15\nclick $HELP\n"), ElementsAre(ElementsAre("cmdHelp")));
}

TEST(FileScreens, ReadingDoesNotLoadAForm) {
  // The form of 16 fails when it loads.
  EXPECT_THAT(Titles("screens 16\nshow $SCREEN\n"), ElementsAre("f (16)"));
}

TEST(FileScreens, NameStandsForAValuePerScreen) {
  const std::string heading = "screens 15 16\nname $FROM txtA \"two words\"\n";
  EXPECT_THAT(LastArguments(heading + "type $FROM\n"), ElementsAre(ElementsAre("txtA"), ElementsAre("two words")));
  EXPECT_THAT(LastArguments(heading + "type \"<$FROM>$FROM.\"\n"),
              ElementsAre(ElementsAre("<txtA>txtA."), ElementsAre("<two words>two words.")));
}

TEST(FileScreens, NamesHoldForTheWholeFileWhereverTheyStandAheadOfItsScenarios) {
  EXPECT_THAT(LastArguments("type $FROM\nname $FROM a b\nscreens 15 16\n"),
              ElementsAre(ElementsAre("a"), ElementsAre("b")));
}

TEST(FileScreens, NameMayBePartOfOneFurtherDown) {
  EXPECT_THAT(LastArguments("screens 15 16\nname $A 1 2\nname $B \"<$A>\" $SCREEN\ntype $B\n"),
              ElementsAre(ElementsAre("<1>"), ElementsAre("16")));
}

TEST(FileScreens, LongestNameCounts) {
  EXPECT_THAT(LastArguments("screens 15\nname $A 1\nname $A_2b 2\ntype $A_2b-$A\n"), ElementsAre(ElementsAre("2-1")));
}

TEST(FileScreens, DollarAheadOfNoLetterIsADollar) {
  EXPECT_THAT(LastArguments("screens 15\ntype \"$9,999.99 $ $% $_ $\"\n"),
              ElementsAre(ElementsAre("$9,999.99 $ $% $_ $")));
}

TEST(FileScreens, FolderStaysTheScenariosOwn) {
  EXPECT_THAT(LastArguments("screens 15\nname $LOG $TMP/log.txt\nfolder $LOG\n"),
              ElementsAre(ElementsAre("$TMP/log.txt")));
  ExpectPassed("screens 15\nname $LOG $TMP/log\nfolder $LOG\nexpect file $TMP/log yes\nexpect file $LOG yes\n");
}

TEST(FileScreens, ValueMustFitItsPlace) {
  EXPECT_EQ(Complaint("screens 15 16\nname $N 1 one\nexpect records $N\n"),
            "s:3: \"expect records\": expected a number from 0 on, not \"one\"");
}

TEST(FileScreens, FileWithoutScreensKeepsItsDollars) {
  EXPECT_THAT(LastArguments("type \"$OK $FROM $TMP $SCREENS $screen\"\n"),
              ElementsAre(ElementsAre("$OK $FROM $TMP $SCREENS $screen")));
  EXPECT_THAT(Titles("scenario \"of $SCREEN\"\ntype 1\n"), ElementsAre("f: of $SCREEN"));
}

TEST(FileScreens, IsPlayedAsItIsRead) {
  const std::string text =
      "screens 15\nname $ENTERED abc\nshow $SCREEN\n  type $ENTERED\n  expect text txtA abc\n  click $CANCEL\nexpect "
      "result False\n";
  ExpectPassed(text);
}

// What is refused.

TEST(FileScreens, CodeMustBeThere) {
  EXPECT_EQ(Complaint("screens 15 17\nshow $SCREEN\n"), "s:1: there is no screen \"17\"; did you mean \"15\"?");
  EXPECT_EQ(Complaint("screens 6\nshow $SCREEN\n"), "s:1: there is no screen \"6\"; did you mean \"16\"?");
  EXPECT_EQ(Complaint("screens\nshow 15\n"), "s:1: \"screens\" takes 1 or more arguments, CODE...; here are 0");
}

TEST(FileScreens, CodeStandsOnce) {
  EXPECT_EQ(Complaint("screens 15 16 15\nshow $SCREEN\n"), "s:1: the screen \"15\" stands here twice");
}

TEST(FileScreens, ScreensAreNamedOnceAndAheadOfTheScenarios) {
  EXPECT_EQ(Complaint("screens 15\n\nscreens 16\nshow $SCREEN\n"), "s:3: line 1 names the screens already");
  EXPECT_EQ(Complaint("screens 15\nscreens 16\nshow $SCREEN\n"), "s:2: line 1 names the screens already");
  EXPECT_EQ(Complaint("type 1\nscenario a\ntype 2\nscreens 15\n"),
            "s:4: \"screens\" stands ahead of the scenarios, the first of which begins in line 2");
  EXPECT_EQ(Complaint("screens 15\nscenario a\nname $A 1\ntype $A\n"),
            "s:3: \"name\" stands ahead of the scenarios, the first of which begins in line 2");
}

TEST(FileScreens, NameIsADollarAndAWord) {
  for (const std::string name : {"FROM", "$", "$9", "$a-b", "x$A"})
    EXPECT_EQ(Complaint("screens 15\nname " + name + " 1\ntype 1\n"),
              "s:2: \"name\": expected a name such as $FROM, of a dollar, a letter, and letters, digits or _, not \"" +
                  name + "\"");
  EXPECT_EQ(Complaint("screens 15\nname $A\ntype 1\n"),
            "s:2: \"name\" takes 2 or more arguments, $NAME VALUE...; here are 1");
}

TEST(FileScreens, NameHasOneMeaningPerScreen) {
  EXPECT_EQ(Complaint("screens 15\nname $A 1\nname $A 2\ntype $A\n"),
            "s:3: \"$A\" has a meaning already, from a line above");
  EXPECT_EQ(Complaint("screens 15 16\nname $A 1\ntype $A\n"),
            "s:2: \"$A\" needs a value for each of the 2 screens; here are 1");
  EXPECT_EQ(Complaint("screens 15 16\nname $A 1 2 3\ntype $A\n"),
            "s:2: \"$A\" needs a value for each of the 2 screens; here are 3");
  for (const std::string name : {"$SCREEN", "$OK", "$CANCEL", "$HELP", "$TMP", "$TMPFILE"})
    EXPECT_EQ(Complaint("screens 15\nname " + name + " 1\ntype 1\n"),
              "s:2: \"" + name + "\" has a meaning by itself; take another name");
}

TEST(FileScreens, NameNeedsScreens) {
  EXPECT_EQ(Complaint("name $A 1\ntype $A\n"),
            "s:1: \"name\" says what a name stands for on each of the file's \"screens\", which are missing");
  EXPECT_EQ(
      Complaint("scenario a\nshow 15\nshow $SCREEN\n"),
      "s:3: \"$SCREEN\" is the code of a screen, and a line such as \"screens 15 17\" that names them is missing");
}

TEST(FileScreens, EachNameStandsForSomething) {
  EXPECT_EQ(Complaint("screens 15\nname $FROM a\ntype \"1 $FORM\"\n"),
            "s:3: \"$FORM\" stands for nothing; did you mean \"$FROM\"?");
  EXPECT_EQ(Complaint("screens 15\nclick $ok\n"), "s:2: \"$ok\" stands for nothing; did you mean \"$OK\"?");
  EXPECT_EQ(Complaint("screens 15\nshow $SCREN\n"), "s:2: \"$SCREN\" stands for nothing; did you mean \"$SCREEN\"?");
  EXPECT_EQ(Complaint("screens 15\nfolder $TPM\n"), "s:2: \"$TPM\" stands for nothing; did you mean \"$TMP\"?");
  EXPECT_EQ(Complaint("screens 15\nname $B $A\nname $A 1\ntype $B\n"),
            "s:2: \"$A\" stands for nothing; did you mean \"$OK\"?");
}

TEST(FileScreens, ScreenMayLackAButton) {
  EXPECT_EQ(Complaint("screens 15 16\nshow $SCREEN\nclick $HELP\n"),
            "s:3: the screen \"16\" has no button \"Help\" for \"$HELP\"");
}

TEST(FileScreens, FirstFaultyLineIsTold) {
  EXPECT_EQ(Complaint("screens 15\nclos 0\nshow \"$SCREEN\n"),
            "s:2: \"clos\" is nothing that a scenario can say; did you mean \"close\"?");
  EXPECT_EQ(Complaint("screens 15\nclose 0\nshow \"$SCREEN\n"), "s:3: the closing quote is missing");
  EXPECT_EQ(Complaint("screens 15\n"), "s:1: the scenario is empty");
}

// One of the scenarios, for somebody who has a screen in mind.

TEST(ParseScenario, IsThatOfTheScreen) {
  EXPECT_EQ(ParseScenario("s", "screens 15 16\nshow $SCREEN\n", "16").screen, "16");
  EXPECT_EQ(ParseScenario("s", "show 15\n", "16").screen, "") << "a file without screens says by itself what it shows";
}

TEST(ParseScenario, NeedsToKnowWhichScreen) {
  const auto complaint = [](std::string_view screen) -> std::string {
    try {
      ParseScenario("s", "screens 15 16\nscenario a\nshow $SCREEN\n", screen);
    } catch (const ScenarioError& error) {
      return error.what();
    }
    return "no complaint";
  };
  EXPECT_EQ(complaint(""), "s:2: one scenario is wanted, and here begins a second one, \"a (16)\"");
  EXPECT_EQ(complaint("17"), "s:1: the scenario is not played for the screen \"17\"");
}

}  // namespace
}  // namespace fiscalon
