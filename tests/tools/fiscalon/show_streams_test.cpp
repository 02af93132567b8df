#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// `fiscalon show` between two pipes, which it reads and writes as it goes. Its complaints go to the file "err" of the
/// user's folder.
class RunningShow {
 public:
  RunningShow(const std::string& folder, const std::string& file, const std::string& option) {
    std::array<int, 2> in = {};
    std::array<int, 2> out = {};
    EXPECT_EQ(::pipe2(in.data(), O_CLOEXEC), 0);
    EXPECT_EQ(::pipe2(out.data(), O_CLOEXEC), 0);
    program_ = ::fork();
    if (program_ == 0) {
      const int err = ::open((folder + "/err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
      if (::chdir(folder.c_str()) == 0 && ::dup2(in[0], 0) == 0 && ::dup2(out[1], 1) == 1 && ::dup2(err, 2) == 2)
        ::execl(FISCALON_PROGRAM, "fiscalon", "show", file.c_str(), option.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    output_ = out[0];
  }
  ~RunningShow() {
    EndInput();
    ::close(output_);
  }
  RunningShow(const RunningShow&) = delete;
  RunningShow& operator=(const RunningShow&) = delete;

  void Give(const std::string& bytes) const {
    EXPECT_EQ(::write(input_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  void EndInput() {
    if (input_ != -1)
      ::close(input_);
    input_ = -1;
  }

  /// Waits until that text is printed, or the output ends.
  const std::string& ReadUntil(const std::string& text) {
    std::array<char, 4096> piece = {};
    while (seen_.find(text) == std::string::npos) {
      const ssize_t count = ::read(output_, piece.data(), piece.size());
      if (count <= 0)
        break;
      seen_.append(piece.data(), static_cast<size_t>(count));
    }
    return seen_;
  }
  const std::string& ReadAll() { return ReadUntil("\1"); }

  /// How many bytes the pipe holds that it prints into.
  int PipeHolds() const { return ::fcntl(output_, F_GETPIPE_SZ); }

  /// Interrupts it once. The signal that it ends with.
  int Interrupt() const {
    int ended = 0;
    ::kill(program_, SIGINT);
    ::waitpid(program_, &ended, 0);
    return WIFSIGNALED(ended) ? WTERMSIG(ended) : -1;
  }
  int Wait() const {
    int ended = 0;
    ::waitpid(program_, &ended, 0);
    return WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
  }

 private:
  pid_t program_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string seen_;
};

class ShowStreams : public CommandLine {
 protected:
  /// A thousand payments of one line each: more than is read at once, and far more than a pipe takes when they are
  /// shown.
  static std::string ManyLines() {
    std::string lines;
    for (int i = 1000; i < 2000; ++i) lines += Line(Ruled("PC4" + std::to_string(i) + "PNAME: ANNE LEE"));
    return lines;
  }

  /// The most memory that a command line took, in KiB.
  long MemoryOf(const std::string& commandLine) const {
    const pid_t shell = ::fork();
    if (shell == 0) {
      ::execl("/bin/sh", "sh", "-c",
              ("cd '" + Folder() + "'; fiscalon() { '" FISCALON_PROGRAM "' \"$@\"; }; " + commandLine).c_str(),
              nullptr);
      ::_exit(127);
    }
    rusage usage = {};
    int ended = 0;
    ::wait4(shell, &ended, 0, &usage);
    return usage.ru_maxrss;
  }
};

TEST_F(ShowStreams, PrintWhatIsThereBeforeMoreComes) {
  for (const std::string form : {"--json-lines", "--json", "--locale=en-CA"}) {
    RunningShow show(Folder(), "-", form);
    show.Give(Line(Ruled("PC40001T")));
    const std::string first = form == "--locale=en-CA" ? "line 1: T" : R"({"line":1,"kind":"T","seq":"0001")";
    EXPECT_THAT(show.ReadUntil(first), HasSubstr(first));
    show.Give(Line(Ruled("PC40002T")));
    show.EndInput();
    EXPECT_THAT(show.ReadAll(), HasSubstr("0002"));
    EXPECT_EQ(show.Wait(), 0);
  }
}

TEST_F(ShowStreams, AskForAPipeThatHoldsALot) {
  constexpr int kALot = 256 << 10;
  std::array<int, 2> trial = {};
  ASSERT_EQ(::pipe2(trial.data(), O_CLOEXEC), 0);
  const bool isGiven = ::fcntl(trial[0], F_SETPIPE_SZ, kALot) >= kALot;
  for (const int end : trial) ::close(end);
  if (!isGiven)
    GTEST_SKIP() << "the system gives no such pipe";
  RunningShow show(Folder(), "-", "--json-lines");
  show.Give(Line(Ruled("PC40001T")));
  show.ReadUntil("\n");
  EXPECT_GE(show.PipeHolds(), kALot);
  show.EndInput();
  EXPECT_EQ(show.Wait(), 0);
}

TEST_F(ShowStreams, EndAtAnInterruptWithAWholeRecord) {
  RunningShow show(Folder(), "-", "--json-lines");
  // The second line is not whole yet.
  show.Give(Line(Ruled("PC40001T")) + "\"PC40002T");
  EXPECT_THAT(show.ReadUntil("\n"), EndsWith("}\n"));
  EXPECT_EQ(show.Interrupt(), SIGINT);
  EXPECT_THAT(show.ReadAll(), AllOf(EndsWith("}\n"), Not(HasSubstr("0002"))));
  EXPECT_EQ(Read("err"), "fiscalon: interrupted\n");
}

TEST_F(ShowStreams, EndAtAnInterruptWhileNobodyReads) {
  Write("a.pc4", ManyLines());
  RunningShow show(Folder(), "a.pc4", "--json-lines");
  EXPECT_THAT(show.ReadUntil("\n"), StartsWith("{"));
  EXPECT_EQ(show.Interrupt(), SIGINT);
  EXPECT_EQ(Read("err"), "fiscalon: interrupted\n");
}

TEST_F(ShowStreams, AreCutBehindARecordWhereTheirReaderIsSlow) {
  Write("a.pc4", ManyLines());
  for (const std::string form : {"--json-lines", "--json"}) {
    RunningShow show(Folder(), "a.pc4", form);
    // What is in the pipe by now is more than was read.
    show.ReadUntil("\"1000\"");
    EXPECT_EQ(show.Interrupt(), SIGINT) << form;
    EXPECT_THAT(show.ReadAll(),
                AllOf(EndsWith("]}" + std::string(form == "--json" ? "" : "\n")), Not(HasSubstr("\"1999\""))))
        << form;
  }
}

TEST_F(ShowStreams, EndBehindARecordWhereTheFileMayNotGrow) {
  Write("a.pc4", ManyLines());
  // So many blocks are no whole number of records.
  const Outcome seen = Run("ulimit -f 3; fiscalon show a.pc4 --json-lines >shown");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: standard output can't be written: File too large\n");
  EXPECT_THAT(Read("shown"), AllOf(StartsWith("{\"line\":1,"), EndsWith("}\n")));
}

TEST_F(ShowStreams, NameAFileThatGrows) {
  Write("a.pc4", ManyLines());
  RunningShow show(Folder(), "a.pc4", "--json-lines");
  show.ReadUntil("\n");
  Write("a.pc4", ManyLines() + Line(Ruled("PC49999T")));
  EXPECT_THAT(show.ReadAll(), AllOf(HasSubstr(R"("seq":"1999")"), Not(HasSubstr("9999")), EndsWith("}\n")));
  EXPECT_EQ(show.Wait(), 2);
  EXPECT_EQ(Read("err"), "fiscalon: a.pc4: the file became longer while it was read; what was added is not shown\n");
}

TEST_F(ShowStreams, NameAFileThatShrinksAndLeaveItsTornLineOut) {
  Write("a.pc4", ManyLines());
  RunningShow show(Folder(), "a.pc4", "--json");
  show.ReadUntil("\"records\"");
  // A line takes 164 bytes; of the 951st, that is payment 1950, half is left.
  std::filesystem::resize_file(Folder() + "/a.pc4", 164 * 950 + 80);
  EXPECT_THAT(show.ReadAll(),
              AllOf(HasSubstr(R"("seq":"1949")"), Not(HasSubstr(R"("seq":"1950")")), Not(EndsWith("}\n"))));
  EXPECT_EQ(show.Wait(), 2);
  EXPECT_EQ(Read("err"), "fiscalon: a.pc4: the file became shorter while it was read\n");
}

TEST_F(ShowStreams, DoNotFollowTheirOwnOutput) {
  Write("a.pc4", ManyLines());
  const Outcome seen = Run("fiscalon show a.pc4 --json-lines >>a.pc4");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, HasSubstr("the file became longer"));
}

TEST_F(ShowStreams, EndQuietlyWhenTheirReaderGoes) {
  Write("a.pc4", ManyLines());
  const Outcome seen = Run("{ fiscalon show a.pc4 --json-lines; echo $? >status; } | head -n 1");
  EXPECT_THAT(seen.out, AllOf(StartsWith("{\"line\":1,"), EndsWith("}\n")));
  EXPECT_EQ(Read("status"), "2\n");
  EXPECT_EQ(seen.err, "");
}

TEST_F(ShowStreams, NoticeAFullDisk) {
  Write("a.pc4", Line(Ruled("PC40001T")));
  for (const char* form : {"", " --json", " --json-lines"}) {
    const Outcome seen = Run(std::string("fiscalon show a.pc4 >/dev/full") + form);
    EXPECT_EQ(seen.status, 2);
    EXPECT_EQ(seen.err, "fiscalon: standard output can't be written: No space left on device\n");
  }
}

TEST_F(ShowStreams, TakeNoMoreMemoryForMoreLinesOrLongerOnes) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer keeps what was given back for a while";
#endif
  constexpr long kLittleMore = 16 << 10;
  Write("a.pc4", ManyLines());
  const long usual = MemoryOf("head -n 1 a.pc4 | fiscalon show - >out");
  for (const std::string form : {"", "--json", "--json-lines"}) {
    EXPECT_LT(MemoryOf("for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16; do cat a.pc4; done | fiscalon show - " + form +
                       " >out"),
              usual + kLittleMore)
        << form;
    EXPECT_LT(MemoryOf("head -c 100000000 /dev/zero | fiscalon show - " + form + " >out"), usual + kLittleMore) << form;
  }
  EXPECT_THAT(Read("out"), AllOf(StartsWith(R"({"line":1,"kind":null,"seq":null,"length":100000000,)"),
                                 HasSubstr("a line of 100000000 characters; only the first 4096 are looked at")));
}

TEST_F(ShowStreams, StopBehindTheLastLineThatIsPicked) {
  // The rest of the pipe is never written.
  RunningShow show(Folder(), "-", "--line=1-2");
  show.Give(Line(Ruled("PC40001T")) + Line(Ruled("PC40002T")));
  EXPECT_THAT(show.ReadAll(), HasSubstr("\n2 lines picked, nothing wrong\n"));
  EXPECT_EQ(show.Wait(), 0);
}

}  // namespace
}  // namespace fiscalon
