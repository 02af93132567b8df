// The files that commands leave behind: whole, or their places untouched, whatever happens in between.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <utility>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kValidate = "fiscalon validate --payments trial.csv --records trial.pc4 --report ";

class OutputFiles : public CommandLine {
 protected:
  OutputFiles() { EXPECT_EQ(Run("fiscalon generate --payments 300 --screen 03 --out trial").status, 0); }

  /// All files of the folder, hidden ones too, but those of the batch that is there from the start.
  std::string Listed() const { return Run("ls -A | grep -v '^trial'").out; }
  std::string Path(std::string_view name) const { return Folder() + "/" + std::string(name); }
  mode_t ModeOf(std::string_view name) const {
    struct stat status = {};
    EXPECT_EQ(::stat(Path(name).c_str(), &status), 0);
    return status.st_mode & 0777;
  }
};

class PictureFiles : public OutputFiles {
 protected:
  void SetUp() override {
    if (!FISCALON_HAS_QT)
      GTEST_SKIP() << "this build has no Qt front end";
  }
};

TEST_F(OutputFiles, OfTwoRunsAtOnceAreEachWhole) {
  const Outcome seen = Run(std::string("for i in 1 2 3 4 5 6; do ") + kValidate + "report.csv & done; wait");
  EXPECT_THAT(seen.err, IsEmpty());
  EXPECT_EQ(Listed(), "report.csv\n");
  const Outcome alone = Run(std::string(kValidate) + "alone.csv");
  EXPECT_EQ(Read("report.csv"), Read("alone.csv"));
}

TEST_F(OutputFiles, LeaveFilesOfTheLikeOfTheirOwnNamesAlone) {
  Write("target", "mine");
  Write("report.csv.partial", "mine too");
  std::filesystem::create_symlink("target", Path("other.csv.partial"));
  EXPECT_EQ(::mkfifo(Path("third.csv.partial").c_str(), 0600), 0);
  for (const char* report : {"report.csv", "other.csv", "third.csv"})
    EXPECT_EQ(Run("timeout 20 '" FISCALON_PROGRAM "' validate --payments trial.csv --records trial.pc4 --report " +
                  std::string(report))
                  .status,
              0);
  EXPECT_EQ(Read("target"), "mine");
  EXPECT_EQ(Read("report.csv.partial"), "mine too");
  EXPECT_TRUE(std::filesystem::is_symlink(Path("other.csv.partial")));
  EXPECT_TRUE(std::filesystem::is_fifo(Path("third.csv.partial")));
}

TEST_F(OutputFiles, ReplaceAnOlderFileButNotItsPermissions) {
  Write("report.csv", "older");
  Run("chmod 640 report.csv; umask 077; " + std::string(kValidate) + "report.csv");
  EXPECT_THAT(Read("report.csv"), StartsWith("seq,"));
  EXPECT_EQ(ModeOf("report.csv"), mode_t{0640});
}

TEST_F(OutputFiles, AreMadeWithThePermissionsThatTheUserGivesNewFiles) {
  Run("umask 027; " + std::string(kValidate) + "report.csv");
  EXPECT_EQ(ModeOf("report.csv"), mode_t{0640});
}

TEST_F(OutputFiles, MayHaveTheLongestNameThereIs) {
  const std::string name(255, 'r');
  EXPECT_EQ(Run(kValidate + name).status, 0);
  EXPECT_THAT(Read(name), StartsWith("seq,"));
}

TEST_F(OutputFiles, FollowLinksToFilesThatAreNotThereYet) {
  std::filesystem::create_directory(Path("reports"));
  std::filesystem::create_symlink("reports/today.csv", Path("latest.csv"));
  std::filesystem::create_symlink("latest.csv", Path("report.csv"));
  EXPECT_EQ(Run(std::string(kValidate) + "report.csv").status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(Path("report.csv")));
  EXPECT_TRUE(std::filesystem::is_symlink(Path("latest.csv")));
  EXPECT_THAT(Read("reports/today.csv"), StartsWith("seq,"));
}

TEST_F(OutputFiles, HaveNoPlaceInACircleOfLinksNorInAFolder) {
  std::filesystem::create_symlink("b.csv", Path("a.csv"));
  std::filesystem::create_symlink("a.csv", Path("b.csv"));
  const Outcome circle = Run(std::string(kValidate) + "a.csv");
  EXPECT_EQ(circle.status, 2);
  EXPECT_EQ(circle.err, "fiscalon: a.csv can't be written: Too many levels of symbolic links\n");
  EXPECT_EQ(Run(std::string(kValidate) + ".").err, "fiscalon: . can't be written: Is a directory\n");
}

TEST_F(OutputFiles, GoToAPipeAsTheyCome) {
  EXPECT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(Run(std::string("cat pipe >got & ") + kValidate + "pipe; status=$?; wait; exit $status").status, 0);
  EXPECT_THAT(Read("got"), StartsWith("seq,screen,valid,reason\n"));
  EXPECT_TRUE(std::filesystem::is_fifo(Path("pipe")));
}

TEST_F(OutputFiles, GoToThePipeOfADescriptor) {
  EXPECT_EQ(Run(std::string("exec bash -c \"") + "'" FISCALON_PROGRAM
                                                 "' validate --payments trial.csv --records trial.pc4 --report >(gzip "
                                                 ">report.gz); wait \\$!\"")
                .err,
            "");
  EXPECT_THAT(Run("gunzip -c report.gz").out, StartsWith("seq,screen,valid,reason\n"));
  const Outcome seen = Run(std::string("{ ") + kValidate + "/dev/stderr 2>&1 >/dev/null; } | cat");
  EXPECT_THAT(seen.out, StartsWith("seq,screen,valid,reason\n"));
  EXPECT_THAT(Run(std::string("{ ") + kValidate + "/dev/fd/7 7>&1 >/dev/null; } | cat").out,
              StartsWith("seq,screen,valid,reason\n"));
}

TEST_F(OutputFiles, AreNotTwoOfOneNameWhateverTheName) {
  const std::string both = std::string(kValidate) + "- --faults ";
  // What is printed and what is written would take one another's place.
  EXPECT_EQ(Run(both + "out >out").err,
            "fiscalon: --report and --faults name one file\n"
            "Run \"fiscalon validate --help\" for its options.\n");
  EXPECT_EQ(Run(both + "/dev/stdout | cat").out, "");
  EXPECT_EQ(Run(both + "/dev/fd/7 7>&1 | cat").out, "");
  EXPECT_EQ(Run(both + "/dev/null >/dev/null").status, 0);
  std::filesystem::create_symlink("list.pc4", Path("list.csv"));
  const Outcome made = Run("fiscalon generate --payments 3 --screen 03 --out list --force");
  EXPECT_EQ(made.status, 2);
  EXPECT_EQ(made.err, "fiscalon: list.csv and list.pc4 are one file\n");
  EXPECT_TRUE(std::filesystem::is_symlink(Path("list.csv")));
}

TEST_F(OutputFiles, StandWhereNobodyTakesTheSummary) {
  for (const char* nobody : {">&-", ">/dev/full", "| true"}) {
    const Outcome seen = Run(std::string("{ ") + kValidate + "report.csv; echo $? >status; } " + nobody);
    EXPECT_EQ(Read("status"), "0\n") << nobody;
    EXPECT_THAT(Read("report.csv"), StartsWith("seq,"));
    std::filesystem::remove(Path("report.csv"));
  }
}

TEST_F(OutputFiles, NameTheFolderThatTakesNoFile) {
  if (!std::filesystem::is_directory("/sys/kernel"))
    GTEST_SKIP() << "no folder that takes no file of root's either";
  EXPECT_EQ(Run(std::string(kValidate) + "/sys/kernel/report.csv").err,
            "fiscalon: /sys/kernel/report.csv can't be written: its folder takes no new file: Permission denied\n");
}

TEST_F(OutputFiles, OfAKilledRunAreTakenAwayByTheNext) {
  EXPECT_EQ(Run("'" FISCALON_PROGRAM "' generate --payments 10000000000 --screen 03 --out long & program=$!\n"
                "until ls -A | grep -q '^.fiscalon-'; do :; done\n"
                "kill -KILL $program; wait $program")
                .status,
            128 + SIGKILL);
  EXPECT_THAT(Listed(), HasSubstr(".fiscalon-"));
  EXPECT_EQ(Run(std::string(kValidate) + "report.csv").status, 0);
  EXPECT_EQ(Listed(), "report.csv\n");
}

TEST_F(OutputFiles, OfARunThatStillGoesOnAreLeftAlone) {
  const Outcome seen =
      Run("env --default-signal '" FISCALON_PROGRAM
          "' generate --payments 10000000000 --screen 03 --out long & program=$!\n"
          "until [ $(ls -A | grep -c '^.fiscalon-') = 3 ]; do :; done\n" +
          std::string(kValidate) + "report.csv\nls -A | grep -c '^.fiscalon-'\nkill -INT $program; wait $program");
  EXPECT_THAT(seen.out, testing::EndsWith("\n3\n"));
  EXPECT_EQ(Listed(), "report.csv\n");
}

TEST_F(OutputFiles, StandardOutputHasItsOtherNamesToo) {
  const Outcome seen = Run(std::string(kValidate) + "/dev/stdout");
  EXPECT_THAT(seen.out, StartsWith("seq,screen,valid,reason\n"));
  EXPECT_EQ(seen.err, "300 payments: all valid\n");
}

TEST_F(OutputFiles, AreNeverWhatTheCommandReads) {
  std::filesystem::create_symlink("trial.csv", Path("link.csv"));
  std::filesystem::create_hard_link(Path("trial.pc4"), Path("other.pc4"));
  const std::string list = Read("trial.csv"), records = Read("trial.pc4");
  EXPECT_EQ(Run(std::string(kValidate) + "trial.csv").err,
            "fiscalon: trial.csv would take the place of trial.csv, which is read\n");
  EXPECT_EQ(Run(std::string(kValidate) + "link.csv").status, 2);
  EXPECT_EQ(Run(std::string(kValidate) + "other.pc4").status, 2);
  EXPECT_EQ(Run("fiscalon validate --payments - --records trial.pc4 --report trial.csv <trial.csv").err,
            "fiscalon: trial.csv would take the place of standard input, which is read\n");
  EXPECT_EQ(Run(std::string(kValidate) + "- >>trial.csv").err,
            "fiscalon: standard output would take the place of trial.csv, which is read\n");
  EXPECT_EQ(Read("trial.csv"), list);
  EXPECT_EQ(Read("trial.pc4"), records);
}

TEST_F(OutputFiles, ThatCannotGrowLeaveTheirPlaceAsItWas) {
  Write("report.csv", "older");
  // One block: less than any report of 300 payments.
  const Outcome seen = Run(std::string("ulimit -f 1; ") + kValidate + "report.csv");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: report.csv can't be written: File too large\n");
  EXPECT_EQ(Read("report.csv"), "older");
  EXPECT_EQ(Listed(), "report.csv\n");
}

TEST_F(OutputFiles, OfABatchAreNotReplacedUnlessForced) {
  const std::string list = Read("trial.csv");
  for (const char* missing : {"trial.csv", "trial.pc4"}) {
    std::filesystem::remove(Path(missing));
    const Outcome seen = Run("fiscalon generate --payments 5 --screen 03 --out trial");
    EXPECT_EQ(seen.status, 2);
    EXPECT_THAT(seen.err, HasSubstr(" exists already; --force replaces it\n"));
    EXPECT_FALSE(std::filesystem::exists(Path(missing)));
  }
  EXPECT_EQ(Run("fiscalon generate --payments 300 --screen 03 --out trial --force").status, 0);
  EXPECT_EQ(Read("trial.csv"), list);
}

TEST_F(OutputFiles, OfABatchAppearTogetherOrNotAtAll) {
  const Outcome seen = Run("ulimit -f 20; fiscalon generate --payments 300 --screen 03 --out new");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: new.pc4 can't be written: File too large\n");
  EXPECT_THAT(Listed(), IsEmpty());
  const std::string list = Read("trial.csv");
  Run("ulimit -f 20; fiscalon generate --payments 300 --screen 20 --out trial --force");
  EXPECT_EQ(Read("trial.csv"), list);
  EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(OutputFiles, OfABatchGoBackWhereTheLastHasNoPlace) {
  const std::string list = Read("trial.csv");
  // Both names lead to one place, which the second finds taken.
  std::filesystem::remove(Path("trial.planted.csv"));
  std::filesystem::create_symlink("new", Path("a.csv"));
  std::filesystem::create_symlink("new", Path("a.planted.csv"));
  const Outcome seen = Run("fiscalon generate --payments 5 --screen 03 --out a");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(Listed(), "a.csv\na.planted.csv\n");
  EXPECT_EQ(Read("trial.csv"), list);
}

TEST_F(OutputFiles, OfABatchAreNotThereAfterAnInterrupt) {
  const std::pair<const char*, int> signals[] = {{"INT", SIGINT}, {"TERM", SIGTERM}, {"HUP", SIGHUP}};
  for (const auto& [name, signal] : signals) {
    // It would take hours. A shell has its background ignore SIGINT unless told otherwise.
    const Outcome seen = Run(std::string("env --default-signal '" FISCALON_PROGRAM
                                         "' generate --payments 10000000000 --screen 03 --out long & program=$!\n"
                                         "until ls -A | grep -q '^.fiscalon-'; do :; done\n"
                                         "kill -") +
                             name + " $program; wait $program");
    EXPECT_THAT(seen.err, StartsWith("fiscalon: interrupted\n")) << name;
    // A shell's loop ends with a program that a signal has ended.
    EXPECT_EQ(seen.status, 128 + signal) << name;
    EXPECT_THAT(Listed(), IsEmpty()) << name;
  }
}

TEST_F(OutputFiles, AreGoneWhenASecondInterruptEndsTheProgramAtOnce) {
  EXPECT_EQ(::mkfifo(Path("list").c_str(), 0600), 0);
  // Nobody opens the other end of the pipe: the program can't come to its own end.
  EXPECT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  const Outcome seen =
      Run("env --default-signal '" FISCALON_PROGRAM
          "' validate --payments trial.csv --records trial.pc4 --report report.csv --faults pipe & program=$!\n"
          "until ls -A | grep -q '^.fiscalon-'; do :; done\n"
          "kill -INT $program; kill -TERM $program; wait $program");
  EXPECT_GT(seen.status, 128);
  EXPECT_THAT(Run("ls -A | grep '^.fiscalon-'").out, IsEmpty());
}

TEST_F(OutputFiles, AreNotNamedByAnEmptyVariable) {
  for (const char* arguments :
       {"validate --payments trial.csv --records trial.pc4 --report \"$none\"",
        "validate --payments \"$none\" --records trial.pc4", "validate --payments trial.csv --records \"$none\"",
        "validate --screen 03 --amount 1 \"$none\"", "generate --payments 1 --screen 03 --out \"$none\"",
        "picture 15 --out \"$none\"", "picture 15 --out a.png --scenario \"$none\"", "collect 15 --record \"$none\"",
        "collect 15 --gov-filename \"$none\"", "collect 15 --main-path \"$none\"", "show \"$none\"",
        "play \"$none\""}) {
    const Outcome seen = Run(std::string("fiscalon ") + arguments);
    EXPECT_EQ(seen.status, 2) << arguments;
    EXPECT_THAT(seen.err, HasSubstr("a name is needed, and it is empty")) << arguments;
  }
  const Outcome seen = Run("fiscalon validate --payments trial.csv --records trial.pc4 --report=$none");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: --report= has no value behind it\n");
  EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(PictureFiles, AreWholeOrNotThere) {
  Write("15.png", "older");
  const Outcome seen = Run("ulimit -f 1; fiscalon picture 15 --out 15.png");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: 15.png can't be written: File too large\n");
  EXPECT_EQ(Read("15.png"), "older");
  EXPECT_EQ(Listed(), "15.png\n");
  EXPECT_EQ(Run("fiscalon picture 15 --out /dev/full").err,
            "fiscalon: /dev/full can't be written: No space left on device\n");
}

TEST_F(PictureFiles, AreNotMadeAtAScaleThatIsNone) {
  Write("15.png", "older");
  for (const char* scale : {"nan", "inf", "-nan", "0.49", "4.01", "1x", "''"}) {
    const Outcome seen = Run(std::string("fiscalon picture 15 --out 15.png --scale ") + scale);
    EXPECT_EQ(seen.status, 2) << scale;
    EXPECT_THAT(seen.err, HasSubstr("is no number from 0.5 to 4")) << scale;
  }
  EXPECT_EQ(Read("15.png"), "older");
}

TEST_F(PictureFiles, AreNeverTheirScenario) {
  const std::string scenario = "host PaidAmount 12345\nshow 15\nclose 1\n";
  Write("fill.scenario", scenario);
  EXPECT_EQ(Run("fiscalon picture 15 --scenario fill.scenario --out ./fill.scenario").err,
            "fiscalon: ./fill.scenario would take the place of fill.scenario, which is read\n");
  EXPECT_EQ(Read("fill.scenario"), scenario);
}

}  // namespace
}  // namespace fiscalon
