#include "core/records/record_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/support/ruled_record.h"

namespace fiscalon {
namespace {

const std::string kGovernment = Ruled(
    "PC40001T"
    "20260101"
    "20260331"
    "202604  "
    "FILLER-1"
    "Helene Cote                   "
    "Treasurer           "
    "FILLER-TWO");
const std::string kTwoSlots = Ruled(
    "PC40001F"
    "01"
    "2026              "
    "02"
    "000000000000012345");

TEST(KindOf, IsTheEighthCharacter) {
  EXPECT_EQ(KindOf("PC40001T"), RecordKind::Government);
  EXPECT_EQ(KindOf("PC4001F"), RecordKind{});
  EXPECT_EQ(KindOf(""), RecordKind{});
}

TEST(CutGovernmentFormat, GivesEveryFieldWithItsBlanks) {
  const GovernmentFieldViews fields = CutGovernmentFormat(kGovernment);
  EXPECT_EQ(fields.periodStartDate, "20260101");
  EXPECT_EQ(fields.periodEndDate, "20260331");
  EXPECT_EQ(fields.periodDueDate, "202604  ");
  EXPECT_EQ(fields.filler1, "FILLER-1");
  EXPECT_EQ(fields.contactName, "Helene Cote                   ");
  EXPECT_EQ(fields.contactTitle, "Treasurer           ");
  EXPECT_EQ(fields.filler2, "FILLER-TWO");
}

TEST(CutGovernmentFormat, GivesShorterAndEmptyFieldsOfAShortRecord) {
  const GovernmentFieldViews fields = CutGovernmentFormat("PC40001T20260101202");
  EXPECT_EQ(fields.periodStartDate, "20260101");
  EXPECT_EQ(fields.periodEndDate, "202");
  EXPECT_EQ(fields.periodDueDate, "");
  EXPECT_EQ(fields.filler2, "");
}

TEST(CutFreeFormat, GivesAllFourSlotsBlankOnesToo) {
  const auto slots = CutFreeFormat(kTwoSlots);
  EXPECT_EQ(slots[0].fieldNum, "01");
  EXPECT_EQ(slots[0].fieldValue, "2026              ");
  EXPECT_EQ(slots[1].fieldNum, "02");
  EXPECT_EQ(slots[1].fieldValue, "000000000000012345");
  EXPECT_EQ(slots[2].fieldNum, "  ");
  EXPECT_EQ(slots[3].fieldValue, std::string(18, ' '));
}

TEST(CutFreeFormat, NeverLooksBeyondColumn88) {
  const std::string record = std::string(88, 'x') + "beyond";
  const auto slots = CutFreeFormat(record);
  EXPECT_EQ(slots[3].fieldValue, std::string(18, 'x'));
}

TEST(CutRecords, TakesOneMemberOfATAndFourOfAnF) {
  PC4s records;
  records.Add("", "", kGovernment);
  records.Add("", "", kTwoSlots);
  records.Add("", "", kTwoSlots);
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(records, government, free);
  ASSERT_EQ(government.Count(), 1);
  EXPECT_EQ(government.Item(1).PeriodDueDate(), "202604  ");
  EXPECT_EQ(government.Item(1).ContactTitle(), "Treasurer           ");
  ASSERT_EQ(free.Count(), 8);
  EXPECT_EQ(free.Item(6).FieldNum(), "02");
  EXPECT_EQ(free.Item(6).FieldValue(), "000000000000012345");
  EXPECT_EQ(free.Item(8).FieldNum(), "  ");
}

TEST(CutRecords, SkipsOtherKindsAndShortRecords) {
  PC4s records;
  for (const char* record : {"PC40001G1", "PC40001P1", "PC40001R1", "PC40001I1", "PC40001t1", "PC4001T", "T", ""})
    records.Add("", "", record);
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(records, government, free);
  EXPECT_EQ(government.Count(), 0);
  EXPECT_EQ(free.Count(), 0);
}

TEST(CutRecords, ReadsBackWhatTheComposerWrites) {
  std::mt19937 random(7);
  const auto text = [&](size_t width) {
    std::string any(random() % (width + 1), ' ');
    for (char& c : any) c = static_cast<char>('!' + random() % 90);
    return any;
  };
  const auto filled = [](std::string any, size_t width) { return any.append(width - any.size(), ' '); };
  for (int round = 0; round < 2000; ++round) {
    const GovernmentFields fields{text(8), text(8), text(8), text(8), text(30), text(20), text(10)};
    const std::string government = ComposeGovernmentFormat("0001", fields);
    ASSERT_EQ(government.size(), 160u);
    const GovernmentFieldViews cut = CutGovernmentFormat(government);
    EXPECT_EQ(cut.periodStartDate, filled(fields.periodStartDate, 8));
    EXPECT_EQ(cut.periodEndDate, filled(fields.periodEndDate, 8));
    EXPECT_EQ(cut.periodDueDate, filled(fields.periodDueDate, 8));
    EXPECT_EQ(cut.filler1, filled(fields.filler1, 8));
    EXPECT_EQ(cut.contactName, filled(fields.contactName, 30));
    EXPECT_EQ(cut.contactTitle, filled(fields.contactTitle, 20));
    EXPECT_EQ(cut.filler2, filled(fields.filler2, 10));
    const FreeFormatSlot slot{text(2), text(18)};
    const std::string free = ComposeFreeFormat("0001", {slot, slot, slot, slot});
    ASSERT_EQ(free.size(), 160u);
    for (const FreeFormatSlotView& view : CutFreeFormat(free)) {
      EXPECT_EQ(view.fieldNum, filled(slot.fieldNum, 2));
      EXPECT_EQ(view.fieldValue, filled(slot.fieldValue, 18));
    }
  }
}

}  // namespace
}  // namespace fiscalon
