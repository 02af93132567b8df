#include "core/records/record_layout.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace fiscalon {
namespace {

using Row = std::tuple<int, int, std::string>;

/// The rows behind the head.
std::vector<Row> Body(std::span<const RecordField> layout) {
  std::vector<Row> rows;
  for (const RecordField& field : layout.subspan(kRecordHead.size()))
    rows.emplace_back(field.from, field.to, std::string(field.name));
  return rows;
}

TEST(RecordLayout, EveryKindBeginsWithTheSameHead) {
  for (const char letter : {'T', 'F', 'G', 'P', 'R', 'I'}) {
    const auto layout = LayoutOf(static_cast<RecordKind>(letter));
    ASSERT_GE(layout.size(), 3u) << letter;
    EXPECT_EQ(std::tuple(layout[0].from, layout[0].to, layout[0].name), std::tuple(1, 3, "PC4")) << letter;
    EXPECT_EQ(std::tuple(layout[1].from, layout[1].to, layout[1].name), std::tuple(4, 7, "SeqNumber")) << letter;
    EXPECT_EQ(std::tuple(layout[2].from, layout[2].to, layout[2].name), std::tuple(8, 8, "Kind")) << letter;
  }
}

TEST(RecordLayout, AForeignLetterHasNoTable) {
  EXPECT_TRUE(LayoutOf(static_cast<RecordKind>('X')).empty());
}

TEST(RecordLayout, GovernmentFieldsLieInColumns9To160) {
  EXPECT_EQ(Body(kGovernmentLayout), (std::vector<Row>{{9, 16, "PeriodStartDate"},
                                                       {17, 24, "PeriodEndDate"},
                                                       {25, 32, "PeriodDueDate"},
                                                       {33, 40, "Filler1"},
                                                       {41, 70, "ContactName"},
                                                       {71, 90, "ContactTitle"},
                                                       {91, 100, "Filler2"},
                                                       {101, 160, ""}}));
}

TEST(RecordLayout, FreeFormatHasFourSlotsOfTwenty) {
  EXPECT_EQ(Body(kFreeFormatLayout), (std::vector<Row>{{9, 10, "FieldNum"},
                                                       {11, 28, "FieldValue"},
                                                       {29, 30, "FieldNum"},
                                                       {31, 48, "FieldValue"},
                                                       {49, 50, "FieldNum"},
                                                       {51, 68, "FieldValue"},
                                                       {69, 70, "FieldNum"},
                                                       {71, 88, "FieldValue"},
                                                       {89, 100, ""},
                                                       {101, 160, ""}}));
}

TEST(RecordLayout, GenericDetailsHaveAnAmountAndAText) {
  EXPECT_EQ(Body(kGenericDetailsLayout),
            (std::vector<Row>{{9, 26, "Amount"}, {27, 76, "Details"}, {77, 100, ""}, {101, 160, ""}}));
}

TEST(RecordLayout, APrintableLineHasSeventyColumns) {
  EXPECT_EQ(Body(kPrintableLineLayout), (std::vector<Row>{{9, 78, "Line"}, {79, 100, ""}, {101, 160, ""}}));
}

TEST(RecordLayout, AnInvoiceRowHasTwoEntriesOf45) {
  EXPECT_EQ(Body(kInvoiceRowLayout), (std::vector<Row>{{9, 16, "InvoiceDate"},
                                                       {17, 26, "InvoiceAmount"},
                                                       {27, 53, "InvoiceNumber"},
                                                       {54, 61, "InvoiceDate"},
                                                       {62, 71, "InvoiceAmount"},
                                                       {72, 98, "InvoiceNumber"},
                                                       {99, 100, ""},
                                                       {101, 160, ""}}));
}

TEST(RecordLayout, AStatementRowHasThreeEntriesOf30) {
  EXPECT_EQ(Body(kStatementRowLayout), (std::vector<Row>{{9, 16, "Item1"},
                                                         {17, 25, "Amount"},
                                                         {26, 35, "Item2"},
                                                         {36, 38, ""},
                                                         {39, 46, "Item1"},
                                                         {47, 55, "Amount"},
                                                         {56, 65, "Item2"},
                                                         {66, 68, ""},
                                                         {69, 76, "Item1"},
                                                         {77, 85, "Amount"},
                                                         {86, 95, "Item2"},
                                                         {96, 98, ""},
                                                         {99, 100, ""},
                                                         {101, 160, ""}}));
}

TEST(RecordLayout, JoinedDetailsStandBehindTwoSlots) {
  EXPECT_EQ(Body(kJoinedLayouts[1]), (std::vector<Row>{{9, 10, "FieldNum"},
                                                       {11, 28, "FieldValue"},
                                                       {29, 30, "FieldNum"},
                                                       {31, 48, "FieldValue"},
                                                       {49, 66, "Amount"},
                                                       {67, 116, "Details"},
                                                       {117, 140, ""},
                                                       {141, 200, ""},
                                                       {201, 202, "FieldNum"},
                                                       {203, 220, "FieldValue"},
                                                       {221, 222, "FieldNum"},
                                                       {223, 240, "FieldValue"},
                                                       {241, 252, ""},
                                                       {253, 312, ""}}));
}

TEST(RecordField, StandsNowhereUnlessItSaysWhere) {
  EXPECT_EQ(RecordField().from, 0);
  EXPECT_EQ(RecordField().to, 0);
}

TEST(CoversRecord, RefusesAGapAnOverlapAndAWrongWidth) {
  EXPECT_FALSE(CoversRecord(std::array{RecordField{1, 80}, RecordField{82, 160}}));
  EXPECT_FALSE(CoversRecord(std::array{RecordField{1, 80}, RecordField{80, 160}}));
  EXPECT_FALSE(CoversRecord(std::array{RecordField{1, 80}, RecordField{81, 159}}));
  EXPECT_FALSE(CoversRecord(std::array{RecordField{2, 160}}));
  EXPECT_TRUE(CoversRecord(std::array{RecordField{1, 80}, RecordField{81, 160}}));
}

TEST(FieldNamed, FindsTheNthOfAName) {
  EXPECT_EQ(FieldNamed(kFreeFormatLayout, "FieldValue").from, 11);
  EXPECT_EQ(FieldNamed(kFreeFormatLayout, "FieldValue", 3).from, 71);
}

TEST(TextIn, IsShorterWhereTheRecordEndsEarly) {
  constexpr RecordField field{4, 7, "SeqNumber", Fill::Sequence};
  EXPECT_EQ(TextIn("PC40001T", field), "0001");
  EXPECT_EQ(TextIn("PC400", field), "00");
  EXPECT_EQ(TextIn("PC4", field), "");
  EXPECT_EQ(TextIn("", field), "");
}

}  // namespace
}  // namespace fiscalon
