#include <gmock/gmock.h>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// How the fields of each record kind are named and read.
class RecordMeaning : public CommandLine {
 protected:
  /// Shows a payment of a "T" record and this one.
  std::string Shown(const std::string& pieces) const {
    Write("a.pc4", Line(Ruled("PC40001T")) + Line(Ruled(pieces)));
    return Run("fiscalon show a.pc4").out;
  }
  /// Shows one record.
  std::string ShownAlone(const std::string& pieces) const {
    Write("a.pc4", Line(Ruled(pieces)));
    return Run("fiscalon show a.pc4").out;
  }
};

TEST_F(RecordMeaning, ReadsPeriodsAsDaysOrMonths) {
  // clang-format off
  //                       |head   |start  |end    |due    |
  EXPECT_THAT(ShownAlone("PC40001T2024022920260331202612  "),
              AllOf(HasSubstr("       9-16  PeriodStartDate  \"20240229\"                        2024-02-29\n"),
                    HasSubstr("      17-24  PeriodEndDate    \"20260331\"                        2026-03-31\n"),
                    HasSubstr("      25-32  PeriodDueDate    \"202612··\"                        2026-12\n"),
                    HasSubstr("nothing wrong")));
  // clang-format on
}

TEST_F(RecordMeaning, FindsImpossibleDates) {
  EXPECT_THAT(ShownAlone("PC40001T2026022920261301202600"),
              AllOf(HasSubstr("! columns 9-16: PeriodStartDate: \"20260229\" is no date YYYYMMDD or YYYYMM\n"),
                    HasSubstr("! columns 17-24: PeriodEndDate: \"20261301\" is no date YYYYMMDD or YYYYMM\n"),
                    HasSubstr("! columns 25-32: PeriodDueDate: \"202600··\" is no date YYYYMMDD or YYYYMM\n")));
  EXPECT_THAT(ShownAlone("PC40001T20260   2026AB010026"), AllOf(HasSubstr("PeriodStartDate: \"20260···\" is no date"),
                                                                HasSubstr("PeriodEndDate: \"2026AB01\" is no date"),
                                                                HasSubstr("PeriodDueDate: \"0026····\" is no date")));
}

TEST_F(RecordMeaning, FindsTextInColumnsThatAreAlwaysBlank) {
  // clang-format off
  //                       |head   |start  |end    |due    |filler1|name (30)                     |title (20)          |filler2
  EXPECT_THAT(ShownAlone("PC40001T                        X                                                         y           z"),
              AllOf(HasSubstr("! columns 33-40: Filler1: columns that are always blank hold \"X·······\"\n"),
                    HasSubstr("! columns 91-100: Filler2: columns that are always blank hold \"y·········\"\n"),
                    HasSubstr("    101-160                   \"··z·························································\"  !\n"),
                    HasSubstr("! columns 101-160: columns that are always blank hold \"··z·"), HasSubstr("1 line, 3 problems")));
  // clang-format on
  EXPECT_THAT(Shown("PC40001F01000000000000000100                                                            +"),
              HasSubstr("! columns 89-100: columns that are always blank hold \"+···········\"\n"));
}

TEST_F(RecordMeaning, ReadsFreeValues) {
  EXPECT_THAT(Shown("PC40001F01000000000000012345022026              03-0000000000000123404RT0001"),
              AllOf(HasSubstr("      11-28  FieldValue  \"000000000000012345\"  12345, as cents $123.45\n"),
                    HasSubstr("      31-48  FieldValue  \"2026··············\"  4 of 18 characters\n"),
                    HasSubstr("      51-68  FieldValue  \"-00000000000001234\"  -1234, as cents -$12.34\n"),
                    HasSubstr("      71-88  FieldValue  \"RT0001············\"  6 of 18 characters\n"),
                    HasSubstr("nothing wrong")));
}

TEST_F(RecordMeaning, ReadsAMinusBehindTheDigits) {
  EXPECT_THAT(Shown("PC40001F0600000000000001234-"),
              AllOf(HasSubstr("\"00000000000001234-\"  -1234, as cents -$12.34\n"), HasSubstr("nothing wrong")));
}

TEST_F(RecordMeaning, ReadsAmountsOfAnySize) {
  // Eighteen nines of cents are more than the type for money holds.
  EXPECT_THAT(Shown("PC40001F01999999999999999999020000000000000000010300092233720368547"),
              AllOf(HasSubstr("\"999999999999999999\"  999999999999999999, as cents 9999999999999999.99\n"),
                    HasSubstr("\"000000000000000001\"  1, as cents $0.01\n")));
}

TEST_F(RecordMeaning, ShowsUnusedSlotsAsBlank) {
  EXPECT_THAT(Shown("PC40001F012026              02000000000000000100"),
              AllOf(HasSubstr("      49-50  FieldNum    \"··\"                  blank\n"
                              "      51-68  FieldValue  \"··················\"  blank\n"
                              "      69-70  FieldNum    \"··\"                  blank\n"
                              "      71-88  FieldValue  \"··················\"  blank\n"),
                    HasSubstr("nothing wrong")));
}

TEST_F(RecordMeaning, FindsAmountsThatAreNotMadeOfDigits) {
  EXPECT_THAT(Shown("PC40001F0100000000000001234O02               12303-000000000000.1234"),
              AllOf(HasSubstr("! columns 11-28: FieldValue: the amount \"00000000000001234O\" is not made of digits\n"),
                    HasSubstr("! columns 31-48: FieldValue: the value \"···············123\" begins with blanks\n"),
                    HasSubstr("! columns 51-68: FieldValue: the amount \"-000000000000.1234\" is not made of digits\n"),
                    HasSubstr("2 lines, 3 problems")));
}

TEST_F(RecordMeaning, FindsFieldNumbersThatAreNone) {
  EXPECT_THAT(Shown("PC40001F 1000000000000000100A2000000000000000100"),
              AllOf(HasSubstr("! columns 9-10: FieldNum: \"·1\" is no field number of two digits\n"),
                    HasSubstr("! columns 29-30: FieldNum: \"A2\" is no field number of two digits\n")));
}

TEST_F(RecordMeaning, ReadsGenericDetails) {
  EXPECT_THAT(Shown("PC40001G000000000000050000Repairs"),
              AllOf(HasSubstr("line 2: G, generic details, sequence \"0001\"\n"),
                    HasSubstr("       9-26  Amount   \"000000000000050000\"" + std::string(34, ' ') + "$500.00\n"),
                    HasSubstr("      27-76  Details  \"Repairs···········································\"  7 of 50 "
                              "characters\n"),
                    HasSubstr("nothing wrong")));
  EXPECT_THAT(Shown("PC40001G            500.00"),
              HasSubstr("! columns 9-26: Amount: the amount \"············500.00\" is not made of digits\n"));
}

TEST_F(RecordMeaning, ReadsPrintableLines) {
  EXPECT_THAT(ShownAlone("PC40001PNAME: ANNE LEE"),
              AllOf(HasSubstr("line 1: P, printable line, sequence \"0001\"\n"),
                    HasSubstr("  9-78  Line  \"NAME: ANNE LEE·"), HasSubstr("\"  14 of 70 characters\n")));
}

TEST_F(RecordMeaning, ReadsInvoiceRows) {
  // clang-format off
  //                       |head   |date   |amount   |number (27)               |date   |amount   |number
  EXPECT_THAT(ShownAlone("PC40001R20260615 000012345INVOICE 1                  20260616-000000500CREDIT"),
              AllOf(HasSubstr("line 1: R, invoice row, sequence \"0001\"\n"),
                    HasSubstr("       9-16  InvoiceDate    \"20260615\"                     2026-06-15\n"
                              "      17-26  InvoiceAmount  \"·000012345\"                   $123.45\n"
                              "      27-53  InvoiceNumber  \"INVOICE 1··················\"  9 of 27 characters\n"
                              "      54-61  InvoiceDate    \"20260616\"                     2026-06-16\n"
                              "      62-71  InvoiceAmount  \"-000000500\"                   -$5.00\n"
                              "      72-98  InvoiceNumber  \"CREDIT·····················\"  6 of 27 characters\n"),
                    HasSubstr("nothing wrong")));
  EXPECT_THAT(ShownAlone("PC40001R202606   00001234XINVOICE 1"),
              AllOf(HasSubstr("! columns 9-16: InvoiceDate: \"202606··\" is no date YYYYMMDD\n"),
                    HasSubstr("! columns 17-26: InvoiceAmount: the amount \"·00001234X\" is not made of digits\n")));
  // clang-format on
}

TEST_F(RecordMeaning, ReadsStatementRows) {
  // clang-format off
  //                       |head   |item1  |amount  |item2    |  |item1
  EXPECT_THAT(ShownAlone("PC40001I20260615000012345INVOICE 1    SECOND  000000001"),
              AllOf(HasSubstr("line 1: I, statement row, sequence \"0001\"\n"),
                    HasSubstr("       9-16  Item1   \"20260615\"    8 of 8 characters\n"
                              "      17-25  Amount  \"000012345\"   $123.45\n"
                              "      26-35  Item2   \"INVOICE 1·\"  9 of 10 characters\n"
                              "      39-46  Item1   \"SECOND··\"    6 of 8 characters\n"
                              "      47-55  Amount  \"000000001\"   $0.01\n"
                              "      56-65  Item2   \"··········\"  blank\n"),
                    HasSubstr("nothing wrong")));
  // clang-format on
}

TEST_F(RecordMeaning, SaysWhereARecordEndsBeforeItsFields) {
  Write("a.pc4", Line("PC40001T                202612          Anne"));
  EXPECT_THAT(Run("fiscalon show a.pc4").out, AllOf(HasSubstr("      41-70  ContactName      \"Anne\"      cut off\n"
                                                              "      71-90  ContactTitle     \"\"          missing\n"
                                                              "     91-100  Filler2          \"\"          missing\n"),
                                                    HasSubstr("1 line, 1 problem")));
}

}  // namespace
}  // namespace fiscalon
