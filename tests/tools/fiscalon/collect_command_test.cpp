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
  EXPECT_EQ(seen.err,
            "fiscalon: there is no screen \"99\"; the codes are 01, 02, 03, 04, 05, 06, 07, 08, 10, 11, 14, 15, 16, "
            "17, 18, 19, 20, 25, 26, 27, 28\nRun \"fiscalon collect --help\" for its options.\n");
}

TEST_F(CollectCommand, HasAnOptionForEachPropertyOfTheHost) {
  const std::string help = Run("fiscalon collect --help").out;
  for (const char* option :
       {"--zelmor-number", "--comp-code", "--comp-name", "--account-number", "--paid-amount", "--paid-date",
        "--number-of-info-collect", "--gov-filename", "--enter-name", "--enter-title", "--ap-hold-flg", "--seq-number",
        "--business-name", "--write-file", "--play-by-play-enabled", "--main-path", "--session-number"})
    EXPECT_THAT(help, HasSubstr(std::string(option) + " VALUE"));
}

TEST_F(CollectCommand, RefusesAValueThatThePropertyDoesNotTake) {
  const Outcome seen = Collect("15 --ap-hold-flg 300");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, HasSubstr("--ap-hold-flg: APHoldFlg takes a whole number from 0 to 255, not \"300\""));
}

TEST_F(CollectCommandWithQt, TellsWhatAPropertyRaises) {
  const Outcome seen = Collect("15 --paid-amount 1e999");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, HasSubstr("fiscalon: --paid-amount: error 6, Overflow\n"
                                  "  PaidAmount takes cents as digits, such as 12345.\n"));
}

TEST_F(CollectCommandWithQt, WantsADisplay) {
  const Outcome seen =
      Run("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM && timeout 20 '" FISCALON_PROGRAM "' collect 15");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_EQ(seen.err, "fiscalon: there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY\n");
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
