#include "core/records/placed_fields.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/records/record_composer.h"
#include "core/records/record_reader.h"
#include "tests/support/ruled_record.h"

namespace fiscalon {
namespace {

/// The texts of all fields of that name, in order.
std::vector<std::string> Texts(std::string_view record, std::string_view name) {
  std::vector<std::string> texts;
  for (const RecordField& field : PlaceFields(record).fields)
    if (field.name == name)
      texts.emplace_back(TextIn(record, field));
  return texts;
}

/// The long numbers: their columns, and how many of them are too many.
std::string LongNumbersOf(std::string_view record) {
  std::string numbers;
  for (const Overrun& overrun : PlaceFields(record).overruns)
    numbers += std::string(overrun.place.name) + " " + std::to_string(overrun.place.from) + "-" +
               std::to_string(overrun.place.to) + " +" + std::to_string(overrun.shift) + "; ";
  return numbers;
}

std::string Filled(std::string text, size_t width) {
  return text.append(width - text.size(), ' ');
}

TEST(PlaceFields, StandAsTheTableHasThem) {
  const std::string record = Ruled("PC40001F01000000000000000100");
  const PlacedFields placed = PlaceFields(record);
  ASSERT_EQ(placed.fields.size(), kFreeFormatLayout.size());
  EXPECT_EQ(placed.fields[3].from, 9);
  EXPECT_EQ(placed.fields[4].to, 28);
  EXPECT_TRUE(placed.overruns.empty());
  EXPECT_EQ(placed.Length(), 160U);
}

TEST(PlaceFields, AreNoneOfAnUnknownKind) {
  EXPECT_TRUE(PlaceFields(Ruled("PC40001X")).fields.empty());
  EXPECT_EQ(PlaceFields("PC4").Length(), 0U);
}

// A refund of 50.00: a minus sign and 18 digits in the last slot.
TEST(PlaceFields, MoveBehindARefund) {
  const std::string record =
      "PC40001F"
      "05000000000000000000"
      "0600000000000005000-"
      "07000000000000000000"
      "08-000000000000005000" +
      std::string(72, ' ');
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "FieldValue 71-89 +1; ");
  EXPECT_EQ(Texts(record, "FieldValue")[3], "-000000000000005000");
  EXPECT_EQ(PlaceFields(record).Length(), 161U);
  EXPECT_EQ(PlaceFields(record).fields.back().from, 102);
}

TEST(PlaceFields, MoveBehindANegativeNumberInAnySlot) {
  // clang-format off
  //                          |head   01|19 columns        02|value           03|19 columns        04|value
  const std::string record = "PC40001F01-000000000000000120" "020000000000000001" "0003-000000000000000007" "042026              ";
  // clang-format on
  const std::string whole = record + std::string(72, ' ');
  ASSERT_EQ(whole.size(), 162U);
  EXPECT_EQ(LongNumbersOf(whole), "FieldValue 11-29 +1; FieldValue 52-70 +1; ");
  EXPECT_EQ(Texts(whole, "FieldNum"), (std::vector<std::string>{"01", "02", "03", "04"}));
  EXPECT_EQ(Texts(whole, "FieldValue"), (std::vector<std::string>{"-000000000000000120", "000000000000000100",
                                                                  "-000000000000000007", "2026              "}));
}

// A minus sign and 17 digits fill the columns; the next slot's number could be taken for an 18th.
TEST(PlaceFields, TellALongNumberFromOneThatFits) {
  const std::string record =
      "PC40001F"
      "01-00000000000000012"
      "02-000000000000000034"
      "03000000000000000000"
      "04000000000000000000" +
      std::string(72, ' ');
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "FieldValue 31-49 +1; ");
}

TEST(PlaceFields, MoveInAGovernmentRecord) {
  const std::string record = ComposeGovernmentFormat("0001", {.periodEndDate = "-20261231", .contactName = "Anne"});
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "PeriodEndDate 17-25 +1; ");
  EXPECT_EQ(Texts(record, "ContactName")[0], Filled("Anne", 30));
}

TEST(PlaceFields, MoveBehindInvoiceAmountsOfManyDigits) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260615", "-12345678.90", "7 UP"),
                                  MakeInvoiceEntry("20260616", "-123456789.01", "B")};
  const std::string record = ComposeInvoiceRow("0001", entries);
  ASSERT_EQ(record.size(), 163U);
  EXPECT_EQ(LongNumbersOf(record), "InvoiceAmount 17-27 +1; InvoiceAmount 63-74 +2; ");
  EXPECT_EQ(Texts(record, "InvoiceAmount"), (std::vector<std::string>{"-1234567890", "-12345678901"}));
  EXPECT_EQ(Texts(record, "InvoiceNumber"), (std::vector<std::string>{Filled("7 UP", 27), Filled("B", 27)}));
}

TEST(PlaceFields, FindACreditThatFitsBehindAnInvoiceAmountThatDoesNot) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260615", "-12345678.90", "A"),
                                  MakeInvoiceEntry("20260616", "-12.34", "B")};
  const std::string record = ComposeInvoiceRow("0001", entries);
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "InvoiceAmount 17-27 +1; ");
  EXPECT_EQ(Texts(record, "InvoiceAmount"), (std::vector<std::string>{"-1234567890", "-000001234"}));
}

TEST(PlaceFields, FindAnAmountThatIsPaidBehindOneThatDoesNotFit) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260615", "-12345678.90", "A"),
                                  MakeInvoiceEntry("20260616", "12.34", "B")};
  const std::string record = ComposeInvoiceRow("0001", entries);
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "InvoiceAmount 17-27 +1; ");
  EXPECT_EQ(Texts(record, "InvoiceAmount"), (std::vector<std::string>{"-1234567890", " 000001234"}));
}

TEST(PlaceFields, FindNoLongAmountBehindWhatIsNoAmount) {
  const InvoiceEntry entries[] = {MakeInvoiceEntry("20260615", "12.34", "A"),
                                  MakeInvoiceEntry("20260616", "-12345678.90", "B")};
  std::string record = ComposeInvoiceRow("0001", entries);
  EXPECT_EQ(LongNumbersOf(record), "InvoiceAmount 62-72 +1; ");
  record.replace(16, 10, "  00001234");
  EXPECT_EQ(LongNumbersOf(record), "");
}

TEST(PlaceFields, MoveBehindANegativeStatementAmount) {
  const StatementEntry entries[] = {MakeStatementEntry("20260615", "-5", "A-17")};
  const std::string record = ComposeStatementRow("0001", entries);
  ASSERT_EQ(record.size(), 161U);
  EXPECT_EQ(LongNumbersOf(record), "Amount 17-26 +1; ");
  EXPECT_EQ(Texts(record, "Item2")[0], "A-17      ");
}

TEST(PlaceFields, StayWhereNoNumberAccountsForALongerRecord) {
  for (const std::string& record : {Ruled("PC40001F01000000000000000100") + " ", Ruled("PC40001T") + "x",
                                    // One column too many, but the rest holds text where it is always blank.
                                    "PC40001F01-000000000000000100" + std::string(61, ' ') + "x" + std::string(70, ' '),
                                    // The number explains one column, the record has two.
                                    "PC40001F01-000000000000000100" + std::string(133, ' '),
                                    // A minus sign in front of nineteen digits, of which no value has more than
                                    // eighteen.
                                    "PC40001F01-1234567890123456789" + std::string(132, ' '),
                                    // A minus sign in front of fewer digits.
                                    Ruled("PC40001F01-00000000000000100") + " "}) {
    const PlacedFields placed = PlaceFields(record);
    EXPECT_TRUE(placed.overruns.empty()) << record;
    EXPECT_EQ(placed.Length(), 160U) << record;
  }
}

TEST(PlaceFields, FindDetailsBehindOneTwoAndThreeSlots) {
  const std::vector<FreeFormatSlot> slots = {{"01", "A-1"}, {"03", "123456789012345678"}, {"12", "Z"}};
  for (size_t count = 1; count <= slots.size(); ++count) {
    // The details begin with digits, as if an amount went on.
    const std::string record = ComposeFreeFormatWithDetails("0001", std::span(slots).first(count), "000000000000001250",
                                                            "00000000000000000000 FEE");
    ASSERT_EQ(record.size(), 312U);
    const PlacedFields placed = PlaceFields(record);
    ASSERT_EQ(placed.overruns.size(), 1U);
    EXPECT_EQ(placed.overruns[0].kind, Overrun::Kind::JoinedDetails);
    EXPECT_EQ(placed.overruns[0].slotCount, count);
    EXPECT_EQ(placed.overruns[0].place.from, 9 + 20 * static_cast<int>(count));
    EXPECT_EQ(placed.overruns[0].place.to, 160 + 20 * static_cast<int>(count));
    EXPECT_EQ(placed.Length(), 312U);
    EXPECT_EQ(Texts(record, "Amount"), std::vector<std::string>{"000000000000001250"});
    EXPECT_EQ(Texts(record, "Details"), std::vector<std::string>{Filled("00000000000000000000 FEE", 50)});
    const std::vector<std::string> values = Texts(record, "FieldValue");
    ASSERT_EQ(values.size(), 4U);
    for (size_t slot = 0; slot < values.size(); ++slot)
      EXPECT_EQ(values[slot], Filled(slot < count ? slots[slot].fieldValue : "", 18));
  }
}

TEST(PlaceFields, TakeNoOtherLongRecordForJoinedDetails) {
  const std::vector<FreeFormatSlot> slots = {{"01", "A"}};
  const std::string joined = ComposeFreeFormatWithDetails("0001", slots, "000000000000001250", "FEE");
  std::string noAmount = joined;
  noAmount.replace(28, 18, "ABCDEFGHIJKLMNOPQR");
  std::string noNumber = joined;
  noNumber.replace(8, 2, "A1");
  std::string noSlot = joined;
  noSlot.replace(8, 2, "00");
  std::string otherKind = joined;
  otherKind[7] = 'G';
  const std::vector<FreeFormatSlot> three = {{"01", "A"}, {"02", "B"}, {"03", "C"}};
  std::string noAmountBehindThree = ComposeFreeFormatWithDetails("0001", three, "000000000000001250", "FEE");
  noAmountBehindThree.replace(68, 18, "ABCDEFGHIJKLMNOPQR");
  for (const std::string& record :
       {joined + " ", joined.substr(0, 311), noAmount, noAmountBehindThree, noNumber, noSlot, otherKind})
    EXPECT_TRUE(PlaceFields(record).overruns.empty()) << record;
}

TEST(PlaceFields, ReadBackWhateverNumbersTheComposerWrites) {
  std::mt19937 random(11);
  for (int round = 0; round < 3000; ++round) {
    std::vector<FreeFormatSlot> slots;
    std::vector<std::string> values;
    for (size_t i = 0; i < kSlotsPerRecord; ++i) {
      const double number = static_cast<double>(random() % 2'000'000) - 1'000'000;
      slots.push_back({"0" + std::to_string(5 + i), DigitsOf(number)});
      values.push_back(slots.back().fieldValue);
    }
    const std::string record = ComposeFreeFormat("0001", slots);
    ASSERT_EQ(Texts(record, "FieldValue"), values) << record;
    ASSERT_EQ(PlaceFields(record).Length(), record.size());
  }
}

}  // namespace
}  // namespace fiscalon
