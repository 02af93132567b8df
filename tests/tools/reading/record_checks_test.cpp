#include <gmock/gmock.h>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// What is said of records as a whole, and of their order.
class RecordChecks : public CommandLine {
 protected:
  const std::string government_ = Ruled("PC40001T");

  /// The problems that `show` finds, without their margin. The file is also shown as JSON, which must find as many.
  std::string Problems(const std::string& bytes) const {
    Write("a.pc4", bytes);
    const std::string problems = Run("fiscalon show a.pc4 | sed -n 's/^    ! //p'").out;
    const Outcome asJson = Run("fiscalon show a.pc4 --json");
    EXPECT_EQ(asJson.status, problems.empty() ? 0 : 1);
    return problems;
  }
};

TEST_F(RecordChecks, MeasuresRecords) {
  EXPECT_EQ(Problems(Line(government_.substr(0, 159))), "159 characters long, not 160: 1 short\n");
  EXPECT_EQ(Problems(Line(government_ + "  ")), "162 characters long, not 160: 2 too many\n");
}

TEST_F(RecordChecks, NamesTheReasonWhereARecordIsInUtf8) {
  EXPECT_EQ(Problems(Line(Ruled("PC40001T                                Hélène").append("  "))),
            "162 characters long, not 160: 2 too many; it holds UTF-8, and records are in Windows-1252\n");
}

TEST_F(RecordChecks, FindsAWrongHead) {
  EXPECT_EQ(Problems(Line("PX4" + government_.substr(3))), "columns 1-3: \"PX4\" stands where \"PC4\" should\n");
}

TEST_F(RecordChecks, FindsAnUnknownKind) {
  EXPECT_EQ(Problems(Line(Ruled("PC40001X"))),
            "column 8: unknown record kind \"X\"; the kinds are T, F, G, P, R and I\n");
  EXPECT_EQ(Problems(Line(Ruled("PC40001t"))),
            "column 8: unknown record kind \"t\"; the kinds are T, F, G, P, R and I\n");
}

TEST_F(RecordChecks, FindsNulAndControlCharacters) {
  std::string record = Ruled("PC40001T                                Anne.Lee.Jr.....");
  record[44] = '\0';
  record[48] = '\t';
  record[51] = '\x1B';
  record[52] = '\x7F';
  record[53] = '\x81';
  record[54] = '\r';
  record[55] = '\x01';
  EXPECT_EQ(Problems(Line(record)),
            "column 45: a NUL byte\n"
            "column 49: a tab\n"
            "column 52: control character 0x1B\n"
            "column 53: control character 0x7F\n"
            "column 54: control character 0x81\n"
            "and 2 more control characters\n");
  EXPECT_THAT(Run("fiscalon show a.pc4").out, HasSubstr("Anne␀Lee␉Jr␛␡\uFFFD␍␁"));
}

TEST_F(RecordChecks, WantsTheGovernmentRecordFirst) {
  const std::string first = Ruled("PC40001F01000000000000000100");
  EXPECT_EQ(Problems(Line(first)), "no T record before it; a payment with F or G records begins with one\n");
  EXPECT_EQ(Problems(Line(Ruled("PC40001G000000000000000100"))),
            "no T record before it; a payment with F or G records begins with one\n");
  EXPECT_EQ(Problems(Line(first) + Line(government_)),
            "no T record before it; a payment with F or G records begins with one\n"
            "a T record behind others; it comes first in its payment\n");
  EXPECT_EQ(Problems(Line(government_) + Line(government_)),
            "a second T record in the payment; there is one, and first\n");
}

TEST_F(RecordChecks, WantsNoGovernmentRecordForPrintableLinesAndRows) {
  EXPECT_THAT(Problems(Line(Ruled("PC40001PNAME: ")) + Line(Ruled("PC40001PADDRESS: "))), IsEmpty());
  EXPECT_THAT(Problems(Line(Ruled("PC40001R20260615 000012345INVOICE 1"))), IsEmpty());
  EXPECT_THAT(Problems(Line(Ruled("PC40001I20260615000012345INVOICE 1"))), IsEmpty());
}

TEST_F(RecordChecks, BeginsAPaymentWithEachSequence) {
  EXPECT_THAT(Problems(Line(government_) + Line(Ruled("PC40001F01000000000000000100")) + Line(Ruled("PC40002T")) +
                       Line(Ruled("PC40002F01000000000000000100"))),
              IsEmpty());
}

TEST_F(RecordChecks, WantsFieldNumbersThatGoUp) {
  // They may jump, go on in the next record, and be 00 or blank in a slot that is not used.
  EXPECT_THAT(
      Problems(Line(government_) +
               Line(Ruled("PC40001F01000000000000000100030000000000000001000400000000000000010005000000000000000100")) +
               Line(Ruled("PC40001F07000000000000000100000000000000000000000800000000000000010012000000000000000100"))),
      IsEmpty());
  EXPECT_EQ(Problems(Line(government_) + Line(Ruled("PC40001F0200000000000000010002000000000000000100")) +
                     Line(Ruled("PC40001F01000000000000000100"))),
            "columns 29-30: field number 02 behind 02; a payment's field numbers go up\n"
            "columns 9-10: field number 01 behind 02; a payment's field numbers go up\n");
}

TEST_F(RecordChecks, WantsANumberForEachValue) {
  EXPECT_EQ(Problems(Line(government_) + Line(Ruled("PC40001F01000000000000000100  2026"))),
            "columns 31-48: a value without a field number\n");
}

TEST_F(RecordChecks, WantsDetailsLastWhereTheyAreJoinedToo) {
  const std::string joined =
      "PC40001F01A                 000000000000000100Repairs" + std::string(312 - 8 - 20 - 18 - 7, ' ');
  EXPECT_EQ(Problems(Line(government_) + Line(joined) + Line(Ruled("PC40001F02000000000000000100"))),
            "an F record behind a G record\n");
  EXPECT_EQ(Problems(Line(joined)), "no T record before it; a payment with F or G records begins with one\n");
}

TEST_F(RecordChecks, WantsDetailsLast) {
  EXPECT_EQ(Problems(Line(government_) + Line(Ruled("PC40001G000000000000000100Repairs")) +
                     Line(Ruled("PC40001F01000000000000000100"))),
            "an F record behind a G record\n");
}

}  // namespace
}  // namespace fiscalon
