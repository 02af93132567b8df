#include <gmock/gmock.h>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// What is found out before a user sees a form. Users at forms are in tests/frontends/qt.
class CollectCommand : public CommandLine {
 protected:
  /// A command that is to end by itself; a form that were shown would wait for its user.
  Outcome Collect(const std::string& arguments) const {
    return Run("export QT_QPA_PLATFORM=offscreen && timeout 20 '" FISCALON_PROGRAM "' collect " + arguments);
  }
};

/// They need a front end to get as far as that.
class CollectCommandWithQt : public CollectCommand {
 protected:
  void SetUp() override {
    if (!FISCALON_HAS_QT)
      GTEST_SKIP() << "this build has no Qt front end";
  }
};

TEST_F(CollectCommand, SaysWhereTheBuildHasNoQtFrontEnd) {
  if (FISCALON_HAS_QT)
    GTEST_SKIP() << "this build has one";
  const Outcome seen = Collect("15");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: this build has no Qt front end; build it with FISCALON_QT=ON\n");
}

TEST_F(CollectCommand, WantsAScreen) {
  const Outcome seen = Collect("");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, HasSubstr("CODE is required"));
}

TEST_F(CollectCommand, NamesTheScreensThereAre) {
  const Outcome seen = Collect("99");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: there is no screen \"99\"; the codes are " + EveryScreenCode() +
                          "\nRun \"fiscalon collect --help\" for its options.\n");
}

TEST_F(CollectCommand, HasAnOptionForEachPropertyOfTheHost) {
  const std::string help = Run("fiscalon collect --help").out;
  for (const char* option :
       {"--zelmor-number", "--comp-code", "--comp-name", "--account-number", "--paid-amount", "--paid-date",
        "--number-of-info-collect", "--gov-filename", "--enter-name", "--enter-title", "--ap-hold-flg", "--seq-number",
        "--business-name", "--write-file", "--play-by-play-enabled", "--main-path", "--session-number"})
    EXPECT_THAT(help, HasSubstr(std::string(option) + " VALUE"));
}

/// A value that an option refuses, and the whole complaint. Options that take any text are those of the next test.
TEST_F(CollectCommandWithQt, NamesTheOptionAndWhatItTakes) {
  struct Row {
    const char* given;
    const char* complaint;
  };
  constexpr Row kRows[] = {
      {"--paid-amount 1e999", "--paid-amount: error 6, Overflow\n  PaidAmount takes cents as digits, such as 12345.\n"},
      {"--gov-filename ''", "--gov-filename: a name is needed, and it is empty\n"},
      {"--gov-filename .", ". can't be written: it is a folder\n"},
      {"--ap-hold-flg 300", "--ap-hold-flg: APHoldFlg takes a whole number from 0 to 255, not \"300\"\n"},
      {"--ap-hold-flg -1", "--ap-hold-flg: APHoldFlg takes a whole number from 0 to 255, not \"-1\"\n"},
      {"--write-file yes", "--write-file: WriteFile takes True, False or a number from -32768 to 32767, not \"yes\"\n"},
      {"--write-file 32768",
       "--write-file: WriteFile takes True, False or a number from -32768 to 32767, not \"32768\"\n"},
      {"--play-by-play-enabled ''",
       "--play-by-play-enabled: PlayByPlayEnabled takes True, False or a number from -32768 to 32767, not \"\"\n"},
      {"--main-path ''", "--main-path: a name is needed, and it is empty\n"},
      {"--session-number one", "--session-number: SessionNumber takes a number, not \"one\"\n"},
      {"--session-number inf", "--session-number: SessionNumber takes a number, not \"inf\"\n"},
      {"--record ''", "--record: a name is needed, and it is empty\n"},
  };
  for (const Row& row : kRows) {
    const Outcome seen = Collect(std::string("15 ") + row.given);
    EXPECT_EQ(seen.status, 2) << row.given;
    EXPECT_EQ(seen.err.substr(0, seen.err.find("Run \"fiscalon")), std::string("fiscalon: ") + row.complaint);
  }
}

TEST_F(CollectCommandWithQt, TakesAnyTextWhereALevyraDoes) {
  for (const char* option :
       {"--zelmor-number", "--comp-code", "--comp-name", "--account-number", "--paid-amount", "--paid-date",
        "--number-of-info-collect", "--enter-name", "--enter-title", "--seq-number", "--business-name"})
    for (const char* text : {"''", "'Hélène \"Côté\"'", "-1"}) {
      const Outcome seen = Run("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM && fiscalon collect 15 " +
                               std::string(option) + " " + text);
      EXPECT_THAT(seen.err, HasSubstr("there is no display")) << option << " " << text;
    }
}

TEST_F(CollectCommandWithQt, WantsADisplayOrATerminal) {
  const Outcome seen =
      Run("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM && timeout 20 '" FISCALON_PROGRAM "' collect 15 </dev/null");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_EQ(seen.err,
            "fiscalon: there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY; standard input is no "
            "terminal; start it in one, without a pipe\n");
}

TEST_F(CollectCommand, WantsATerminalWhereFormsAreToBeShownOnOne) {
  const Outcome seen = Collect("15 --toolkit terminal </dev/null");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_EQ(seen.err, "fiscalon: standard input is no terminal; start it in one, without a pipe\n");
}

TEST_F(CollectCommand, KnowsWhichFrontEndsShowForms) {
  EXPECT_EQ(Collect("15 --toolkit scripted").err, "fiscalon: the front end scripted shows forms to nobody\n");
  EXPECT_THAT(Collect("15 --toolkit paper").err, HasSubstr("\"paper\" is none of "));
}

TEST_F(CollectCommand, FindsOutBeforeWhetherTheSessionCanBeWrittenDown) {
  const Outcome seen = Collect("15 --record nowhere/my.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: nowhere/my.scenario can't be written: No such file or directory\n");
}

TEST_F(CollectCommand, LeavesAnEarlierRecordingAloneUntilThereIsANewOne) {
  Write("my.scenario", "an earlier one");
  EXPECT_EQ(Collect("15 --record my.scenario --gov-filename nowhere/payment.pc4").status, 2);
  EXPECT_EQ(Read("my.scenario"), "an earlier one");
  EXPECT_EQ(Run("ls").out, "my.scenario\n");
}

TEST_F(CollectCommand, FindsOutBeforeWhetherRecordsHaveAPlace) {
  EXPECT_EQ(Collect("15 --gov-filename nowhere/payment.pc4").err,
            "fiscalon: nowhere/payment.pc4 can't be written: there is no folder " + Folder() + "/nowhere\n");
  EXPECT_EQ(Collect("15 --gov-filename .").err, "fiscalon: . can't be written: it is a folder\n");
}

TEST_F(CollectCommand, KeepsRecordsAndRecordingApart) {
  const Outcome seen = Collect("15 --gov-filename payment.pc4 --record ./payment.pc4");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: --gov-filename and --record name the same file\n");
}

}  // namespace
}  // namespace fiscalon
