#include <gmock/gmock.h>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kRuler =
    "     ....+....1....+....2....+....3....+....4....+....5....+....6....+....7....+....8"
    "....+....9....+...10....+...11....+...12....+...13....+...14....+...15....+...16\n";

class ShowCommand : public CommandLine {
 protected:
  // What screen "15" writes for "Hélène Côté", Clerk, 123.45 dollars and December 2026, in Windows-1252.
  const std::string government_ =
      Ruled("PC40001T                202612          H\xE9l\xE8ne C\xF4t\xE9                   Clerk");
  const std::string free_ =
      Ruled("PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000");

  // clang-format off
  const std::string shownGovernment_ =
      "line 1: T, government format, sequence \"0001\"\n" + std::string(kRuler) +
      "    |PC40001T                202612          Hélène Côté                   Clerk" + std::string(85, ' ') + "|\n"
      "       9-16  PeriodStartDate  \"········\"                        blank\n"
      "      17-24  PeriodEndDate    \"········\"                        blank\n"
      "      25-32  PeriodDueDate    \"202612··\"                        2026-12\n"
      "      33-40  Filler1          \"········\"                        blank\n"
      "      41-70  ContactName      \"Hélène Côté···················\"  11 of 30 characters\n"
      "      71-90  ContactTitle     \"Clerk···············\"            5 of 20 characters\n"
      "     91-100  Filler2          \"··········\"                      blank\n"
      "\n";
  const std::string shownFree_ =
      "line 2: F, free format, sequence \"0001\"\n" + std::string(kRuler) +
      "    |PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000" +
      std::string(72, ' ') + "|\n"
      "       9-10  FieldNum    \"01\"\n"
      "      11-28  FieldValue  \"000000000000012345\"  12345, as cents $123.45\n"
      "      29-30  FieldNum    \"02\"\n"
      "      31-48  FieldValue  \"000000000000000000\"  0\n"
      "      49-50  FieldNum    \"03\"\n"
      "      51-68  FieldValue  \"000000000000000000\"  0\n"
      "      69-70  FieldNum    \"04\"\n"
      "      71-88  FieldValue  \"000000000000000000\"  0\n"
      "\n";
  // clang-format on
};

TEST_F(ShowCommand, TakesEachRecordApartUnderARuler) {
  Write("a.pc4", Line(government_) + Line(free_));
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "a.pc4\n\n" + shownGovernment_ + shownFree_ + "2 lines, nothing wrong\n");
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(ShowCommand, NamesFieldsByTheScreen) {
  Write("a.pc4", Line(government_) + Line(free_));
  const std::string shown = Run("fiscalon show a.pc4 --screen 15").out;
  EXPECT_THAT(shown, AllOf(HasSubstr("a.pc4, of screen 15 (frmDueDateAmount)\n"),
                           HasSubstr("       9-10  FieldNum    \"01\"                  Amount payable\n"
                                     "      11-28  FieldValue  \"000000000000012345\"  12345, as cents $123.45\n"
                                     "      29-30  FieldNum    \"02\"\n")));
  const std::string other = Run("fiscalon show --screen 03 a.pc4").out;
  EXPECT_THAT(other, AllOf(HasSubstr("\"01\"                  Amount of Payment\n"),
                           HasSubstr("\"04\"                  Number of Employees\n")));
}

TEST_F(ShowCommand, RefusesACodeThatIsNoScreen) {
  Write("a.pc4", Line(government_));
  const Outcome seen = Run("fiscalon show a.pc4 --screen 12");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.out, IsEmpty());
  EXPECT_EQ(
      seen.err,
      "fiscalon: there is no screen \"12\"; the codes are 01, 02, 03, 04, 05, 06, 07, 08, 10, 11, 14, 15, 16, 17, "
      "18, 19, 20, 25, 26, 27, 28\nRun \"fiscalon show --help\" for its options.\n");
}

TEST_F(ShowCommand, WritesDollarsAsTheUserDoes) {
  Write("a.pc4",
        Line(government_) + Line(free_) + Line(Ruled("PC40002T")) + Line(Ruled("PC40002F01-00000000000123450")));
  EXPECT_THAT(Run("fiscalon show a.pc4 --locale fr-CA").out,
              AllOf(HasSubstr("12345, as cents 123,45 $\n"), HasSubstr("-123450, as cents (1\u00A0234,50 $)\n")));
  EXPECT_THAT(Run("fiscalon show a.pc4 --locale en-US").out, HasSubstr("-123450, as cents ($1,234.50)\n"));
}

TEST_F(ShowCommand, ReadsQuotedAndBareLinesAlike) {
  for (const std::string& bytes :
       {government_ + "\r\n" + free_ + "\r\n", government_ + "\n" + free_ + "\n", government_ + "\n" + free_,
        '"' + government_ + "\"\n\"" + free_ + "\"\n", Line(government_) + free_ + "\n"}) {
    Write("a.pc4", bytes);
    const Outcome seen = Run("fiscalon show a.pc4");
    EXPECT_EQ(seen.status, 0) << bytes;
    EXPECT_EQ(seen.out, "a.pc4\n\n" + shownGovernment_ + shownFree_ + "2 lines, nothing wrong\n");
  }
}

TEST_F(ShowCommand, ReadsStandardInput) {
  Write("a.pc4", Line(government_));
  const Outcome seen = Run("fiscalon show - <a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "standard input\n\n" + shownGovernment_ + "1 line, nothing wrong\n");
}

TEST_F(ShowCommand, SaysThatAFileIsEmpty) {
  Write("a.pc4", "");
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "a.pc4: the file is empty, it holds no records\n");
}

TEST_F(ShowCommand, PrintsEverythingWhereSomethingIsWrong) {
  Write("a.pc4", "hello\r\n" + Line(government_).replace(25, 6, "202613") + Line(free_));
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out, AllOf(HasSubstr("line 1: no record\n"
                                        "     ....+\n"
                                        "    |hello|\n"
                                        "    ! no record: the line begins with \"hello\", not with \"PC4\"\n"
                                        "\n"
                                        "line 2: T, government format, sequence \"0001\"\n"),
                              HasSubstr("\n" + std::string(29, ' ') + "^^^^^^^^\n"),
                              HasSubstr("      25-32  PeriodDueDate    \"202613··\"                        !\n"),
                              HasSubstr("\n    ! columns 25-32: PeriodDueDate: \"202613··\" is no date YYYYMMDD or "
                                        "YYYYMM\n\nline 3: F,"),
                              HasSubstr("\n3 lines, 2 problems\n")));
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(ShowCommand, NamesAFileThatCannotBeRead) {
  const Outcome missing = Run("fiscalon show nowhere.pc4");
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.out, IsEmpty());
  EXPECT_EQ(missing.err, "fiscalon: nowhere.pc4 can't be read: No such file or directory\n");
  const Outcome folder = Run("mkdir records; fiscalon show records");
  EXPECT_EQ(folder.status, 2);
  EXPECT_EQ(folder.err, "fiscalon: records can't be read: Is a directory\n");
}

TEST_F(ShowCommand, ShowsWhatAScreenWroteToAFile) {
  Write("a.scenario",
        "today 2026-06-15\nhost PaidAmount 12345\nhost EnterName \"Hélène Côté\"\nhost EnterTitle Clerk\n"
        "host SeqNumber 0001\nhost GovFilename " +
            Folder() +
            "/a.pc4\nhost WriteFile True\n"
            "show 15\n  type 202612\n  type 12345\n  click cmdOK\n");
  ASSERT_EQ(Run("fiscalon play a.scenario").status, 0);
  EXPECT_EQ(Run("fiscalon show a.pc4").out, "a.pc4\n\n" + shownGovernment_ + shownFree_ + "2 lines, nothing wrong\n");
}

TEST_F(ShowCommand, CutsLongLinesShort) {
  Write("a.pc4", std::string(100'000, 'x') + "\n");
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out, HasSubstr("|" + std::string(400, 'x') + "|\n    ... and 99600 more characters\n"));
}

}  // namespace
}  // namespace fiscalon
