#include <gmock/gmock.h>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string Blanks(size_t count) {
  return std::string(count, ' ');
}

/// Records that screens write longer than others of their kind.
class Overruns : public CommandLine {
 protected:
  /// Shows a payment of a "T" record and this one.
  Outcome Show(const std::string& record, const std::string& options = "") const {
    Write("a.pc4", Line(Ruled("PC40001T")) + Line(record));
    return Run("fiscalon show a.pc4 " + options);
  }
};

TEST_F(Overruns, ShowARefundInColumnsOfItsOwn) {
  const Outcome seen = Show(
      "PC40001F05000000000000000000"
      "0600000000000005000-"
      "07000000000000000000"
      "08-000000000000005000" +
          Blanks(72),
      "--screen 05");
  EXPECT_EQ(seen.status, 0);
  // clang-format off
  EXPECT_THAT(seen.out,
              AllOf(HasSubstr("      69-70  FieldNum    \"08\"                   Refund claimed (114)\n"
                              "      71-89  FieldValue  \"-000000000000005000\"  -$50.00\n"),
                    HasSubstr("    ~ columns 71-89: FieldValue: a minus sign and 18 digits take 1 column more than the field has; "
                              "what follows stands as much further right\n"),
                    HasSubstr("\n" + Blanks(75) + "~~~~~~~~~~~~~~~~~~~\n"),
                    HasSubstr("\n2 lines, nothing wrong, 1 odd\n"), Not(HasSubstr("!"))));
  // clang-format on
}

TEST_F(Overruns, ShowWhatStandsBehindANegativeNumber) {
  const Outcome seen = Show(
      "PC40001F01-000000000000000012"
      "02123               "
      "03000000000000000000" +
      Blanks(92));
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out, AllOf(HasSubstr("      30-31  FieldNum    \"02\""),
                              HasSubstr("\"123···············\"   3 of 18 "), HasSubstr("nothing wrong, 1 odd\n")));
}

TEST_F(Overruns, ShowLongInvoiceAmounts) {
  Write("a.pc4", Line("PC40001R20260615-1234567890A-17" + Blanks(23) + Blanks(45 + 62)));
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out, AllOf(HasSubstr("17-27  InvoiceAmount  \"-1234567890\""), HasSubstr("-$12,345,678.90\n"),
                              HasSubstr("28-54  InvoiceNumber  \"A-17·"), HasSubstr("nothing wrong, 1 odd\n")));
}

TEST_F(Overruns, ShowTheBodyOfAGRecordBehindSlots) {
  // clang-format off
  const Outcome seen = Show("PC40001F" "01ABC               " "03X-1               "
                            "000000000000001250" "LATE FEE" + Blanks(42) + Blanks(24 + 60) + Blanks(40) + Blanks(12 + 60),
                            "--screen 07");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out,
              AllOf(HasSubstr("       9-10  FieldNum    \"01\""), HasSubstr("A-01\n"),
                    HasSubstr("      29-30  FieldNum    \"03\""), HasSubstr("C-03\n"),
                    HasSubstr("      49-66  Amount      \"000000000000001250\""), HasSubstr("$12.50\n"),
                    HasSubstr("     67-116  Details     \"LATE FEE·"), HasSubstr("\"  8 of 50 characters\n"),
                    HasSubstr("    201-202  FieldNum    \"··\""),
                    HasSubstr("    ~ columns 49-200: the body of a G record stands behind 2 slots, as the collection of the generic "
                              "remittance screen has it\n"),
                    HasSubstr("\n2 lines, nothing wrong, 1 odd\n")));
  // clang-format on
  EXPECT_THAT(Show("PC40001F01ABC               000000000000001250LATE FEE" + Blanks(258)).out,
              HasSubstr("columns 29-180: the body of a G record stands behind 1 slot, as"));
}

TEST_F(Overruns, StillHaveTheirProblems) {
  const Outcome seen = Show(
      "PC40001F01-000000000000000012"
      "01123               " +
      Blanks(112));
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.out, HasSubstr("! 161 characters long, not 160: 1 too many\n"));
  const Outcome joined = Show("PC40001F01ABC               000000000000001250LATE FEE" + Blanks(257) + "x");
  EXPECT_EQ(joined.status, 1);
  EXPECT_THAT(joined.out, AllOf(HasSubstr("! columns 253-312: columns that are always blank hold \""),
                                HasSubstr("\n2 lines, 1 problem, 1 odd\n")));
}

TEST_F(Overruns, AreRefusedByTheValidatorOfBatches) {
  Write("a.csv", "seq,screen,biller,amount\n0001,03,,12\n");
  Write("a.pc4", Line("PC40001F01-000000000000000012" + Blanks(132)));
  const Outcome seen = Run("fiscalon validate --payments a.csv --records a.pc4");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: a.pc4:1: a line of 161 characters; a record has 160\n");
}

}  // namespace
}  // namespace fiscalon
