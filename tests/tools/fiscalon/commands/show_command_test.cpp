#include <gmock/gmock.h>

#include <vector>

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

TEST_F(ShowCommand, ShowsEachRecordAsItIsWhateverStandsBeforeIt) {
  // Records of one kind by their table, longer by a digit, cut off, and by the table again, and of other kinds.
  const std::string longer = "PC40001F01-000000000000000012" + std::string(132, ' ');
  const std::vector<std::string> records = {
      government_, free_,   Ruled("PC40003R20260615 000012345A-17"), free_, longer, free_.substr(0, 40),
      free_,       "hello", Ruled("PC40004I20260615000012345A-17"),  free_};
  std::string lines;
  for (const std::string& record : records) lines += Line(record);
  Write("a.pc4", lines);
  std::string text, json;
  for (size_t i = 1; i <= records.size(); ++i) {
    const std::string line = " --line " + std::to_string(i);
    const std::string shown = Run("fiscalon show a.pc4" + line).out;
    const size_t heading = shown.find("line "), end = shown.find("1 line picked");
    text += shown.substr(heading, end - heading);
    json += Run("fiscalon show a.pc4 --json-lines" + line).out;
  }
  EXPECT_THAT(Run("fiscalon show a.pc4").out, testing::StartsWith("a.pc4\n\n" + text + "10 lines, "));
  EXPECT_EQ(Run("fiscalon show a.pc4 --json-lines").out, json);
  EXPECT_THAT(text, AllOf(HasSubstr("line 5: F, free format, sequence \"0001\"\n"),
                          HasSubstr("\n      11-29  FieldValue  \"-000000000000000012\"  -12, as cents "),
                          HasSubstr("\n      31-48  FieldValue  \"0000000000\"          cut off\n"),
                          HasSubstr("\n      49-50  FieldNum    \"\"                    missing\n")));
}

TEST_F(ShowCommand, NamesFieldsByTheScreen) {
  Write("a.pc4", Line(government_) + Line(free_));
  const std::string shown = Run("fiscalon show a.pc4 --screen 15").out;
  EXPECT_THAT(shown, AllOf(HasSubstr("a.pc4, of screen 15 (frmDueDateAmount)\n"),
                           HasSubstr("       9-10  FieldNum    \"01\"                  Amount payable\n"
                                     "      11-28  FieldValue  \"000000000000012345\"  $123.45\n"
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
  EXPECT_EQ(seen.err, "fiscalon: there is no screen \"12\"; the codes are " + EveryScreenCode() +
                          "\nRun \"fiscalon show --help\" for its options.\n");
}

TEST_F(ShowCommand, RefusesAnEmptyCodeAsValidateDoes) {
  Write("a.pc4", Line(government_));
  const std::string shown = Run("fiscalon show a.pc4 --screen ''").err;
  const std::string judged = Run("fiscalon validate a.pc4 --amount 1 --screen ''").err;
  EXPECT_THAT(shown, testing::StartsWith("fiscalon: there is no screen \"\"; the codes are 01, 02,"));
  EXPECT_EQ(shown.substr(0, shown.find('\n')), judged.substr(0, judged.find('\n')));
}

TEST_F(ShowCommand, ReadsFilesThatTheSystemMakesUp) {
  EXPECT_THAT(Run("fiscalon show /proc/self/cmdline").out, HasSubstr("no record: the line begins with \""));
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
  for (const char* form : {"", " --json", " --json-lines"}) {
    const Outcome seen = Run(std::string("fiscalon show a.pc4") + form);
    EXPECT_EQ(seen.status, 2);
    EXPECT_THAT(seen.out, IsEmpty());
    EXPECT_EQ(seen.err, "fiscalon: a.pc4: the file is empty, it holds no records\n");
  }
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

TEST_F(ShowCommand, PrintsThePickedLinesOnly) {
  const auto lines = [](const Outcome& seen) {
    std::string numbers;
    for (size_t at = seen.out.find("\nline "); at != std::string::npos; at = seen.out.find("\nline ", at + 1))
      numbers += seen.out.substr(at + 6, 1);
    return numbers + " " + std::to_string(seen.status);
  };
  Write("a.pc4", Line(government_) + Line(free_) + Line(Ruled("PC40002T")) + "hello\n" +
                     Line(Ruled("PC40002F02000000000000000100")) + Line(Ruled("PC40003PNAME: ANNE")));
  EXPECT_EQ(lines(Run("fiscalon show a.pc4")), "123456 1");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --line 2")), "2 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --line 2-3")), "23 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --line 4-")), "456 1");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --line 5-90")), "56 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --only T")), "13 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --only F,P")), "256 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --seq 0002")), "35 0");
  EXPECT_EQ(lines(Run("fiscalon show a.pc4 --seq 0002 --only F --line 1-5")), "5 0");
  EXPECT_THAT(Run("fiscalon show a.pc4 --line 3-4").out, HasSubstr("\n2 lines picked, 1 problem\n"));
  EXPECT_EQ(Run("fiscalon show a.pc4 --seq 0009").out, "a.pc4\n\nno line is picked\n");
}

// A problem of order is one of the line that has it, and is found though the lines before it are not printed.
TEST_F(ShowCommand, JudgesPickedLinesByThoseBeforeThem) {
  Write("a.pc4", Line(government_) + Line(government_) + Line(free_));
  EXPECT_THAT(Run("fiscalon show a.pc4 --line 2").out, HasSubstr("! a second T record in the payment"));
  EXPECT_THAT(Run("fiscalon show a.pc4 --line 3").out, HasSubstr("1 line picked, nothing wrong"));
}

TEST_F(ShowCommand, RefusesPicksThatAreNone) {
  Write("a.pc4", Line(government_));
  for (const char* line : {"0", "x", "3-2", "3-x", "-3", "1-2-3", "99999999999999999999", "''"}) {
    const Outcome seen = Run(std::string("fiscalon show a.pc4 --line=") + line);
    EXPECT_EQ(seen.status, 2) << line;
    EXPECT_THAT(seen.out, IsEmpty()) << line;
  }
  EXPECT_THAT(Run("fiscalon show a.pc4 --line 3-2").err,
              HasSubstr("--line takes a line or a range of lines, such as 12, 12-20 or 12-, not \"3-2\"\n"));
  EXPECT_THAT(Run("fiscalon show a.pc4 --seq 12").err,
              HasSubstr("--seq takes a sequence number, which has four characters, not \"12\"\n"));
  EXPECT_EQ(Run("fiscalon show a.pc4 --only X").status, 2);
  EXPECT_EQ(Run("fiscalon show a.pc4 --json --json-lines").status, 2);
}

TEST_F(ShowCommand, CutsLongLinesShort) {
  Write("a.pc4", std::string(100'000, 'x') + "\n");
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out, HasSubstr("|" + std::string(400, 'x') + "|\n    ... and 99600 more characters\n"));
}

TEST_F(ShowCommand, NamesALineThatIsTooLongForAnyRecord) {
  const std::string start = Ruled("PC40001T");
  Write("a.pc4", '"' + start + std::string(5'000'000, ' ') + "\"\r\n" + Line(free_));
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out,
              AllOf(HasSubstr("    ... and 4999760 more characters\n"),
                    HasSubstr("\n    ! a line of 5000160 characters; only the first 4095 are looked at\n"),
                    HasSubstr("\nline 2: F, free format, sequence \"0001\"\n"), HasSubstr("2 lines, 1 problem\n")));
}

/// What `show` makes of one free-format record of a screen.
class ShowScreen : public CommandLine {
 protected:
  std::string Shown(const std::string& screen, const std::string& slots) const {
    Write("a.pc4", Line(Ruled("PC40001T                202606")) + Line(Ruled("PC40001F" + slots)));
    return Run("fiscalon show a.pc4 --only F --today 2026-06-15 --screen " + screen).out;
  }
};

TEST_F(ShowScreen, ReadsFieldsAsWhatTheyAre) {
  EXPECT_THAT(Shown("03", "010000000000000123450220260331          0300000000000500000004000000000000000012"),
              AllOf(HasSubstr("  FieldValue  \"000000000000012345\"  $123.45\n"),
                    HasSubstr("  FieldValue  \"20260331··········\"  2026-03-31\n"),
                    HasSubstr("  FieldValue  \"000000000005000000\"  $50,000.00\n"),
                    HasSubstr("  FieldValue  \"000000000000000012\"  12\n"), HasSubstr("nothing wrong")));
  EXPECT_THAT(Shown("04", "012026              02000000000000012345"),
              AllOf(HasSubstr("  FieldValue  \"2026··············\"  2026\n"), HasSubstr("nothing wrong")));
  EXPECT_THAT(Shown("27", "01202612"),
              AllOf(HasSubstr("  FieldValue  \"202612············\"  2026-12\n"), HasSubstr("nothing wrong")));
  EXPECT_THAT(Shown("14", "010000000000000000110200000000000000012303000000000000000000"),
              AllOf(HasSubstr("\"000000000000000011\"  11\n"), HasSubstr("\"000000000000000123\"  123\n"),
                    HasSubstr("\"000000000000000000\"  0\n"), HasSubstr("nothing wrong")));
  EXPECT_THAT(Shown("07", "01000000000000012345"),
              AllOf(HasSubstr("\"000000000000012345\"  18 of 18 characters\n"), HasSubstr("nothing wrong")));
}

TEST_F(ShowScreen, FindsWhatTheyAreNot) {
  EXPECT_THAT(Shown("02",
                    "01000000000000012345"
                    "0220260231"),
              HasSubstr("! columns 31-48: FieldValue: \"20260231··········\" is no date YYYYMMDD\n"));
  EXPECT_THAT(Shown("02", "0120260331"),
              HasSubstr("! columns 11-28: FieldValue: the amount \"20260331··········\" is not made of digits\n"));
  EXPECT_THAT(Shown("04", "0102026             02000000000000012345"),
              HasSubstr("! columns 11-28: FieldValue: \"02026·············\" is no year YYYY\n"));
  EXPECT_THAT(Shown("27", "01202613"),
              HasSubstr("! columns 11-28: FieldValue: \"202613············\" is no month YYYYMM\n"));
  EXPECT_THAT(Shown("14", "01-00000000000000011"),
              HasSubstr("! columns 11-28: FieldValue: the number \"-00000000000000011\" is not made of digits\n"));
  EXPECT_THAT(Shown("05", "01000000000000050001"),
              HasSubstr("! columns 11-28: FieldValue: the amount \"000000000000050001\" has cents, and is one of whole "
                        "dollars\n"));
  EXPECT_THAT(
      Shown("15", "0100000000000001234505000000000000000001"),
      HasSubstr("! columns 31-48: FieldValue: screen 15 has no field 05, and it holds \"000000000000000001\"\n"));
}

TEST_F(ShowScreen, SaysWhatValidateWouldSay) {
  EXPECT_THAT(Shown("03",
                    "01000000000000012345"
                    "0220260231          "
                    "03000000000000500050"
                    "04000000000000000000"),
              AllOf(HasSubstr("! columns 31-48: FieldValue: \"20260231··········\" is no date YYYYMMDD; validate says: "
                              "Field 02 End of Remitting Period is invalid\n"),
                    HasSubstr(" whole dollars; validate says: Field 03 Gross Payroll in Remitting Period cannot have "
                              "decimal value or invalid\n"),
                    HasSubstr("! columns 71-88: validate says: Field 04 Number of Employees is invalid\n"),
                    HasSubstr("1 line picked, 3 problems\n")));
  // A real day, but of another decade.
  EXPECT_THAT(Shown("03",
                    "01000000000000012345"
                    "0220160229"),
              AllOf(HasSubstr("  FieldValue  \"20160229··········\"  2016-02-29\n"),
                    HasSubstr("! columns 31-48: validate says: Field 02 End of Remitting Period is invalid\n")));
  EXPECT_THAT(Shown("03", "01                  05000000000000000001"),
              AllOf(HasSubstr("! columns 11-28: validate says: Field 01 Amount of Payment cannot be blank\n"),
                    HasSubstr("; validate says: Field 05 is not required\n")));
  // "2E97" is a year beyond 16 bits: the rule's own conversion fails.
  EXPECT_THAT(Shown("03",
                    "01000000000000012345"
                    "022E970101"),
              HasSubstr("; validate says: Error 6 - Overflow\n"));
}

TEST_F(ShowScreen, SaysWhatAPaymentLacksAtItsEnd) {
  Write("a.pc4", Line(Ruled("PC40001T                202606")) + Line(Ruled("PC40002F01000000000000000100")) +
                     Line(Ruled("PC40003T                202601")));
  EXPECT_THAT(
      Run("fiscalon show a.pc4 --screen 20 --today 2026-06-15 | grep '!'").out,
      "    ! validate says: Records for other required fields are missing\n"
      "    ! no T record before it; a payment with F or G records begins with one\n"
      "    ! validate says: Record for Remittance Period is missing\n"
      "    ! columns 25-32: validate says: Remittance Period must be in the form YYYYMM and be within the last 4 "
      "months\n"
      "    ! validate says: Records for other required fields are missing\n");
}

// What one says of a batch's payments the other says of their fields, but for the amount to be paid.
TEST_F(ShowScreen, AgreesWithValidate) {
  for (const std::string screen : {"03", "20"}) {
    ASSERT_EQ(
        Run("fiscalon generate --today 2026-06-15 --payments 400 --bad 0.5 --out b --force --screen " + screen).status,
        0);
    EXPECT_EQ(Run("fiscalon validate --today 2026-06-15 --payments b.csv --records b.pc4 --report r.csv").status, 1);
    // The reasons as `validate` joins them, without those that hold something against the payment.
    ASSERT_EQ(Run("tail -n +2 r.csv | sed 's/^[^,]*,[^,]*,[a-z]*,//; s/\"//g; s/, /\\n/g' | grep . "
                  "| grep -v -e 'to be paid' -e 'Remittance Type' >wanted")
                  .status,
              0);
    ASSERT_EQ(Run("fiscalon show b.pc4 --today 2026-06-15 --screen " + screen +
                  " | sed -n 's/^    ! .*validate says: //p' | grep . >told")
                  .status,
              0);
    EXPECT_EQ(Read("told"), Read("wanted")) << screen;
  }
}

/// The payments of a batch that fail, with what the judge has against them.
class ShowBadOnly : public CommandLine {
 protected:
  ShowBadOnly() {
    const auto payment = [](const std::string& seq, const std::string& slots) {
      return Line(Ruled("PC4" + seq + "T                202606")) + Line(Ruled("PC4" + seq + "F" + slots));
    };
    const std::string good = "010000000000000123450220260331          0300000000000500000004000000000000000012";
    Write("b.pc4", payment("0001", good) + payment("0002", std::string(good).replace(62, 18, 18, ' ')) +
                       payment("0003", good) + payment("0004", "01000000000000012345"));
    Write("b.csv", "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,12345\n0003,03,,12346\n0004,15,,12345\n");
  }

  Outcome Bad(const std::string& options = "") const {
    return Run("fiscalon show b.pc4 --bad-only --payments b.csv --today 2026-06-15 " + options);
  }
};

TEST_F(ShowBadOnly, PrintsTheRecordsOfPaymentsThatFail) {
  const Outcome seen = Bad();
  EXPECT_EQ(seen.status, 1);
  EXPECT_EQ(seen.err, "");
  EXPECT_THAT(seen.out, AllOf(HasSubstr("b.pc4\n\nline 3: T, government format, sequence \"0002\"\n"),
                              HasSubstr("\nline 4: F, free format, sequence \"0002\"\n"),
                              HasSubstr("\n4 payments, 3 invalid\n6 lines picked, 3 problems\n"),
                              testing::Not(HasSubstr("\"0001\""))));
  EXPECT_EQ(Bad("| grep '!'").out,
            "    ! columns 71-88: validate says: Field 04 Number of Employees cannot be blank\n"
            "    ! columns 11-28: validate says: Field 01 Amount of Payment is not equal to amount to be paid\n"
            "    ! validate says: Invalid or not supported Screen Type\n");
  // Each payment's fields are those of its own screen.
  EXPECT_THAT(Bad("--seq 0004 --only F").out, HasSubstr("\"01\"                  Amount payable\n"));
  EXPECT_EQ(Bad("--json-lines | wc -l").out, "6\n");
}

TEST_F(ShowBadOnly, PrintsNothingOfAGoodBatch) {
  Write("b.csv", "seq,screen,biller,amount\n0001,03,,12345\n");
  Write("b.pc4", Read("b.pc4").substr(0, 2 * 164));
  const Outcome seen = Bad();
  EXPECT_EQ(seen.status, 0);
  EXPECT_EQ(seen.out, "b.pc4\n\n1 payment, 0 invalid\nno line is picked\n");
}

TEST_F(ShowBadOnly, ComplainsOfFilesAsValidateDoes) {
  Write("empty", "");
  Write("head.csv", "seq,screen,biller,amount\r\n");
  Write("short.csv", "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,1\n");
  for (const std::string files : {"b.csv empty", "head.csv b.pc4", "head.csv empty", "short.csv b.pc4", "b.csv none"}) {
    const size_t blank = files.find(' ');
    const std::string payments = files.substr(0, blank), records = files.substr(blank + 1);
    const Outcome shown = Run("fiscalon show --bad-only --payments " + payments + " " + records);
    const Outcome judged = Run("fiscalon validate --payments " + payments + " --records " + records);
    EXPECT_EQ(shown.status, 2) << files;
    EXPECT_EQ(judged.status, 2) << files;
    EXPECT_EQ(shown.err, judged.err) << files;
    EXPECT_THAT(shown.out, testing::Not(HasSubstr("invalid"))) << files;
  }
  EXPECT_EQ(Run("fiscalon show --bad-only --payments b.csv empty").err,
            "fiscalon: empty: the file is empty, it holds no records\n");
  EXPECT_EQ(Run("fiscalon show --bad-only --payments head.csv b.pc4").err,
            "fiscalon: head.csv: the list has no row, it names no payment\n");
}

TEST_F(ShowBadOnly, WantsAListAndNoScreen) {
  EXPECT_EQ(Run("fiscalon show b.pc4 --bad-only").status, 2);
  EXPECT_EQ(Run("fiscalon show b.pc4 --payments b.csv").status, 2);
  EXPECT_EQ(Bad("--screen 03").status, 2);
  EXPECT_EQ(Run("fiscalon show - --bad-only --payments -").status, 2);
}

}  // namespace
}  // namespace fiscalon
