#include <gmock/gmock.h>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Narrator : public CommandLine {
 protected:
  static size_t PicturesIn(const std::string& text) {
    size_t count = 0;
    for (size_t at = text.find("┌─ Summit"); at != std::string::npos; at = text.find("┌─ Summit", at + 1)) ++count;
    return count;
  }

  std::string Narrated(const std::string& lines) const {
    Write("a.scenario", "today 2026-06-15\nhost CompName Summit\nhost PaidAmount 12345\nhost SeqNumber 0001\n" + lines);
    return Run("fiscalon play --narrate a.scenario").out;
  }
};

TEST_F(Narrator, PrintsCommentsAndLinesAsTheyStand) {
  EXPECT_THAT(Narrated("# Said before.\n\nshow 15  # the screen\n  key Escape\n# Said at the end."),
              testing::AllOf(StartsWith("today 2026-06-15\nhost CompName Summit\nhost PaidAmount 12345\n"
                                        "host SeqNumber 0001\n# Said before.\n\nshow 15  # the screen\n\n    ┌"),
                             HasSubstr("\n  key Escape\n"), HasSubstr("\n# Said at the end.\n")));
}

TEST_F(Narrator, DrawsTheFormWhenItOpens) {
  const std::string told = Narrated("show 15\n  expect focus txtRemittancePeriod\n  key Escape\n");
  EXPECT_THAT(told, HasSubstr("show 15\n"
                              "\n"
                              "    ┌─ Summit ──────────────────────────────────────┐\n"));
  EXPECT_THAT(told, HasSubstr("> [      ] YYYYMM"));
  EXPECT_EQ(PicturesIn(told), 1U);
}

TEST_F(Narrator, DrawsTheFormOnceForARunOfActs) {
  const std::string told = Narrated("show 15\n  type 20\n  type 2612\n  type 123\n\n  key Escape\n");
  EXPECT_EQ(PicturesIn(told), 2U);
  EXPECT_THAT(told, HasSubstr("  type 123\n\n    ┌─ Summit"));
  EXPECT_THAT(told, HasSubstr("[202612] YYYYMM"));
  EXPECT_THAT(told, HasSubstr("> [         123]"));
}

TEST_F(Narrator, DrawsNothingWhereActsChangeNothing) {
  EXPECT_EQ(PicturesIn(Narrated("show 15\n  type x\n\n  key Left\n\n  key Escape\n")), 1U);
}

TEST_F(Narrator, DrawsBoxesOverTheFormAsItStandsThen) {
  const std::string told = Narrated(
      "show 15\n  type 202706\n  expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your "
      "entry can range from 199001 to 202705.\"\n  key Escape\n");
  // The sixth digit has passed the focus on before the box shows, and the check has pulled it back behind it.
  const size_t moved = told.find("    [202706] YYYYMM");
  const size_t box = told.find("(x) 'Taxation year ends on'");
  const size_t back = told.find("  > [202706] YYYYMM");
  ASSERT_NE(back, std::string::npos);
  EXPECT_LT(moved, box);
  EXPECT_LT(box, back);
}

TEST_F(Narrator, TellsHowTheShowEnded) {
  EXPECT_THAT(Narrated("show 15\n  key Escape\n"),
              HasSubstr("\n    The screen is closed, and the host gets: result False\n"));
  EXPECT_THAT(Narrated("show 12\nexpect error 0x80040001 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n"),
              HasSubstr("the host gets: error -2147221503 Fiscalon.ShowLevyraScreen \"Invalid Screen Type\"\n"));
}

TEST_F(Narrator, TakesTheRecordsApartAtTheEnd) {
  const std::string told = Narrated("show 15\n  type 202612\n  type 12345\n  click cmdOK\n");
  EXPECT_THAT(told, HasSubstr("\nThe host finds 2 records, here taken apart:\n\nrecord 1: T, government format, "
                              "sequence \"0001\"\n"));
  EXPECT_THAT(told, HasSubstr("\n      25-32  PeriodDueDate    \"202612··\"                        2026-12\n"));
  EXPECT_THAT(told, HasSubstr("\n       9-10  FieldNum    \"01\"                  Amount payable\n"
                              "      11-28  FieldValue  \"000000000000012345\"  $123.45\n"));
  EXPECT_THAT(told, EndsWith("\n\nok   a.scenario\n1 passed, 0 failed\n"));
}

TEST_F(Narrator, TakesInvoicesOfACollectionApart) {
  const std::string told = Narrated(
      "show 08\n  click InvoiceStatementOnly(1)\n  type 20260601\n  key Enter\n  type INV-100\n  key Enter\n"
      "  type 123.45\n  key Enter\n  click cmdOK\n");
  EXPECT_THAT(told, HasSubstr("\nThe host finds 1 record, here taken apart:\n\nrecord 1: invoice\n"));
  EXPECT_THAT(told, HasSubstr("\n        1-8  InvoiceDate    \"20260601\"                     2026-06-01\n"
                              "       9-18  InvoiceAmount  \"·000012345\"                   $123.45\n"
                              "      19-45  InvoiceNumber  \"INV-100····················\"  7 of 27 characters\n"));
  EXPECT_THAT(told, Not(HasSubstr("no record")));
}

TEST_F(Narrator, SaysWhereThereAreNoRecords) {
  EXPECT_THAT(Narrated("show 15\n  key Escape\n"), HasSubstr("\nThe host finds no records.\n"));
}

TEST_F(Narrator, TellsAScenarioOfAFileWithWhatStandsAhead) {
  Write("a.scenario",
        "# Ahead.\nhost CompName Summit\n\nscenario first\n# Of the first.\nshow 15\n  close 0\n\nscenario second\n"
        "# Of the second.\nshow 15\n  close 1\n# At the end.\n");
  const std::string told = Run("fiscalon play --narrate a.scenario").out;
  EXPECT_THAT(told,
              StartsWith("a.scenario: first\n\n# Ahead.\nhost CompName Summit\n\nscenario first\n# Of the first.\n"
                         "show 15\n"));
  EXPECT_THAT(told, HasSubstr("\na.scenario: second\n\n# Ahead.\nhost CompName Summit\n\nscenario second\n"
                              "# Of the second.\nshow 15\n"));
  EXPECT_EQ(told.find("Of the second"), told.rfind("Of the second"));
  EXPECT_EQ(told.find("At the end"), told.rfind("At the end"));
}

TEST_F(Narrator, EndsWithTheFailure) {
  const std::string told = Narrated("show 15\n  expect focus cmdOK\n  key Escape\n");
  EXPECT_THAT(told, EndsWith("  expect focus cmdOK\n"
                             "FAIL a.scenario:6: expect focus cmdOK\n"
                             "     expected: cmdOK\n"
                             "     seen:     txtRemittancePeriod\n"
                             "0 passed, 1 failed\n"));
  EXPECT_THAT(told, Not(HasSubstr("key Escape")));
}

}  // namespace
}  // namespace fiscalon
