#include <gmock/gmock.h>

#include <algorithm>

#include "core/launch.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using ScreensCommand = CommandLine;

TEST_F(ScreensCommand, ListsCodeFormAndWhatIsCollected) {
  const Outcome seen = Run("fiscalon screens");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.err, IsEmpty());
  EXPECT_THAT(seen.out, StartsWith("Code  Form                      Collects\n"));
  EXPECT_THAT(seen.out, HasSubstr("\n15    frmDueDateAmount          Any biller: end of the taxation year and "
                                  "amount payable\n"));
}

TEST_F(ScreensCommand, ListsAllCodesInOrder) {
  std::string codes;
  for (const LaunchRow& row : LaunchTable()) codes.append(row.code).append(" ");
  EXPECT_EQ(Run("fiscalon screens | cut -c 1-2 | tail -n +2 | tr '\\n' ' '").out, codes);
}

TEST_F(ScreensCommand, ListsThoseWhosePaymentsAreJudged) {
  const Outcome seen = Run("fiscalon screens --judged");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out, StartsWith("Code  Form                      "));
  EXPECT_EQ(Run("fiscalon screens --judged | cut -c 1-2 | tail -n +2").out, "03\n20\n");
}

TEST_F(ScreensCommand, ListsWhatCanBeShown) {
  std::istringstream codes(Run("fiscalon screens | cut -c 1-2 | tail -n +2").out);
  int count = 0;
  for (std::string code; codes >> code; ++count) {
    Write("a.scenario", "show " + code + "\n  close 0\nexpect result False\n");
    const Outcome seen = Run("fiscalon play --today 2026-06-15 a.scenario");
    EXPECT_EQ(seen.status, 0) << code << "\n" << seen.out << seen.err;
  }
  EXPECT_EQ(static_cast<size_t>(count), LaunchTable().size());
}

}  // namespace
}  // namespace fiscalon
