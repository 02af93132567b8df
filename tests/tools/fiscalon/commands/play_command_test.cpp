#include <gmock/gmock.h>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class PlayCommand : public CommandLine {
 protected:
  PlayCommand() {
    Write("good.scenario", "show 15\n  key Escape\nexpect result False\n");
    Write("bad.scenario", "# cancelled, and yet\nshow 15\n  key Escape\nexpect result True\nexpect records 0\n");
    Write("senseless.scenario", "show 15\n  press cmdOK\n");
    // A folder is made for a scenario that names it.
    Write("folder.scenario", "folder $TMP/a\nshow 15\n  key Escape\nexpect result False\n");
  }
};

TEST_F(PlayCommand, SaysWhichScenariosPassed) {
  const Outcome seen = Run("fiscalon play good.scenario good.scenario");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "ok   good.scenario\nok   good.scenario\n2 passed, 0 failed\n");
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(PlayCommand, SaysWhichLineFailedAndWhatWasSeen) {
  const Outcome seen = Run("fiscalon play bad.scenario good.scenario");
  EXPECT_EQ(seen.status, 1);
  EXPECT_EQ(seen.out,
            "FAIL bad.scenario:4: expect result True\n"
            "     expected: result True\n"
            "     seen:     result False\n"
            "ok   good.scenario\n"
            "1 passed, 1 failed\n");
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(PlayCommand, NamesTheLineWithoutItsIndentation) {
  Write("a.scenario", "show 15\n\t  expect focus cmdOK  # not yet\n  key Escape\n");
  EXPECT_THAT(Run("fiscalon play a.scenario").out, StartsWith("FAIL a.scenario:2: expect focus cmdOK  # not yet\n"
                                                              "     expected: cmdOK\n"
                                                              "     seen:     txtRemittancePeriod\n"));
}

TEST_F(PlayCommand, PlaysAFileForEachOfItsScreens) {
  Write("two.scenario",
        "screens 15 17\nscenario a\nshow $SCREEN\n  click $CANCEL\nexpect result False\n"
        "scenario b\nshow $SCREEN\n  close 0\nexpect result True\n");
  Outcome seen = Run("fiscalon play two.scenario");
  EXPECT_EQ(seen.status, 1);
  EXPECT_EQ(seen.out,
            "ok   two.scenario: a (15)\n"
            "FAIL two.scenario: b (15)\n"
            "     two.scenario:9: expect result True\n"
            "     expected: result True\n"
            "     seen:     result False\n"
            "ok   two.scenario: a (17)\n"
            "FAIL two.scenario: b (17)\n"
            "     two.scenario:9: expect result True\n"
            "     expected: result True\n"
            "     seen:     result False\n"
            "2 passed, 2 failed\n");
  seen = Run("fiscalon play --only a two.scenario");
  EXPECT_EQ(seen.out, "ok   two.scenario: a (15)\nok   two.scenario: a (17)\n2 passed, 0 failed\n");
  seen = Run("fiscalon play --only 'a (17)' two.scenario");
  EXPECT_EQ(seen.out, "ok   two.scenario: a (17)\n1 passed, 0 failed\n");
}

TEST_F(PlayCommand, RefusesWhatItsScreensLack) {
  Write("no.scenario", "screens 15 71\nshow $SCREEN\n  click $CANCEL\n");
  Outcome seen = Run("fiscalon play no.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "no.scenario:1: there is no screen \"71\"; did you mean \"01\"?\n");
  Write("no.scenario", "screens 02 15\nshow $SCREEN\n  click $HELP\n");
  seen = Run("fiscalon play no.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "0 passed, 0 failed\n") << "nothing of it is played";
  EXPECT_EQ(seen.err, "no.scenario:3: the screen \"15\" has no button \"Help\" for \"$HELP\"\n");
}

TEST_F(PlayCommand, FailsWhereABoxIsNotClaimed) {
  Write("a.scenario", "today 2026-06-15\nshow 15\n  click cmdOK\n  key Escape\n");
  EXPECT_EQ(
      Run("fiscalon play a.scenario").out,
      "FAIL a.scenario:3: click cmdOK\n"
      "     expected: nothing that no line expects\n"
      "     seen:     message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range "
      "from 199001 to 202705.\"\n"
      "0 passed, 1 failed\n");
}

TEST_F(PlayCommand, FailsWhereTheFormStaysOpen) {
  Write("a.scenario", "show 15\n");
  EXPECT_EQ(Run("fiscalon play a.scenario").out,
            "FAIL a.scenario:1: show 15\n"
            "     expected: the form to be closed\n"
            "     seen:     \"frmDueDateAmount\" is still open where the scenario ends\n"
            "0 passed, 1 failed\n");
}

TEST_F(PlayCommand, NamesAnErrorThatNoLineExpects) {
  Write("a.scenario", "show 12\n");
  const Outcome seen = Run("fiscalon play a.scenario");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out, HasSubstr("Invalid Screen Type"));
}

TEST_F(PlayCommand, PlaysTheOtherFilesWhereOneMakesNoSense) {
  const Outcome seen = Run("fiscalon play senseless.scenario good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "ok   good.scenario\n1 passed, 0 failed\n");
  EXPECT_EQ(seen.err, "senseless.scenario:2: \"press\" is nothing that a scenario can say; did you mean \"paste\"?\n");
}

TEST_F(PlayCommand, PlaysTheOtherFilesWhereOneMakesNoSenseForItsForm) {
  Write("a.scenario", "show 15\n  click cmdHelp\n");
  const Outcome seen = Run("fiscalon play a.scenario good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "ok   good.scenario\n1 passed, 0 failed\n");
  EXPECT_THAT(seen.err, StartsWith("a.scenario:2: \"frmDueDateAmount\" has no control \"cmdHelp\"; it has "));
}

TEST_F(PlayCommand, UnusableFilesWeighMoreThanFailures) {
  const Outcome seen = Run("fiscalon play bad.scenario senseless.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, HasSubstr("\n0 passed, 1 failed\n"));
}

TEST_F(PlayCommand, SaysWhichFileIsMissing) {
  const Outcome seen = Run("fiscalon play nowhere.scenario good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "ok   good.scenario\n1 passed, 0 failed\n");
  EXPECT_EQ(seen.err, "nowhere.scenario:0: the file can't be read: No such file or directory\n");
}

TEST_F(PlayCommand, RefusesAFolderAndSaysToNameFiles) {
  const Outcome seen = Run("mkdir flows; fiscalon play flows");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "flows:0: a folder; name the scenario files in it, such as flows/*.scenario\n");
}

TEST_F(PlayCommand, RefusesWhatIsNoText) {
  Write("empty.scenario", "");
  Write("binary.scenario", std::string_view("\x7F"
                                            "ELF\0\x01\n",
                                            7));
  EXPECT_EQ(Run("fiscalon play empty.scenario").err, "empty.scenario:1: the scenario is empty\n");
  EXPECT_EQ(Run("fiscalon play binary.scenario").status, 2);
}

TEST_F(PlayCommand, SpeaksUtf8) {
  Write("Québec.scenario", "host CompName \"Trésor\"\nshow 15\n  expect title \"Tresor\"\n");
  EXPECT_EQ(Run("fiscalon play Québec.scenario").out,
            "FAIL Québec.scenario:3: expect title \"Tresor\"\n"
            "     expected: Tresor\n"
            "     seen:     Trésor\n"
            "0 passed, 1 failed\n");
}

TEST_F(PlayCommand, StartsEachScenarioAfresh) {
  Write("chosen.scenario",
        "today 2026-06-15\nhost PaidAmount 12345\nshow 15\n  type 202612\n  type 12345\n  click cmdOK\nexpect chosen "
        "True\n");
  Write("fresh.scenario", "show 15\n  close 0\nexpect chosen False\nexpect records 0\n");
  EXPECT_EQ(Run("fiscalon play chosen.scenario fresh.scenario").out,
            "ok   chosen.scenario\nok   fresh.scenario\n2 passed, 0 failed\n");
}

TEST_F(PlayCommand, LeavesNoFolderBehind) {
  const Outcome seen =
      Run("mkdir tmp; TMPDIR=$PWD/tmp fiscalon play folder.scenario bad.scenario senseless.scenario "
          ">played; ls tmp");
  EXPECT_THAT(seen.out, IsEmpty());
}

TEST_F(PlayCommand, NamesWhatSaysWhereTemporaryFoldersGo) {
  for (const char* folder : {"/nowhere", ""}) {
    const Outcome seen = Run("TMPDIR='" + std::string(folder) + "' fiscalon play folder.scenario");
    EXPECT_EQ(seen.status, 2);
    EXPECT_EQ(seen.err,
              "folder.scenario:0: no temporary folder can be made where TMPDIR says: No such file or directory\n");
  }
}

// Several scenarios in one file.

TEST_F(PlayCommand, SaysByNameWhichScenariosOfAFilePassed) {
  Write("two.scenario",
        "host CompName x\nscenario \"the first\"\nshow 15\n  close 0\nscenario second\nshow 15\n  close 1\n");
  const Outcome seen = Run("fiscalon play two.scenario good.scenario");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out,
            "ok   two.scenario: the first\nok   two.scenario: second\nok   good.scenario\n3 passed, 0 failed\n");
}

TEST_F(PlayCommand, SaysWhichScenarioOfAFileFailedAndWhere) {
  Write("two.scenario",
        "scenario \"the first\"\nshow 15\n  expect focus cmdOK\n  close 0\nscenario second\nshow 15\n  close 1\n");
  const Outcome seen = Run("fiscalon play two.scenario");
  EXPECT_EQ(seen.status, 1);
  EXPECT_EQ(seen.out,
            "FAIL two.scenario: the first\n"
            "     two.scenario:3: expect focus cmdOK\n"
            "     expected: cmdOK\n"
            "     seen:     txtRemittancePeriod\n"
            "ok   two.scenario: second\n"
            "1 passed, 1 failed\n");
}

TEST_F(PlayCommand, PlaysTheOthersOfAFileWhereOneMakesNoSenseForItsForm) {
  Write("two.scenario", "scenario first\nshow 15\n  click cmdHelp\nscenario second\nshow 15\n  close 0\n");
  const Outcome seen = Run("fiscalon play two.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "ok   two.scenario: second\n1 passed, 0 failed\n");
  EXPECT_THAT(seen.err, StartsWith("two.scenario:3: \"frmDueDateAmount\" has no control \"cmdHelp\"; it has "));
}

TEST_F(PlayCommand, StartsEachScenarioOfAFileAfresh) {
  Write("two.scenario",
        "today 2026-06-15\nhost PaidAmount 12345\n"
        "scenario \"it leaves records\"\nshow 15\n  type 202612\n  type 12345\n  click cmdOK\nexpect chosen True\n"
        "scenario \"there are none\"\nshow 15\n  close 0\nexpect chosen False\nexpect records 0\n");
  EXPECT_EQ(Run("fiscalon play two.scenario").status, 0);
}

TEST_F(PlayCommand, PlaysOnlyWhatIsNamed) {
  Write("two.scenario", "scenario \"the first\"\nshow 15\n  close 0\nscenario second\nshow 15\n  expect focus cmdOK\n");
  const Outcome seen = Run("fiscalon play --only 'the first' two.scenario good.scenario");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "ok   two.scenario: the first\n1 passed, 0 failed\n");
}

TEST_F(PlayCommand, SaysWhereNoScenarioHasTheName) {
  const Outcome seen = Run("fiscalon play --only first good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.out, "0 passed, 0 failed\n");
  EXPECT_EQ(seen.err, "fiscalon: no scenario is named \"first\"\n");
}

TEST_F(PlayCommand, SaysWhereTheBuildHasNoQtFrontEnd) {
  if (FISCALON_HAS_QT)
    GTEST_SKIP() << "this build has one";
  const Outcome seen = Run("fiscalon play --toolkit qt good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_EQ(seen.err, "fiscalon: this build has no Qt front end; build it with FISCALON_QT=ON\n");
}

TEST_F(PlayCommand, NamesTheFrontEndThatIsNotWhereItWasInstalled) {
  if (!FISCALON_HAS_QT)
    GTEST_SKIP() << "this build has none";
  ASSERT_EQ(Run("mkdir bin && cp '" FISCALON_PROGRAM "' bin/").status, 0);
  const Outcome seen = Run("bin/fiscalon play --toolkit qt good.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_THAT(seen.err, HasSubstr("fiscalon-qt can't be started: No such file or directory; the "
                                  "package fiscalon-tools-qt has it\n"));
}

TEST_F(PlayCommand, TakesTheFrontEndByName) {
  EXPECT_EQ(Run("fiscalon play --toolkit scripted good.scenario").status, 0);
}

}  // namespace
}  // namespace fiscalon
