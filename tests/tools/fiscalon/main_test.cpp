#include <gmock/gmock.h>

#include <csignal>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Program = CommandLine;

// A scenario that passes on June 15, 2026 alone: the message names the month before June of the next year.
constexpr std::string_view kJune2026 =
    "show 15\n"
    "  type 202706\n"
    "  expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 "
    "to 202705.\"\n"
    "  key Escape\n";

// Passes where the amount to be paid is shown as in Quebec.
constexpr std::string_view kFrench =
    "host PaidAmount 12345\n"
    "show 15\n"
    "  expect text lblAmountPaid \"123,45 $\"\n"
    "  key Escape\n";

TEST_F(Program, PrintsItsVersion) {
  const Outcome seen = Run("fiscalon --version");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "fiscalon 1.0.0\n");
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(Program, HelpsOnStandardOutputWithExamples) {
  const Outcome seen = Run("fiscalon --help");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out, HasSubstr("Usage: fiscalon [OPTIONS] SUBCOMMAND"));
  for (const char* each :
       {"--today DATE", "--locale NAME", "--language NAME", "--version", "Examples:", "  fiscalon screens\n"})
    EXPECT_THAT(seen.out, HasSubstr(each));
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(Program, HelpsWithExamplesOnEachCommand) {
  for (const std::string command : {"screens", "play", "show"}) {
    const Outcome seen = Run("fiscalon " + command + " --help");
    EXPECT_EQ(seen.status, 0) << command;
    EXPECT_THAT(seen.out, HasSubstr("Usage: fiscalon " + command));
    EXPECT_THAT(seen.out, HasSubstr("Examples:\n  fiscalon " + command));
    EXPECT_THAT(seen.err, IsEmpty());
  }
}

TEST_F(Program, EndsWithTwoOnBadUsage) {
  for (const char* commandLine :
       {"fiscalon", "fiscalon nonsense", "fiscalon --nonsense", "fiscalon play", "fiscalon show", "fiscalon show a b",
        "fiscalon screens a", "fiscalon play --toolkit motif a.scenario", "fiscalon play --transcript --narrate a",
        "fiscalon screens --locale xx-XX", "fiscalon screens --today", "fiscalon screens --today 2026-02-30",
        "fiscalon screens --today 15/06/2026", "fiscalon screens --today '2026-06-15 '",
        "fiscalon screens --today '2026-06-15 25:00'", "fiscalon screens play"}) {
    const Outcome seen = Run(commandLine);
    EXPECT_EQ(seen.status, 2) << commandLine;
    EXPECT_THAT(seen.out, IsEmpty()) << commandLine;
    EXPECT_THAT(seen.err, StartsWith("fiscalon: ")) << commandLine;
  }
}

TEST_F(Program, NamesWhatItDoesNotKnowAndTheNearestThatItDoes) {
  const std::pair<const char*, std::string> rows[] = {
      {"vaildate", "there is no command \"vaildate\"; did you mean \"validate\"?"},
      {"Show a.pc4", "there is no command \"Show\"; did you mean \"show\"?"},
      {"--locale en-CA shw a.pc4", "there is no command \"shw\"; did you mean \"show\"?"},
      {"zzzzzzzz", "there is no command \"zzzzzzzz\""},
      {"--verison", "there is no option \"--verison\"; did you mean \"--version\"?"},
      {"validate --reprot a.csv", "there is no option \"--reprot\"; did you mean \"--report\"?"},
      {"show --locael en-CA a", "there is no option \"--locael\"; did you mean \"--locale\"?"},
      {"show a b", "\"b\" is one argument too many"},
      {"play --toolkit qtt a", "--toolkit: \"qtt\" is none of scripted, qt, terminal; did you mean \"qt\"?"},
      {"screens --locale fr-ca", "--locale: \"fr-ca\" is none of en-CA, en-US, fr-CA, system; did you mean \"fr-CA\"?"},
      {"generate --payments 1 --screen 3", "--screen: \"3\" is none of 03, 20; did you mean \"03\"?"},
      {"show --screen 3 a", "there is no screen \"3\"; the codes are " + EveryScreenCode() + "; did you mean \"03\"?"},
  };
  for (const auto& [arguments, complaint] : rows) {
    const Outcome seen = Run(std::string("fiscalon ") + arguments);
    EXPECT_EQ(seen.status, 2) << arguments;
    EXPECT_THAT(seen.err, StartsWith("fiscalon: " + complaint + "\n")) << arguments;
  }
}

TEST_F(Program, PointsToTheHelpOfTheCommandThatWasMeant) {
  const std::pair<const char*, const char*> rows[] = {
      {"validate", "Run \"fiscalon validate --help\" for its options.\n"},
      {"validate --payments a.csv", "Run \"fiscalon validate --help\" for its options.\n"},
      {"play", "Run \"fiscalon play --help\" for its options.\n"},
      {"show --nonsense a", "Run \"fiscalon show --help\" for its options.\n"},
      {"generate --payments x --screen 03", "Run \"fiscalon generate --help\" for its options.\n"},
      {"picture 99 --out a.png", "Run \"fiscalon picture --help\" for its options.\n"},
      {"nonsense", "Run \"fiscalon --help\" for the commands.\n"},
      {"", "Run \"fiscalon --help\" for the commands.\n"},
  };
  for (const auto& [arguments, help] : rows)
    EXPECT_THAT(Run(std::string("fiscalon ") + arguments).err, testing::EndsWith(help)) << arguments;
}

TEST_F(Program, SaysWhatADateLooksLike) {
  EXPECT_THAT(Run("fiscalon --today tomorrow screens").err,
              HasSubstr("expected a date such as 2026-06-15 or \"2026-06-15 13:05:09\", not \"tomorrow\""));
}

TEST_F(Program, TakesTodayBeforeAndBehindTheCommand) {
  Write("june.scenario", kJune2026);
  EXPECT_EQ(Run("fiscalon --today 2026-06-15 play june.scenario").status, 0);
  EXPECT_EQ(Run("fiscalon play --today 2026-06-15 june.scenario").status, 0);
  EXPECT_EQ(Run("fiscalon play june.scenario --today '2026-06-30 23:59:59'").status, 0);
  EXPECT_EQ(Run("fiscalon --today 2026-07-01 play june.scenario").status, 1);
}

TEST_F(Program, TakesTheLocaleBeforeAndBehindTheCommand) {
  Write("french.scenario", kFrench);
  EXPECT_EQ(Run("fiscalon --locale fr-CA play french.scenario").status, 0);
  EXPECT_EQ(Run("fiscalon play french.scenario --locale fr-CA").status, 0);
  EXPECT_EQ(Run("fiscalon play french.scenario --locale en-US").status, 1);
  EXPECT_EQ(Run("fiscalon play french.scenario").status, 1);
}

TEST_F(Program, TakesTheLanguageOfForms) {
  Write("french.scenario", "host PaidAmount 100\nshow 15\n  expect text cmdCancel Annuler\n  key Escape\n");
  EXPECT_EQ(Run("fiscalon play french.scenario --language fr").status, 0);
  EXPECT_EQ(Run("fiscalon play french.scenario").status, 1);
  EXPECT_THAT(Run("fiscalon play french.scenario --language de").err, HasSubstr("\"de\" is none of en, fr"));
}

TEST_F(Program, TakesGlobalOptionsOnEveryCommand) {
  Write("good.pc4", Line(Ruled("PC40001T")));
  EXPECT_EQ(Run("fiscalon screens --today 2026-06-15 --locale fr-CA").status, 0);
  EXPECT_EQ(Run("fiscalon show --today 2026-06-15 --locale fr-CA good.pc4").status, 0);
}

TEST_F(Program, SaysWhereMemoryDoesNotDo) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer wants more addresses than a poor user has";
#endif
  // A file of a terabyte that takes no place on the disk, and a user with 100 MB of memory.
  const std::string poor = "truncate -s 1T huge && ulimit -v 100000 && fiscalon ";
  EXPECT_EQ(Run(poor + "play huge").err, "huge:0: the file can't be read: it is too large for the memory there is\n");
}

TEST_F(Program, SaysInItsOwnWordsWhatIsWrongWithAnOption) {
  EXPECT_THAT(Run("fiscalon validate --jobs 1 --jobs 2").err, StartsWith("fiscalon: --jobs is given more than once\n"));
  EXPECT_THAT(Run("fiscalon validate --jobs").err, StartsWith("fiscalon: --jobs needs a value behind it\n"));
  EXPECT_THAT(Run("fiscalon validate --jobs 257").err, HasSubstr("\"257\" is no whole number from 1 to 256\n"));
  EXPECT_THAT(Run("fiscalon generate --screen 03 --payments 0").err, HasSubstr("\"0\" is no whole number from 1\n"));
  EXPECT_THAT(Run("fiscalon generate --screen 03 --payments 1 --seed 18446744073709551616").err,
              HasSubstr("\"18446744073709551616\" is no whole number from 0 that there is room for\n"));
  EXPECT_THAT(Run("fiscalon generate --screen 03 --payments 1 --bad nan").err,
              HasSubstr("\"nan\" is no number from 0 to 1\n"));
}

// Each command waits for a pipe into which nobody writes.
TEST_F(Program, EndsByASecondSignalWhateverItIsAt) {
  std::vector<std::string> commands = {"play pipe", "show pipe", "validate --screen 03 --amount 12345 pipe",
                                       "validate --payments pipe --records pipe --report a.csv"};
  if (FISCALON_HAS_QT != 0)
    commands.insert(commands.end(), {"play --toolkit qt pipe", "picture 15 --out a.png --scenario pipe"});
  for (const std::string& command : commands) {
    const Outcome seen =
        Run("mkfifo pipe; exec 9<>pipe\n"
            "env --default-signal '" FISCALON_PROGRAM "' " +
            command +
            " 9>&- & program=$!\n"
            "for i in $(seq 200); do\n"
            "  ls -l /proc/$program/fd | grep -q '/pipe$' && break\n"
            "  sleep 0.05\n"
            "done\n"
            "kill -TERM $program; kill -HUP $program\n"
            "for i in $(seq 200); do\n"
            "  [ -e /proc/$program/fd/0 ] || break\n"
            "  sleep 0.05\n"
            "done\n"
            "kill -KILL $program; rm pipe; wait $program");
    EXPECT_TRUE(seen.status == 128 + SIGTERM || seen.status == 128 + SIGHUP) << command << ": " << seen.status;
  }
}

TEST_F(Program, SendsNoCommandsToTheTerminalInNames) {
  // Escape, a bell, the one-character form of "Escape [", a byte that is no UTF-8; and a name in letters, which stays.
  EXPECT_THAT(Run("fiscalon show \"$(printf 'a\\033[31mb\\007c\\302\\233d\\377\\303\\251')\"").err,
              StartsWith("fiscalon: a\u241B[31mb\u2407c\uFFFDd\uFFFD\u00E9 can't be read"));
}

TEST_F(Program, TakesNoEndlessScenario) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer wants more addresses than a poor user has";
#endif
  const Outcome seen = Run("ulimit -v 1000000; timeout 60 '" FISCALON_PROGRAM "' play /dev/zero");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, HasSubstr("/dev/zero"));
  EXPECT_THAT(seen.err, HasSubstr("it holds more than 64 MiB"));
}

}  // namespace
}  // namespace fiscalon
