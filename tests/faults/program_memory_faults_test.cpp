// What the user of the program is left with when memory fails it: a word about it, no crash, and no file that looks
// whole. The program runs in children of this one, which is linked so that its own `main` comes first.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <vector>

#include "core/records/record_composer.h"
#include "tests/faults/allocation_fault.h"
#include "tests/support/temporary_folder.h"
#include "validation/generate_batch.h"

extern "C" {
/// That of the program.
int __real_main(int argc, char** argv);
/// What is started instead.
int __wrap_main(int argc, char** argv);
}

int __wrap_main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

namespace fiscalon {
namespace {

struct Ending {
  size_t allocations = 0;
  /// -1 where the program did not come to its end.
  int status = -1;
  std::string output = {};
  std::string complaint = {};
};

class ProgramMemoryFaults : public testing::Test {
 protected:
  static constexpr size_t kNever = SIZE_MAX;

  ProgramMemoryFaults()
      : allocations_(static_cast<size_t*>(
            ::mmap(nullptr, sizeof(size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  ~ProgramMemoryFaults() override { ::munmap(allocations_, sizeof(size_t)); }

  Ending RunProgram(std::vector<std::string> arguments, size_t failing, FaultLasts lasts) {
    const std::string output = folder.Path("output"), complaint = folder.Path("complaint");
    const pid_t child = ::fork();
    if (child == 0) {
      SendTo(STDOUT_FILENO, output);
      SendTo(STDERR_FILENO, complaint);
      BeTheProgram(std::move(arguments), failing, lasts);
    }
    Ending run;
    int ending = 0;
    EXPECT_EQ(::waitpid(child, &ending, 0), child);
    if (WIFEXITED(ending))
      run.status = WEXITSTATUS(ending);
    run.allocations = *allocations_;
    run.output = folder.Read("output");
    run.complaint = folder.Read("complaint");
    return run;
  }

  /// Fails allocations of a command, and looks what it leaves behind in `made`, a file that is not there before.
  void ExpectWithstands(const std::vector<std::string>& arguments, int status, const std::string& made = "") {
    const auto isMade = [&] { return !made.empty() && std::filesystem::exists(folder.Path(made)); };
    const Ending undisturbed = RunProgram(arguments, kNever, FaultLasts::Once);
    ASSERT_EQ(undisturbed.status, status) << undisturbed.complaint;
    EXPECT_EQ(isMade(), !made.empty());
    const std::string whole = made.empty() ? "" : folder.Read(made);
    const size_t names = NamesInFolder();
    // A stride that is no divisor of anything: every kind of place is met, at a fraction of the time.
    const size_t stride = std::getenv("FISCALON_LONG") != nullptr ? 1 : 29;
    for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
      for (size_t nth = 1; nth <= undisturbed.allocations && !HasFailure(); nth += stride) {
        SCOPED_TRACE(arguments[1] + ", allocation " + std::to_string(nth));
        if (!made.empty())
          std::filesystem::remove(folder.Path(made));
        const Ending run = RunProgram(arguments, nth, lasts);
        // Whole or absent, and nothing beside it.
        EXPECT_EQ(NamesInFolder(), names - (made.empty() || isMade() ? 0 : 1));
        EXPECT_TRUE(!isMade() || folder.Read(made) == whole);
        if (run.status == status) {
          // It was for a text of the help, or there was another way.
          EXPECT_EQ(run.output, undisturbed.output);
          EXPECT_EQ(run.complaint, undisturbed.complaint);
          EXPECT_EQ(isMade(), !made.empty());
          continue;
        }
        EXPECT_EQ(run.status, 2) << run.complaint;
        EXPECT_EQ(run.complaint, "fiscalon: there is not enough memory\n");
        EXPECT_TRUE(undisturbed.output.starts_with(run.output)) << run.output;
      }
  }

  TemporaryFolder folder;

 private:
  static void SendTo(int descriptor, const std::string& file) {
    ::dup2(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), descriptor);
  }

  /// The child is a copy of the test: nothing may come back from here, what the program throws neither.
  [[noreturn]] void BeTheProgram(std::vector<std::string> arguments, size_t failing, FaultLasts lasts) noexcept {
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    int status = 0;
    {
      const AllocationFault fault(failing, lasts);
      status = __real_main(static_cast<int>(arguments.size()), argv.data());
      *allocations_ = fault.Allocations();
    }
    std::fflush(nullptr);
    ::_exit(status);
  }

  size_t NamesInFolder() const {
    const std::filesystem::directory_iterator names(folder.Path()), none;
    return static_cast<size_t>(std::distance(names, none));
  }

  /// What a child tells of the allocations that it made.
  size_t* allocations_;
};

std::string TwoRecords() {
  return QuotedLine(ComposeGovernmentFormat("0001", {.periodDueDate = "202606", .contactName = "Jane Doe"})) +
         QuotedLine(ComposeFreeFormat("0001", {{"01", "000000000000012345"}}));
}

TEST_F(ProgramMemoryFaults, ShowSaysSo) {
  const std::string file = folder.Write("payment.pc4", TwoRecords());
  ExpectWithstands({"fiscalon", "show", file, "--screen", "15"}, 0);
  ExpectWithstands({"fiscalon", "show", file, "--json"}, 0);
  ExpectWithstands({"fiscalon", "show", file, "--json-lines"}, 0);
}

TEST_F(ProgramMemoryFaults, ValidateOfAPaymentSaysSo) {
  const std::string file = folder.Write("payment.pc4", TwoRecords());
  ExpectWithstands({"fiscalon", "validate", "--screen", "03", "--amount", "999", file}, 1);
}

TEST_F(ProgramMemoryFaults, ValidateOfABatchLeavesNoReport) {
  std::ostringstream payments, records, planted;
  GenerateBatch({.payments = 40, .badRate = 0.5, .today = {2026, 6, 15}}, payments, records, planted);
  const std::string list = folder.Write("batch.csv", payments.str());
  const std::string lines = folder.Write("batch.pc4", records.str());
  ExpectWithstands({"fiscalon", "--today", "2026-06-15", "validate", "--payments", list, "--records", lines, "--report",
                    folder.Path("report.csv"), "--jobs", "2"},
                   1, "report.csv");
}

}  // namespace
}  // namespace fiscalon
