#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/frontends/terminal/shell_at_terminal.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon::terminal {
namespace {

/// The program itself, at a terminal and without a display.
int RunProgram(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "fiscalon");
  std::vector<char*> given;
  for (std::string& argument : arguments) given.push_back(argument.data());
  given.push_back(nullptr);
  ::unsetenv("QT_QPA_PLATFORM");
  ::execv(FISCALON_PROGRAM, given.data());
  return 127;
}

const std::vector<std::string> kCollect = {
    "--today",       "2026-06-15",  "--locale",     "en-CA",       "collect",       "15",           "--paid-amount",
    "12345",         "--paid-date", "06152026",     "--comp-name", "Summit Levies", "--enter-name", "Jane Doe",
    "--enter-title", "Clerk",       "--seq-number", "0001",        "--write-file",  "False"};

// The year of a payment goes on to the amount by itself when it is full.
TEST(TerminalProgram, CollectsAPaymentByKeys) {
  ShellAtTerminal shell([] { return RunProgram(kCollect); });
  ASSERT_TRUE(shell.UntilShows("Taxation year ends on:"));
  shell.Type("202512123.45\r");
  ASSERT_TRUE(shell.UntilShows("Enter press"));
  shell.Type("\r");
  const int status = shell.NextStatus();
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_TRUE(shell.IsGivenBack());
  EXPECT_TRUE(shell.UntilShows("PC40001")) << "the records are printed where the screen of before is back";
}

TEST(TerminalProgram, CollectsNothingWhereItIsCancelledOrInterrupted) {
  ShellAtTerminal cancelled([] { return RunProgram(kCollect); });
  ASSERT_TRUE(cancelled.UntilShows("Taxation year ends on:"));
  cancelled.Type("\x1B");
  const int status = cancelled.NextStatus();
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_TRUE(cancelled.UntilShows("cancelled: nothing was collected"));
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ShellAtTerminal shell([] { return RunProgram(kCollect); });
    ASSERT_TRUE(shell.UntilShows("Taxation year ends on:"));
    ::kill(shell.job, signal);
    const int ended = shell.NextStatus();
    EXPECT_TRUE(WIFSIGNALED(ended) && WTERMSIG(ended) == signal) << ended;
    EXPECT_FALSE(shell.Shows("PC4"));
  }
}

TEST(TerminalProgram, HasADeskForOnePaymentAfterTheOther) {
  ShellAtTerminal shell([] { return RunProgram({"--today", "2026-06-15", "--locale", "en-CA", "desk"}); });
  ASSERT_TRUE(shell.UntilShows("Payment desk"));
  for (int again = 0; again < 2; ++again) {
    shell.Type("\x1Bs");
    ASSERT_TRUE(shell.UntilShows("Taxation year ends on:"));
    shell.Type("202512123.45\r");
    ASSERT_TRUE(shell.UntilShows("Enter press"));
    shell.Type("\x1Bo");
    ASSERT_TRUE(shell.UntilShows("Accepted. Records handed back: 2."));
    EXPECT_TRUE(shell.Shows("sequence \"0001\""));
    shell.Type("\x1B");
    ASSERT_TRUE(shell.UntilShows("Payment desk"));
  }
  shell.Type("\x1B");
  const int status = shell.NextStatus();
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalProgram, SaysAtTheDeskWhatIsDoubtfulAndWhatStopsAPayment) {
  ShellAtTerminal shell([] { return RunProgram({"--today", "2026-06-15", "--locale", "en-CA", "desk"}); });
  ASSERT_TRUE(shell.UntilShows("Payment desk"));
  // From the button round to the first entry, and on to the sequence.
  shell.Type("\t\t\t\t\t\t12345");
  ASSERT_TRUE(shell.UntilShows("Sequence: 5 characters instead of four"));
  shell.Type("\t1x");
  ASSERT_TRUE(shell.UntilShows("and 1 more"));
  shell.Type("\x1Bs");
  ASSERT_TRUE(shell.UntilShows("is no amount in cents"));
  shell.Type("\r");
  ASSERT_TRUE(shell.Until([&] { return !shell.Shows("[>OK<]"); }));
  shell.Type("500");
  EXPECT_TRUE(shell.UntilShows("5.00"));
  shell.Type("\x11");
  const int status = shell.NextStatus();
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST(TerminalProgram, SaysAtTheDeskWhereThePageForOperatorsLies) {
  ShellAtTerminal shell([] { return RunProgram({"desk"}); });
  ASSERT_TRUE(shell.UntilShows("Payment desk"));
  for (const char* help : {"\x1BOP",
                           "\x1B"
                           "e"}) {  // F1, Alt+E
    shell.Type(help);
    ASSERT_TRUE(shell.UntilShows("The help is in the file"));
    shell.Type("\r");
    ASSERT_TRUE(shell.Until([&] { return !shell.Shows("The help is in the file"); }));
  }
  shell.Type("\x1B");
  const int status = shell.NextStatus();
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

std::string ContentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What the program draws of the example that the documents show.
std::string Drawn(const std::string& name) {
  const TemporaryFolder folder;
  const std::string out = folder.Path() + "/" + name;
  const std::string command = std::string(FISCALON_PROGRAM " picture 15 --toolkit terminal --scenario ") +
                              FISCALON_SOURCE_DIR "/examples/due_date_amount.scenario --out " + out;
  EXPECT_EQ(std::system(command.c_str()), 0);
  return ContentOf(out);
}

TEST(TerminalPicture, OfTheDocumentsIsWhatTheProgramDraws) {
  EXPECT_EQ(Drawn("picture.svg"), ContentOf(FISCALON_SOURCE_DIR "/docs/terminal.svg"));
}

TEST(TerminalPicture, IsTextToo) {
  const std::string text = Drawn("picture.txt");
  EXPECT_THAT(text, testing::StartsWith("\u250C\u2500 Summit Levies \u2500"));
  EXPECT_THAT(text, testing::HasSubstr("Payment Date:"));
}

}  // namespace
}  // namespace fiscalon::terminal
