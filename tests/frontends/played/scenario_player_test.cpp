#include "frontends/played/scenario_player.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/forms/list_control.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "tests/frontends/played/play_scenario.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kLeftOpen = "\"frmPlayed\" is still open where the scenario ends";

// Message boxes.

TEST(ScenarioPlayer, NamesNoLineWhereAllPass) {
  const PlayResult result = Play("show 15\n close 0\n");
  EXPECT_TRUE(result.passed);
  EXPECT_EQ(result.line, 0);
}

TEST(ScenarioPlayer, BoxesAreClaimedInOrder) {
  ExpectPassed(
      "show 15\n click cmdTwo\n"
      " expect message exclamation One.\n expect message information Two.\n close 0\n");
  ExpectFailed("show 15\n click cmdTwo\n expect message information Two.\n", 3, "message information Two.",
               "message exclamation One.");
}

TEST(ScenarioPlayer, BoxThatNoLineClaimsFailsTheScenarioAtTheActThatShowedIt) {
  const std::string box = "message information Two.";
  ExpectFailed("show 15\n click cmdTwo\n expect message exclamation One.\n click cmdCancel\n", 2,
               "nothing that no line expects", box);
  ExpectFailed("show 15\n click cmdTwo\n expect message exclamation One.\n key Tab\n close 0\n", 2,
               "nothing that no line expects", box);
}

TEST(ScenarioPlayer, BoxUnclaimedAtTheEndFailsTheScenario) {
  ExpectFailed("show 15\n focus cmdBox\n key Enter\n expect open yes\n", 4, "the form to be closed", kLeftOpen);
  ExpectFailed("show 15\n key Escape\nshow 15\n click cmdBox\n close 0\n", 4, "nothing that no line expects",
               "message critical \"A box.\\nTwo lines.\"");
}

// The form is closed by the line that beeps: by the fourth button behind the one that does.
TEST(ScenarioPlayer, BeepUnclaimedBehindTheFormFailsTheScenario) {
  const std::string beepsAndCloses = "show 15\n focus cmdBeep\n type \" \\t\\t\\t\\t \"\n";
  ExpectPassed(beepsAndCloses + "expect beep\n");
  ExpectFailed(beepsAndCloses, 3, "nothing that no line expects", "beep");
  ExpectFailed(beepsAndCloses + "show 15\n close 0\n", 3, "nothing that no line expects", "beep");
}

// Windows that show a box without a title bear the application's name.
TEST(ScenarioPlayer, TitleThatIsTheApplicationsNameIsNone) {
  ScriptedToolkit toolkit;
  PlayWatcher watcher;
  watcher.handlerRuns = [&](const std::string& handler) {
    if (handler == "cmdBeep_Click")
      toolkit.ShowMessage({.text = "Native.", .style = MessageStyle::Plain, .title = "Fiscalon"});
  };
  std::string title = "none was answered";
  watcher.boxAnswered = [&](const BoxRequest& box, MessageAnswer /*answer*/, Form* /*form*/) { title = box.title; };
  const Scenario scenario =
      ParseScenario("s", "show 15\n click cmdBeep\n expect message plain Native.\n expect beep\n close 0\n");
  EXPECT_TRUE(ScenarioPlayer(toolkit, {}, watcher).Play(scenario).passed);
  EXPECT_EQ(title, "");
}

TEST(ScenarioPlayer, MessageNeedsABox) {
  ExpectFailed("show 15\n click txtA\n expect message critical x\n", 3, "message critical x", "nothing was shown");
}

TEST(ScenarioPlayer, MessageComparesStyleTextAndTitle) {
  const std::string act = "show 15\n click cmdAsk\n expect message ";
  ExpectPassed(act + "question Sure?\n close 0\n");
  ExpectPassed(act + "question Sure? title \"A title\"\n close 0\n");
  ExpectFailed(act + "critical Sure?\n", 3, "message critical Sure?", "message question Sure?");
  ExpectFailed(act + "question sure?\n", 3, "message question sure?", "message question Sure?");
  ExpectFailed(act + "question Sure? title Fiscalon\n", 3, "message question Sure? title Fiscalon",
               "message question Sure? title \"A title\"");
}

TEST(ScenarioPlayer, BoxWithoutATitleCarriesTheApplicationsName) {
  ExpectPassed("show 15\n click cmdBox\n expect message critical \"A box.\\nTwo lines.\" title Fiscalon\n close 0\n");
}

TEST(ScenarioPlayer, BoxGetsItsDefaultAnswerWithoutOne) {
  ExpectPassed("show 15\n click cmdAsk\n expect message question Sure?\n expect text lblSeen Yes\n close 0\n");
}

TEST(ScenarioPlayer, AnswersServeTheNextBoxesInOrder) {
  ExpectPassed(
      "answer No\nshow 15\n click cmdAsk\n expect message question Sure?\n expect text lblSeen No\n"
      " answer Yes\n answer No\n click cmdAsk\n expect message question Sure?\n expect text lblSeen Yes\n"
      " click cmdAsk\n expect message question Sure?\n expect text lblSeen No\n close 0\n");
}

TEST(ScenarioPlayer, AnswerMustBeAButtonOfTheBox) {
  ExpectFailed("show 15\n answer OK\n click cmdAsk\n", 3, "a box with the button that was to be answered",
               "the box \"Sure?\" has no such button");
  ExpectFailed("show 15\n answer Cancel\n click cmdBox\n", 3, "a box with the button that was to be answered",
               "the box \"A box.\r\nTwo lines.\" has no such button");
}

TEST(ScenarioPlayer, BeepAndHelpAreClaimedLikeBoxes) {
  ExpectPassed("show 15\n click cmdBeep\n expect beep\n close 0\n");
  ExpectPassed("show 15\n click cmdHelp\n expect help /help/ZELMOR.CHM>ShowTopic 0x5F5E104\n close 0\n");
  ExpectFailed("show 15\n click cmdBeep\n close 0\n", 2, "nothing that no line expects", "beep");
  ExpectFailed("show 15\n click cmdHelp\n close 0\n", 2, "nothing that no line expects",
               "help /help/ZELMOR.CHM>ShowTopic 100000004");
  ExpectFailed("show 15\n expect beep\n", 2, "beep", "nothing was shown");
  ExpectFailed("show 15\n click cmdHelp\n expect help /help/ZELMOR.CHM>ShowTopic 4\n", 3,
               "help /help/ZELMOR.CHM>ShowTopic 4", "help /help/ZELMOR.CHM>ShowTopic 100000004");
  ExpectFailed("show 15\n click cmdBox\n expect beep\n", 3, "beep", "message critical \"A box.\\nTwo lines.\"");
  ExpectFailed("show 15\n click cmdBeep\n expect message plain x\n", 3, "message plain x", "beep");
}

// How a show ends.

TEST(ScenarioPlayer, FormStillOpenAtTheEndFails) {
  ExpectFailed("show 15\n type 1\n", 2, "the form to be closed", kLeftOpen);
  ExpectFailed("show 15\n", 1, "the form to be closed", kLeftOpen);
}

TEST(ScenarioPlayer, HostHasNoTurnWhileAFormIsUp) {
  for (const char* line : {"today 2026-06-15", "locale fr-CA", "host CompName x", "folder $TMP/a", "show 15"}) {
    const std::string verb(line, std::string_view(line).find(' '));
    ExpectFailed(std::string("show 15\n") + line + "\n", 2, "the form to be closed before \"" + verb + "\"",
                 "\"frmPlayed\" is still open");
  }
}

TEST(ScenarioPlayer, ActsNeedAForm) {
  for (const char* line : {"type x", "key Tab", "focus txtA", "click cmdOK", "choose lst First", "paste x", "close 0",
                           "expect focus txtA", "expect text txtA x", "expect title x"}) {
    ExpectFailed(std::string(line) + "\n", 1, "a form to be open", "no form is open");
    ExpectFailed(std::string("show 15\n key Escape\n") + line + "\n", 3, "a form to be open", "no form is open");
  }
}

TEST(ScenarioPlayer, ResultIsKnownOnceTheFormIsClosed) {
  ExpectPassed("show 15\n click cmdOK\nexpect result True\nexpect result 1\n");
  ExpectPassed("show 15\n click cmdCancel\nexpect result False\nexpect result 0\n");
  ExpectFailed("show 15\n click cmdOK\nexpect result False\n", 3, "result False", "result True");
  ExpectFailed("show 15\n expect result True\n", 2, "the form to be closed", "\"frmPlayed\" is still open");
  ExpectFailed("expect result True\n", 1, "result True", "no screen was shown");
}

TEST(ScenarioPlayer, OpenIsKnownAtAnyTime) {
  ExpectPassed("expect open no\nshow 15\n expect open yes\n key Escape\n expect open no\n");
  ExpectFailed("expect open yes\n", 1, "yes", "no");
}

TEST(ScenarioPlayer, ErrorsAreExpectedByNumberSourceAndDescription) {
  const std::string act = "show 15\n click cmdFail\nexpect error ";
  ExpectPassed(act + "76 Fiscalon.ShowLevyraScreen \"Path not found\"\n");
  ExpectPassed("show 99\nexpect error 0x80040001 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n");
  ExpectPassed("show 99\nexpect error -2147221503 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n");
  const std::string seen = "error 76 Fiscalon.ShowLevyraScreen \"Path not found\"";
  ExpectFailed(act + "75 Fiscalon.ShowLevyraScreen \"Path not found\"\n", 3,
               "error 75 Fiscalon.ShowLevyraScreen \"Path not found\"", seen);
  ExpectFailed(act + "76 Fiscalon \"Path not found\"\n", 3, "error 76 Fiscalon \"Path not found\"", seen);
  ExpectFailed(act + "76 Fiscalon.ShowLevyraScreen x\n", 3, "error 76 Fiscalon.ShowLevyraScreen x", seen);
  ExpectFailed("show 15\n click cmdOK\nexpect error 5 s d\n", 3, "error 5 s d", "result True");
}

TEST(ScenarioPlayer, ErrorThatNoLineExpectsFailsTheScenario) {
  EXPECT_FALSE(Play("show 16\n").passed);
  EXPECT_EQ(Play("show 16\n").seen, "error 6 Fiscalon.ShowLevyraScreen Overflow");
  ExpectFailed("show 16\nshow 15\n close 0\n", 2, "no error of the show before",
               "error 6 Fiscalon.ShowLevyraScreen Overflow");
  ExpectFailed("show 16\nexpect result False\n", 2, "result False", "error 6 Fiscalon.ShowLevyraScreen Overflow");
}

TEST(ScenarioPlayer, ChosenIsTheForms) {
  ExpectPassed("show 15\n expect chosen False\n click cmdOK\nexpect chosen True\n");
  ExpectPassed("show 15\n click cmdOK\nshow 15\n expect chosen True\n close 0\nexpect result True\n");
  ExpectFailed("expect chosen True\n", 1, "a form that was shown", "no form was shown");
}

// Each scenario starts afresh.

TEST(ScenarioPlayer, StartsAsInAFreshlyLoadedLibrary) {
  ModuleToChange().mainPath = "/before";
  ExpectPassed("show 15\n expect chosen False\n click cmdOK\n");
  EXPECT_EQ(TheModule().mainPath, "");
  ExpectPassed("host WriteFile True\nhost CompName x\nshow 15\n expect chosen False\n click cmdCancel\n");
  ExpectPassed("show 15\n expect title \"\"\n close 0\nexpect result False\n");
}

TEST(ScenarioPlayer, LeavesNothingBehindHoweverItEnds) {
  ScriptedToolkit toolkit;
  const auto expectClean = [&] {
    EXPECT_TRUE(TheModule().forms.empty());
    EXPECT_EQ(TheModule().toolkit, nullptr);
    EXPECT_EQ(TheModule().mainPath, "");
    EXPECT_FALSE(toolkit.onForm || toolkit.onMessage || toolkit.onBeep || toolkit.onHelp || toolkit.onEvent);
  };
  const std::string begin = "host MainPath /logs\nshow 15\n";
  EXPECT_TRUE(ScenarioPlayer(toolkit).Play(ParseScenario("s", begin + "close 0\n")).passed);
  expectClean();
  EXPECT_FALSE(ScenarioPlayer(toolkit).Play(ParseScenario("s", begin)).passed);
  expectClean();
  EXPECT_THROW(ScenarioPlayer(toolkit).Play(ParseScenario("s", begin + "click nothing\n")), ScenarioError);
  expectClean();
}

TEST(ScenarioPlayer, HasAFolderOfItsOwnThatGoes) {
  std::string folder;
  PlayWatcher watcher;
  watcher.showEnded = [&](const std::string&) {
    folder = TheModule().mainPath;
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
  };
  EXPECT_TRUE(Play("host MainPath $TMP\nshow 15\n close 0\n", {}, watcher).passed);
  const std::string first = folder;
  EXPECT_FALSE(std::filesystem::exists(first));
  EXPECT_TRUE(Play("host MainPath $TMP\nshow 15\n close 0\n", {}, watcher).passed);
  EXPECT_NE(folder, first);
}

TEST(ScenarioPlayer, TheFoldersNameMayStandInAnyArgument) {
  ExpectPassed("host CompName \"$TMP and $TMP\"\nshow 15\n expect title \"$TMP and $TMP\"\n close 0\n");
  ExpectPassed("show 15\n paste $TMP\n expect text lblSeen \"Seen /tmp/\"\n close 0\n",
               {});  // the first five characters of the folder's name
}

TEST(ScenarioPlayer, TheFoldersNameMayStandInAnArgumentMoreThanOnce) {
  const PlayResult result = Play("host CompName \"$TMP and $TMP\"\nshow 15\n expect title x\n");
  const size_t end = result.seen.find(" and ");
  ASSERT_NE(end, std::string::npos) << result.seen;
  const std::string folder = result.seen.substr(1, end - 1);
  EXPECT_EQ(result.seen, "\"" + folder + " and " + folder + "\"");
}

TEST(ScenarioPlayer, FoldersAreMadeWithThoseAboveThem) {
  ExpectPassed("folder $TMP/a/b/c\nexpect file $TMP/a/b/c yes\nfolder $TMP/a\nexpect file $TMP/a/b/c yes\n");
  ExpectPassed("show 15\n close 0\nfolder \"$TMP/two words\"\nexpect file \"$TMP/two words\" yes\nshow 15\n close 0\n");
}

TEST(ScenarioPlayer, FolderThatCannotBeMadeFailsTheScenario) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("file", "x");
  const PlayResult inPlace = Play("host CompName x\nfolder " + file + "\n");
  EXPECT_FALSE(inPlace.passed);
  EXPECT_EQ(inPlace.line, 2);
  EXPECT_EQ(inPlace.expected, "the folder " + file + " to be made");
  EXPECT_EQ(inPlace.seen, "a file is in its place");
  EXPECT_FALSE(Play("folder " + file + "/below\n").passed);
}

TEST(ScenarioPlayer, EnterIsPressedWithShiftOrCtrlToo) {
  ExpectPassed("show 15\n key Tab\n key Enter\n expect text lblKeys \"down 13+0 makes 13 \"\n close 0\n");
  ExpectPassed("show 15\n key Tab\n key Shift+Enter\n expect text lblKeys \"down 13+1 makes 13 \"\n close 0\n");
  ExpectPassed("show 15\n key Tab\n key Ctrl+Enter\n expect text lblKeys \"down 13+2 makes 10 \"\n close 0\n");
}

// Several scenarios in one file.

std::vector<PlayResult> PlayAll(const std::string& text) {
  std::vector<PlayResult> results;
  ScriptedToolkit toolkit;
  for (const Scenario& scenario : ParseScenarios("s", text)) results.push_back(ScenarioPlayer(toolkit).Play(scenario));
  return results;
}

TEST(ScenarioPlayer, WhatStandsAheadIsPlayedForEachScenarioAfresh) {
  const std::vector<PlayResult> results = PlayAll(
      "host CompName Biller\nfolder $TMP/ahead\n"
      "scenario \"it leaves much behind\"\nhost CompName Other\nhost EnterName x\nfolder $TMP/own\n"
      "show 15\n type abc\n click cmdOK\nexpect chosen True\nexpect records 2\n"
      "scenario \"none of it is found\"\nexpect file $TMP/ahead yes\nexpect file $TMP/own no\nexpect records 0\n"
      "show 15\n expect title Biller\n expect text txtA \"\"\n expect chosen False\n click cmdOK\n"
      "expect record 2 PC4\n");
  ASSERT_EQ(results.size(), 2U);
  for (const PlayResult& result : results)
    EXPECT_TRUE(result.passed) << result.line << ": expected " << result.expected << ", saw " << result.seen;
}

TEST(ScenarioPlayer, WhatStandsAheadMayLeaveAFormUp) {
  const std::vector<PlayResult> results = PlayAll(
      "show 15\n type ab\n click cmdBox\n"
      "scenario closed\n expect message critical \"A box.\\nTwo lines.\"\n expect text txtA ab\n close 0\n"
      "scenario \"unclaimed\"\n close 0\n"
      "scenario \"left up\"\n expect message critical \"A box.\\nTwo lines.\"\n");
  ASSERT_EQ(results.size(), 3U);
  EXPECT_TRUE(results[0].passed) << results[0].seen;
  EXPECT_EQ(results[1].line, 3) << "the act stands ahead";
  EXPECT_EQ(results[1].expected, "nothing that no line expects");
  EXPECT_EQ(results[2].line, 11);
  EXPECT_EQ(results[2].seen, kLeftOpen);
}

TEST(ScenarioPlayer, FailsWithTheLineOfTheFile) {
  const std::vector<PlayResult> results = PlayAll(
      "host CompName Biller\n\nscenario a\nshow 15\n close 0\n\nscenario b\nshow 15\n expect title x\n close 0\n");
  ASSERT_EQ(results.size(), 2U);
  EXPECT_TRUE(results[0].passed);
  EXPECT_EQ(results[1].line, 9);
}

TEST(ScenarioPlayer, LocaleTakesEffectWhereverItStands) {
  const std::string seen = " expect text lblSeparator , \n close 0\n";
  ExpectPassed("locale fr-CA\nshow 15\n" + seen);
  ExpectPassed("host CompName x\nlocale fr-CA\nshow 15\n" + seen);
  ExpectPassed("show 15\n expect text lblSeparator .\n close 0\nlocale fr-CA\nshow 15\n" + seen);
  ExpectPassed("show 15\n" + seen, {.locale = "fr-CA"});
}

TEST(ScenarioPlayer, TodayIsADayOrAMoment) {
  ExpectPassed("today 2026-06-15\nshow 15\n expect text lblNow \"2026-06-15 12:00:00 a.m.\"\n close 0\n");
  ExpectPassed("today 2026-06-15 13:05:09\nshow 15\n expect text lblNow \"2026-06-15 1:05:09 p.m.\"\n close 0\n");
  ExpectPassed("show 15\n expect text lblNow \"2027-01-02 3:04:05 a.m.\"\n close 0\n",
               {.today = DateTime{{2027, 1, 2}, 3, 4, 5}});
  ExpectPassed("today 2026-06-15 13:05:09\nshow 15\n expect text lblNow \"2026-06-15 1:05:09 p.m.\"\n close 0\n",
               {.today = DateTime{{2027, 1, 2}, 3, 4, 5}});
}

TEST(ScenarioPlayer, PropertyThatFailsFailsTheScenario) {
  ExpectFailed("host SessionNumber 1e300\n", 1, "the property to take its value", "error 6, Overflow");
}

// What a watcher hears.

TEST(ScenarioPlayer, WatcherHearsWhatHappens) {
  std::vector<std::string> heard;
  PlayWatcher watcher;
  watcher.lineBegins = [&](const ScenarioLine& line) { heard.push_back("line " + std::to_string(line.number)); };
  watcher.handlerRuns = [&](const std::string& handler) { heard.push_back(handler); };
  watcher.boxAnswered = [&](const BoxRequest& box, MessageAnswer answer, Form* form) {
    EXPECT_NE(form, nullptr);
    heard.push_back(box.text + (answer == MessageAnswer::No ? " No" : " other"));
  };
  watcher.noticed = [&](const std::string& what) { heard.push_back(what); };
  watcher.showEnded = [&](const std::string& ending) { heard.push_back(ending); };
  watcher.ended = [&](const FoundRecords& found) {
    heard.push_back(std::to_string(found.records.size()) + " records");
  };
  EXPECT_TRUE(Play("show 15\n answer No\n click cmdAsk\n expect message question Sure?\n click cmdBeep\n expect beep\n"
                   " click cmdOK\n",
                   {}, watcher)
                  .passed);
  EXPECT_THAT(heard, ElementsAre("line 1", "Form_Load", "Form_Activate", "line 2", "line 3", "cmdAsk_Click", "Sure? No",
                                 "line 4", "line 5", "cmdBeep_Click", "beep", "line 6", "line 7", "cmdOK_Click",
                                 "result True", "2 records"));
}

// The line that shows a form ends twice: once with the form up, and when it is closed.
TEST(ScenarioPlayer, WatcherHearsWhichFormALineLeavesUp) {
  std::vector<std::string> heard;
  PlayWatcher watcher;
  watcher.lineEnds = [&](const ScenarioLine& line, const Form* form) {
    heard.push_back(std::to_string(line.number) + " " + (form == nullptr ? "none" : form->Name()));
  };
  EXPECT_TRUE(Play("show 15\n type a\n close 0\n", {}, watcher).passed);
  EXPECT_THAT(heard, ElementsAre("1 frmPlayed", "2 frmPlayed", "3 none", "1 none"));
}

TEST(ScenarioPlayer, ListWithoutRowsSaysSo) {
  PlayWatcher watcher;
  watcher.lineEnds = [](const ScenarioLine& /*line*/, Form* form) {
    if (form != nullptr)
      static_cast<ListControl&>(form->ControlNamed("lst")).Clear();
  };
  const PlayResult result = Play("show 15\n choose lst First\n", {}, watcher);
  EXPECT_EQ(result.line, 2);
  EXPECT_EQ(result.seen, "no rows");
}

}  // namespace
}  // namespace fiscalon
