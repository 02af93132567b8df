#include "tools/reading/known_fields.h"

#include <gtest/gtest.h>

#include <map>

#include "core/launch.h"
#include "core/records/record_reader.h"
#include "tests/support/random_records.h"
#include "tests/support/ruled_record.h"

namespace fiscalon::known_fields_test {
namespace {

std::span<const RecordField> RowsOf(const std::string& record) {
  return LayoutOf(KindOf(record)).subspan(kRecordHead.size());
}

ShownRecord Followed(KnownFields& known, uint64_t number, const std::string& record, std::string_view screen) {
  ShownRecord shown;
  shown.number = number;
  shown.record = record;
  shown.length = record.size();
  known.Follow(RowsOf(record), FindLaunchRow(screen), shown);
  return shown;
}

/// The fields one by one, whatever stood in the record before.
ShownRecord Understood(const std::string& record, std::string_view screen) {
  ShownRecord shown;
  SlotBefore slot;
  for (const RecordField& row : RowsOf(record))
    shown.fields.push_back(UnderstandField(record, row, RoleOf(row.name), FindLaunchRow(screen), slot, shown.problems));
  return shown;
}

/// All that is known of the fields, but since when.
std::string ToldOf(const ShownRecord& shown) {
  std::string told;
  for (const ShownField& field : shown.fields)
    told.append(field.name)
        .append(" " + std::to_string(field.from) + "-" + std::to_string(field.to) + " ")
        .append(std::to_string(static_cast<int>(field.sense)) + " ")
        .append(field.nameOnScreen)
        .append("\n");
  for (const Note& note : shown.problems)
    told.append(std::to_string(note.from) + "-" + std::to_string(note.to) + " ").append(note.In({})).append("\n");
  return told;
}

TEST(KnownFields, AreThoseOfTheRecordWhateverStoodBeforeIt) {
  for (const std::string_view screen : {"", "03", "04", "15", "20"}) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
      RandomRecords records(seed);
      std::map<RecordKind, KnownFields> known;
      size_t good = 0;
      for (uint64_t number = 1; number <= 500; ++number) {
        const std::string record = records.Next();
        if (record.size() != kRecordLength || LayoutOf(KindOf(record)).empty())
          continue;
        const ShownRecord shown = Followed(known[KindOf(record)], number, record, screen);
        ASSERT_EQ(ToldOf(shown), ToldOf(Understood(record, screen))) << record << " by seed " << seed;
        good += shown.problems.empty() ? 1 : 0;
      }
      EXPECT_GT(good, 50U) << "hardly a record is like another";
    }
  }
}

TEST(KnownFields, AreReadAnewWhicheverColumnDiffers) {
  for (const char kind : std::string_view("TFGPRI")) {
    const std::string record = Ruled(std::string("PC40001") + kind);
    for (size_t column = kHeadLength; column < kRecordLength; ++column) {
      for (size_t other = kHeadLength; other < column; other += 7) {
        std::string changed = record;
        changed[column] = changed[other] = '7';
        KnownFields known;
        Followed(known, 1, record, "");
        ASSERT_EQ(ToldOf(Followed(known, 2, changed, "")), ToldOf(Understood(changed, ""))) << changed;
      }
    }
  }
}

std::vector<uint64_t> SinceWhen(const ShownRecord& shown) {
  std::vector<uint64_t> since;
  for (const ShownField& field : shown.fields) since.push_back(field.since);
  return since;
}

TEST(KnownFields, TellSinceWhenTheyAreSo) {
  KnownFields known;
  const auto since = [&](uint64_t number, const std::string& pieces) {
    return SinceWhen(Followed(known, number, Ruled(pieces), ""));
  };
  using Numbers = std::vector<uint64_t>;
  //                               |1 value             |2 value
  EXPECT_EQ(since(2, "PC40001F01000000000000000100022026              "), (Numbers{2, 2, 2, 2, 2, 2, 2, 2, 2, 2}));
  // The head is no field.
  EXPECT_EQ(since(4, "PC40002F01000000000000000100022026              "), (Numbers{2, 2, 2, 2, 2, 2, 2, 2, 2, 2}));
  EXPECT_EQ(since(6, "PC40003F01000000000000000200022026              "), (Numbers{2, 6, 2, 2, 2, 2, 2, 2, 2, 2}));
  EXPECT_EQ(since(8, "PC40004F010000000000000002000220261             "), (Numbers{2, 6, 2, 8, 2, 2, 2, 2, 2, 2}));
  EXPECT_EQ(since(9, "PC40004F010000000000000001000220261             "), (Numbers{2, 9, 2, 8, 2, 2, 2, 2, 2, 2}));
}

TEST(KnownFields, ReadAValueAnewWhereItsNumberChanges) {
  KnownFields known;
  const auto second = [&](uint64_t number, const std::string& slot) {
    return Followed(known, number, Ruled("PC40001F" + slot), "03").fields.at(1);
  };
  // "04" of this screen is a count, "01" an amount.
  const ShownField count = second(1, "04000000000000000012");
  EXPECT_EQ(count.sense, Sense::Count);
  EXPECT_EQ(count.since, 1U);
  const ShownField amount = second(2, "01000000000000000012");
  EXPECT_EQ(amount.sense, Sense::Cents);
  EXPECT_EQ(amount.since, 2U);
  // Under another number of an amount the value means the same.
  const ShownField again = second(3, "01000000000000000012");
  EXPECT_EQ(again.sense, Sense::Cents);
  EXPECT_EQ(again.since, 2U);
}

TEST(KnownFields, TellAProblemOfEachRecordThatHasIt) {
  KnownFields known;
  const std::string record = Ruled("PC40001T20261301");
  for (uint64_t number = 1; number <= 3; ++number) {
    const ShownRecord shown = Followed(known, number, record, "");
    ASSERT_EQ(shown.problems.size(), 1U);
    EXPECT_EQ(shown.problems.front().In({}), "PeriodStartDate: \"20261301\" is no date YYYYMMDD or YYYYMM");
    EXPECT_EQ(shown.fields.front().sense, Sense::Wrong);
  }
}

}  // namespace
}  // namespace fiscalon::known_fields_test
