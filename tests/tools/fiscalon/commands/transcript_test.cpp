#include <gmock/gmock.h>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;

using Transcript = CommandLine;

TEST_F(Transcript, PrintsEveryLineAndWhatHappensUnderIt) {
  Write("a.scenario",
        "# Cancel by Escape, behind a refused OK.\n"
        "today 2026-06-15\n"
        "\n"
        "show 15\n"
        "  click cmdOK  # nothing typed\n"
        "  expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range from "
        "199001 to 202705.\"\n"
        "  key Escape\n"
        "expect result False\n");
  EXPECT_EQ(Run("fiscalon play --transcript a.scenario").out,
            "play a.scenario\n"
            "       2  today 2026-06-15\n"
            "       4  show 15\n"
            "              Form_Load\n"
            "              Form_Activate\n"
            "       5  click cmdOK  # nothing typed\n"
            "              txtRemittancePeriod_LostFocus\n"
            "              cmdOK_Click\n"
            "              message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range "
            "from 199001 to 202705.\", answered OK\n"
            "       6  expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can "
            "range from 199001 to 202705.\"\n"
            "       7  key Escape\n"
            "              cmdCancel_Click\n"
            "              result False\n"
            "       8  expect result False\n"
            "ok   a.scenario\n"
            "1 passed, 0 failed\n");
}

TEST_F(Transcript, NamesTheScenario) {
  Write("a.scenario", "host CompName x\nscenario \"it closes\"\nshow 15\n  key Escape\n");
  EXPECT_EQ(Run("fiscalon play --transcript a.scenario").out,
            "play a.scenario: it closes\n"
            "       1  host CompName x\n"
            "       3  show 15\n"
            "              Form_Load\n"
            "              Form_Activate\n"
            "       4  key Escape\n"
            "              cmdCancel_Click\n"
            "              result False\n"
            "ok   a.scenario: it closes\n"
            "1 passed, 0 failed\n");
}

TEST_F(Transcript, TellsWhichEntryKeepsTheFocusInSilence) {
  Write("a.scenario",
        "host PaidDate 06152026\n"
        "show 01\n"
        "  focus WCBperiodfrommm\n"
        "  type 13\n"
        "  key Tab\n"
        "  key Tab\n"
        "  expect focus WCBperiodfrommm\n"
        "  click Command3D5\n"
        "expect result False\n");
  const std::string told = Run("fiscalon play --transcript a.scenario").out;
  EXPECT_THAT(told, HasSubstr("       5  key Tab\n"
                              "              WCBperiodfrommm_LostFocus\n"
                              "              WCBperiodtomm_LostFocus\n"
                              "              status \"Please correct this entry: For the period from (MM)\"\n"
                              "       6  key Tab\n"
                              "              WCBperiodfrommm_LostFocus\n"
                              "              WCBperiodtomm_LostFocus\n"
                              "       7  expect focus WCBperiodfrommm\n"));
  EXPECT_THAT(told, HasSubstr("1 passed, 0 failed"));
}

TEST_F(Transcript, NamesTheAnswerOfABox) {
  // A date of another year asks whether to keep it.
  Write("a.scenario",
        "today 2026-06-15\nhost PaidAmount 12345\nshow 03\n  type 5000\n  focus NumberOfEmployees\n  type 12\n"
        "  focus EndDate\n  type 20251231\n  answer No\n  click Command3D6\n");
  EXPECT_THAT(Run("fiscalon play --transcript a.scenario").out, HasSubstr("answered No\n"));
}

TEST_F(Transcript, TellsOfHelpPages) {
  Write("a.scenario", "show 03\n  click Command3D4\n  expect help ZELMOR.CHM 100000004\n  key Escape\n");
  EXPECT_THAT(Run("fiscalon play --transcript a.scenario").out, HasSubstr("\n              help "));
}

TEST_F(Transcript, TellsOfAShowThatRaisedAnError) {
  Write("a.scenario", "show 12\nexpect error 0x80040001 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n");
  EXPECT_EQ(Run("fiscalon play --transcript a.scenario").out,
            "play a.scenario\n"
            "       1  show 12\n"
            "              error -2147221503 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n"
            "       2  expect error 0x80040001 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n"
            "ok   a.scenario\n"
            "1 passed, 0 failed\n");
}

TEST_F(Transcript, StopsAtTheLineThatFails) {
  Write("a.scenario", "show 15\n  expect focus cmdOK\n  key Escape\n");
  EXPECT_EQ(Run("fiscalon play --transcript a.scenario").out,
            "play a.scenario\n"
            "       1  show 15\n"
            "              Form_Load\n"
            "              Form_Activate\n"
            "       2  expect focus cmdOK\n"
            "FAIL a.scenario:2: expect focus cmdOK\n"
            "     expected: cmdOK\n"
            "     seen:     txtRemittancePeriod\n"
            "0 passed, 1 failed\n");
}

}  // namespace
}  // namespace fiscalon
