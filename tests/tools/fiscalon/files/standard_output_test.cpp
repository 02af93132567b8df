#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using StandardOutput = CommandLine;

/// A terminal that nobody sits at.
class Terminal {
 public:
  Terminal() {
    std::array<char, 256> name = {};
    EXPECT_EQ(::openpty(&master_, &slave_, name.data(), nullptr, nullptr), 0);
    path_ = name.data();
  }
  ~Terminal() {
    ::close(master_);
    ::close(slave_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  const std::string& Path() const { return path_; }
  std::string Shown() const {
    ::fcntl(master_, F_SETFL, O_NONBLOCK);
    std::string shown;
    std::array<char, 4096> piece = {};
    for (ssize_t count; (count = ::read(master_, piece.data(), piece.size())) > 0;)
      shown.append(piece.data(), static_cast<size_t>(count));
    return shown;
  }

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string path_;
};

constexpr std::string_view kPassing = "show 15\n  key Escape\n";

TEST_F(StandardOutput, NoticesAFullDisk) {
  const Outcome seen = Run("fiscalon screens >/dev/full");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: standard output can't be written: No space left on device\n");
}

TEST_F(StandardOutput, NoticesAFullDiskUnderHelp) {
  EXPECT_EQ(Run("fiscalon --help >/dev/full").status, 2);
}

TEST_F(StandardOutput, NoticesThatItIsClosed) {
  const Outcome seen = Run("fiscalon screens >&-");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: standard output can't be written: Bad file descriptor\n");
}

TEST_F(StandardOutput, EndsQuietlyWhenItsReaderGoes) {
  Write("a.scenario", kPassing);
  // More than a pipe holds, so that the program is still writing when its reader has gone.
  const Outcome seen =
      Run("files=''; for i in $(seq 4000); do files=\"$files a.scenario\"; done\n"
          "{ fiscalon play --transcript $files; echo $? >status; } | head -n 1");
  EXPECT_EQ(seen.out, "play a.scenario\n");
  EXPECT_EQ(Read("status"), "2\n");
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(StandardOutput, HasNoColoursInAFile) {
  Write("a.scenario", kPassing);
  EXPECT_EQ(Run("fiscalon play a.scenario").out, "ok   a.scenario\n1 passed, 0 failed\n");
}

TEST_F(StandardOutput, HasColoursOnATerminal) {
  Write("a.scenario", kPassing);
  const Terminal terminal;
  EXPECT_EQ(Run("fiscalon play a.scenario >" + terminal.Path()).status, 0);
  EXPECT_THAT(terminal.Shown(), HasSubstr("\x1B[32mok  \x1B[0m a.scenario"));
}

TEST_F(StandardOutput, PaintsHeadingsRulersAndProblemsOfRecordsOnATerminal) {
  Write("a.pc4", "hello\nworld\n");
  const Terminal terminal;
  EXPECT_EQ(Run("fiscalon show a.pc4 >" + terminal.Path()).status, 1);
  EXPECT_THAT(terminal.Shown(), HasSubstr("\x1B[1mline 2: no record\x1B[0m\r\n"
                                          "\x1B[2m     ....+\x1B[0m\r\n"
                                          "    |world|\r\n"
                                          "\x1B[31m    ! no record: the line begins with \"world\", not with "
                                          "\"PC4\"\x1B[0m\r\n"
                                          "\r\n"));
}

TEST_F(StandardOutput, HasNoColoursOnATerminalThatWantsNone) {
  Write("a.scenario", kPassing);
  for (const char* environment : {"NO_COLOR=1", "TERM=dumb"}) {
    const Terminal terminal;
    EXPECT_EQ(Run(std::string("export ") + environment + "; fiscalon play a.scenario >" + terminal.Path()).status, 0);
    const std::string shown = terminal.Shown();
    EXPECT_THAT(shown, HasSubstr("ok   a.scenario")) << environment;
    EXPECT_THAT(shown, Not(HasSubstr("\x1B"))) << environment;
  }
}

TEST_F(StandardOutput, LeavesATerminalOfItsOwnToProgress) {
  // More than is read at once.
  std::string lines;
  for (int i = 0; i < 30'000; ++i) lines += "hello\n";
  Write("a.pc4", lines);
  const Terminal terminal;
  EXPECT_EQ(Run("fiscalon show a.pc4 >out 2>" + terminal.Path()).status, 1);
  EXPECT_THAT(terminal.Shown(), testing::AllOf(HasSubstr("\r21,845 records  73 %"), testing::EndsWith("\r\x1B[K")));
  const Terminal both;
  EXPECT_EQ(Run("export NO_COLOR=1; fiscalon show a.pc4 --line 21900 >" + both.Path() + " 2>" + both.Path()).status, 1);
  EXPECT_THAT(both.Shown(), testing::AllOf(HasSubstr("line 21900: no record"), Not(HasSubstr("records  "))));
}

TEST_F(StandardOutput, IsToldOfOnATerminalAsABatchIsMade) {
  // The list of so many payments goes out in more than one piece, the first of 1 MiB.
  const Terminal terminal;
  EXPECT_EQ(Run("fiscalon generate --payments 80000 --screen 03 --out big >out 2>" + terminal.Path()).status, 0);
  const std::string list = Read("big.csv").substr(0, size_t{1} << 20);
  const auto made = std::count(list.begin(), list.end(), '\n') - 1;
  const std::string thousands = std::to_string(made / 1000) + "," + std::to_string(1000 + made % 1000).substr(1);
  EXPECT_THAT(terminal.Shown(),
              testing::AllOf(HasSubstr("\r" + thousands + " payments  " +
                                       std::to_string(std::lround(static_cast<double>(made) / 800)) + " %"),
                             testing::EndsWith("\r\x1B[K")));
}

#ifdef FISCALON_SILENT_FOLDER
TEST_F(StandardOutput, TellsOfASilentFolderInPlaceOfProgress) {
  const Terminal terminal;
  EXPECT_EQ(Run("mkdir silent; mkfifo list; echo >silent/a.pc4; exec 3<>list; LD_PRELOAD='" FISCALON_SILENT_FOLDER
                "' fiscalon validate --payments list --records silent/a.pc4 --stall 1 2>" +
                terminal.Path())
                .status,
            75);
  EXPECT_THAT(terminal.Shown(), testing::AllOf(testing::StartsWith("\r\x1B[Kfiscalon: silent/a.pc4: its folder has "),
                                               testing::EndsWith("then run this again\r\n")));
}
#endif

TEST_F(StandardOutput, TellsOfAFileThatShrinksInPlaceOfProgress) {
  Write("list.csv", "seq,screen,biller,amount\n0001,03,,12345\n");
  const Terminal terminal;
  EXPECT_EQ(Run("mkfifo records; exec 3<>records; '" FISCALON_PROGRAM
                "' validate --payments list.csv --records records 3>&- 2>" +
                terminal.Path() +
                " & until grep -q list.csv /proc/$!/maps; do :; done; : >list.csv\n"
                "echo hello >records; exec 3>&-; wait $!")
                .status,
            2);
  EXPECT_EQ(terminal.Shown(), "\r\x1B[Kfiscalon: list.csv: the file became shorter while it was read\r\n");
}

TEST_F(StandardOutput, FoldsRecordsToTheTerminal) {
  Write("a.pc4", "hello\n" + std::string(100, 'x') + "\n");
  const Terminal terminal;
  EXPECT_EQ(Run("export NO_COLOR=1; fiscalon show a.pc4 >" + terminal.Path()).status, 1);
  // 80 columns less the margin and the bars make 70: seven whole tens.
  EXPECT_THAT(terminal.Shown(),
              HasSubstr("     ....+....1....+....2....+....3....+....4....+....5....+....6....+....7\r\n"
                        "    |" +
                        std::string(70, 'x') +
                        "|\r\n"
                        "     ....+....8....+....9....+...10\r\n"
                        "    |" +
                        std::string(30, 'x') + "|\r\n"));
}

}  // namespace
}  // namespace fiscalon
