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
  EXPECT_THAT(seen.out, StartsWith("Code  Form                      Here  Collects\n"));
  EXPECT_THAT(seen.out, HasSubstr("\n15    frmDueDateAmount          yes   Any biller: end of the taxation year and "
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

// What is called here must be a screen that can be shown, and what is not must be an error that names the form.
TEST_F(ScreensCommand, TellsWhichFormsThisVersionHas) {
  const std::string listed = Run("fiscalon screens | tail -n +2 | awk '{ print $1, $2, $3 }'").out;
  std::istringstream rows(listed);
  int count = 0;
  for (std::string code, form, here; rows >> code >> form >> here; ++count) {
    Write("a.scenario", here == "yes"
                            ? "show " + code + "\n  close 0\nexpect result False\n"
                            : "show " + code + "\nexpect error 0x80040002 Fiscalon.ShowLevyraScreen \"Screen \\\"" +
                                  code + "\\\" (" + form + ") is not part of this version\"\n");
    const Outcome seen = Run("fiscalon play --today 2026-06-15 a.scenario");
    EXPECT_EQ(seen.status, 0) << code << ": " << here << "\n" << seen.out << seen.err;
  }
  EXPECT_EQ(static_cast<size_t>(count), LaunchTable().size());
}

}  // namespace
}  // namespace fiscalon
