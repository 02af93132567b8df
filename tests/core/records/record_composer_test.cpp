#include "core/records/record_composer.h"

#include <gtest/gtest.h>

#include "core/records/field_values.h"
#include "tests/support/raises.h"
#include "tests/support/ruled_record.h"

namespace fiscalon {
namespace {

// clang-format off
TEST(RecordComposer, WritesEveryGovernmentFieldAtItsWidth) {
  EXPECT_EQ(ComposeGovernmentFormat("0001", {.periodStartDate = "20260101", .periodEndDate = "20260331",
                                             .periodDueDate = "20260430", .filler1 = "FILLER-1",
                                             .contactName = " Helene Cote ", .contactTitle = "Treasurer",
                                             .filler2 = "FILLER-TWO"}),
  //             |head   |start  |end    |due    |filler1|name (30)                     |title (20)          |filler2
            Ruled("PC40001T20260101202603312026043" "0FILLER-1Helene Cote                   Treasurer           FILLER-TWO"));
}

TEST(RecordComposer, LeavesBlankWhatAGovernmentRecordDoesNotCarry) {
  EXPECT_EQ(ComposeGovernmentFormat("0001", {.periodDueDate = "202612", .contactName = "A", .contactTitle = "B"}),
  //             |head   |start  |end    |due    |filler1|name (30)                     |title
            Ruled("PC40001T                202612          A                             B"));
}

TEST(RecordComposer, WritesFourSlotsOfTwenty) {
  EXPECT_EQ(ComposeFreeFormat("0001", {{"01", "000000000000012345"}, {"02", "20260531"}, {"03", std::string(kZeroValue)},
                                       {"04", "000000000000000012"}}),
  //             |head   01|value           02|value           03|value           04|value
            Ruled("PC40001F01000000000000012345" "0220260531          " "03000000000000000000" "04000000000000000012"));
}

TEST(RecordComposer, LeavesUnusedSlotsBlank) {
  EXPECT_EQ(ComposeFreeFormat("0001", {{"01", "2026"}, {"02", "000000000000012345"}}),
            Ruled("PC40001F012026              " "02000000000000012345"));
}

TEST(RecordComposer, DoesNotCutAValueOfNineteenCharacters) {
  const std::string record = ComposeFreeFormat("0001", {{"08", "-000000000000005000"}, {"09", "1"}});
  EXPECT_EQ(record.size(), 161u);
  EXPECT_EQ(record, Ruled("PC40001F08-000000000000005000" "091") + " ");
}

TEST(RecordComposer, WritesGenericDetails) {
  EXPECT_EQ(ComposeGenericDetails("0001", "000000000000001250", " Late fee "),
  //             |head   |amount            |details
            Ruled("PC40001G000000000000001250Late fee"));
}

TEST(RecordComposer, WritesAPrintableLineUntrimmed) {
  EXPECT_EQ(ComposePrintableLine("0001", "         OTTAWA ON"), Ruled("PC40001P         OTTAWA ON"));
}

TEST(RecordComposer, WritesTwoInvoicesToARow) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260601", "12.5", "A-17 "), MakeInvoiceEntry("20260602", "-3", "B")};
  EXPECT_EQ(ComposeInvoiceRow("0001", entries),
  //             |head   |date   |amount   |number (27)                |date   |amount   |number
            Ruled("PC40001R20260601 000001250A-17                       20260602-000000300B"));
}

TEST(RecordComposer, LeavesTheSecondInvoiceOfAnOddListBlank) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260601", "0", "A-17")};
  EXPECT_EQ(ComposeInvoiceRow("0001", entries), Ruled("PC40001R20260601 000000000A-17"));
}

TEST(RecordComposer, WritesThreeStatementEntriesToARow) {
  const StatementEntry entries[] = {MakeStatementEntry("20260601", "12.5", "A-17"),
                                    MakeStatementEntry("20260602", "3", "12345678901"),
                                    MakeStatementEntry("2026", "0.01", "C")};
  EXPECT_EQ(ComposeStatementRow("0001", entries),
  //             |head   |item1  |amount  |item2     |  |item1  |amount  |item2     |  |item1  |amount  |item2
            Ruled("PC40001I20260601000001250A-17         202606020000003001234567890   2026    000000001C"));
}

TEST(RecordComposer, LeavesStatementEntriesThatAreNotThereBlank) {
  EXPECT_EQ(ComposeStatementRow("0001", {}), Ruled("PC40001I"));
}
// clang-format on

TEST(RecordComposer, ATextValueIsFilledToEighteen) {
  EXPECT_EQ(ComposeFreeFormat("0001", {{"01", "2026"}}).substr(10, 18), "2026              ");
}

TEST(RecordComposer, CopiesASequenceOfAnyLengthWithoutFillingOrCutting) {
  EXPECT_EQ(ComposePrintableLine("7", "x").substr(0, 7), "PC47Px ");
  EXPECT_EQ(ComposePrintableLine("1234567", "x").substr(0, 12), "PC41234567Px");
}

TEST(RecordComposer, ANameOfExactlyThirtyHasNoBlankBeforeTheTitle) {
  const std::string name(30, 'N');
  const std::string title(20, 'T');
  const std::string record = ComposeGovernmentFormat("0001", {.contactName = name, .contactTitle = title});
  EXPECT_EQ(record, Ruled("PC40001T" + std::string(32, ' ') + name + title));
  EXPECT_EQ(record.size(), 160u);
}

TEST(RecordComposer, ALongerNameOrTitleIsError5) {
  const auto error = [](const GovernmentFields& fields) {
    try {
      ComposeGovernmentFormat("0001", fields);
    } catch (const RuntimeError& raised) {
      return std::to_string(raised.Number()) + " " + std::string(raised.Description());
    }
    return std::string("none");
  };
  EXPECT_EQ(error({.contactName = std::string(31, 'N')}), "5 Invalid procedure call or argument");
  EXPECT_EQ(error({.contactTitle = std::string(21, 'T')}), "5 Invalid procedure call or argument");
  EXPECT_EQ(error({.contactName = " " + std::string(30, 'N') + " ", .contactTitle = std::string(20, 'T')}), "none");
}

TEST(RecordComposer, AFiftyFirstCharacterOfDetailsIsError5) {
  EXPECT_EQ(ErrorOf([] { ComposeGenericDetails("0001", kZeroValue, std::string(50, 'D')); }), 0);
  EXPECT_EQ(ErrorOf([] { ComposeGenericDetails("0001", kZeroValue, std::string(51, 'D')); }), 5);
}

TEST(RecordComposer, ASeventyFirstCharacterOfALineIsError5) {
  EXPECT_EQ(ErrorOf([] { ComposePrintableLine("0001", std::string(70, 'L')); }), 0);
  EXPECT_EQ(ErrorOf([] { ComposePrintableLine("0001", std::string(71, 'L')); }), 5);
}

TEST(RecordComposer, EightSlotsMakeTwoRecordsAndFiveTwoAsWell) {
  const std::vector<FreeFormatSlot> slots(8, {"01", std::string(kZeroValue)});
  EXPECT_EQ(ComposeFreeFormats("0001", slots).size(), 2u);
  const auto records = ComposeFreeFormats("0001", std::span(slots).first(5));
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[1], Ruled("PC40001F01000000000000000000"));
  EXPECT_TRUE(ComposeFreeFormats("0001", {}).empty());
}

TEST(RecordComposer, DetailsBehindOpenSlotsMakeOneRecordOf312) {
  const std::vector<FreeFormatSlot> slots{{"01", "A"}, {"02", "B"}};
  const std::string record = ComposeFreeFormatWithDetails("0001", slots, "000000000000001250", "Late fee");
  const auto blanks = [](size_t count) { return std::string(count, ' '); };
  EXPECT_EQ(record, "PC40001F01A" + blanks(17) + "02B" + blanks(17) + "000000000000001250Late fee" + blanks(42) +
                        blanks(24) + blanks(60) + blanks(40) + blanks(12) + blanks(60));
  EXPECT_EQ(record.size(), 312u);
}

TEST(RecordComposer, DetailsAreJoinedToOneTwoOrThreeSlots) {
  const auto join = [](size_t count) {
    const std::vector<FreeFormatSlot> slots(count, {"01", "A"});
    return ErrorOf([&] { ComposeFreeFormatWithDetails("0001", slots, kZeroValue, "Late fee"); });
  };
  EXPECT_EQ(join(0), 5);
  EXPECT_EQ(join(1), 0);
  EXPECT_EQ(join(3), 0);
  EXPECT_EQ(join(4), 5);
}

TEST(RecordComposer, JoinedDetailsLongerThanFiftyAreError5) {
  EXPECT_EQ(ErrorOf([] {
              ComposeFreeFormatWithDetails("0001", std::vector<FreeFormatSlot>{{"01", "A"}}, kZeroValue,
                                           std::string(51, 'D'));
            }),
            5);
}

TEST(RecordComposer, InvoiceTextsAreTrimmedThenFilledOrCut) {
  const InvoiceEntry entry = MakeInvoiceEntry(" 2026060112 ", " 12.5 ", "  " + std::string(28, 'n'));
  EXPECT_EQ(entry.date, "20260601");
  EXPECT_EQ(entry.amount, " 000001250");
  EXPECT_EQ(entry.number, std::string(27, 'n'));
  const InvoiceEntry shorter = MakeInvoiceEntry("2026", "0", "n");
  EXPECT_EQ(shorter.date, "2026    ");
  EXPECT_EQ(shorter.number, "n" + std::string(26, ' '));
}

TEST(RecordComposer, AnInvoiceAmountBelowZeroHasItsMinusInTheSignColumn) {
  EXPECT_EQ(MakeInvoiceEntry("", "-12.34", "").amount, "-000001234");
  EXPECT_EQ(MakeInvoiceEntry("", "9999999.99", "").amount, " 999999999");
}

TEST(RecordComposer, AFileLineStandsInQuotesThatAreNotDoubled) {
  EXPECT_EQ(QuotedLine("PC40001P\"x\""), "\"PC40001P\"x\"\"\r\n");
}

TEST(RecordComposer, ARecordStaysOneLineWhateverItsTextsHold) {
  EXPECT_EQ(ComposeGovernmentFormat("00\n1", {.contactName = "Nora\r\n\"PC4", .contactTitle = "Clerk\tII"}),
            // A blank for each character under 32.
            "PC400 1T" + std::string(32, ' ') + "Nora  \"PC4" + std::string(20, ' ') + "Clerk II" +
                std::string(12, ' ') + std::string(70, ' '));
  EXPECT_EQ(ComposePrintableLine("0001", "NAME: \x1F").substr(8, 8), "NAME:   ");
  EXPECT_EQ(ComposeFreeFormat("0001", {{"01", "A\nB"}}).substr(8, 8), "01A B   ");
}

TEST(RecordComposer, CharactersThatBecomeBlanksStillCountForTheWidth) {
  EXPECT_EQ(ErrorOf([] { ComposeGovernmentFormat("0001", {.contactName = std::string(30, 'A') + "\n"}); }), 5);
}

TEST(RecordComposer, AnInvoiceStaysOnOneLineToo) {
  const InvoiceEntry entry = MakeInvoiceEntry("2026\n615", "1", "INV\r\n7");
  EXPECT_EQ(entry.date, "2026 615");
  EXPECT_EQ(entry.number, "INV  7" + std::string(21, ' '));
}

}  // namespace
}  // namespace fiscalon
