#include "core/records/pc4_records.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace fiscalon {
namespace {

static_assert(!std::is_default_constructible_v<PC4>, "a host makes records by PC4s::Add alone");
static_assert(std::is_default_constructible_v<clsPC4GovFormat>);
static_assert(std::is_default_constructible_v<clsPC4FreeFormat>);

TEST(PC4s, AddSetsTheFieldsInOrderAndReturnsTheMember) {
  PC4s records;
  PC4& added = records.Add("20260615", " 000012345", "A-17", "key");
  EXPECT_EQ(added.TheDate(), "20260615");
  EXPECT_EQ(added.Amount(), " 000012345");
  EXPECT_EQ(added.Description(), "A-17");
  EXPECT_EQ(&records.Item("key"), &added);
}

TEST(PC4s, AllArgumentsOfAddMayBeLeftOut) {
  PC4s records;
  const PC4& added = records.Add();
  EXPECT_EQ(added.TheDate() + added.Amount() + added.Description(), "");
  EXPECT_EQ(records.Count(), 1);
}

TEST(PC4s, FieldsMayBeChangedAfterwards) {
  PC4s records;
  PC4& record = records.Add("a", "b", "c");
  record.TheDate("x");
  record.Amount("y");
  record.Description("z");
  EXPECT_EQ(records.Item(1).TheDate() + records.Item(1).Amount() + records.Item(1).Description(), "xyz");
}

TEST(ClsPC4GovFormats, AddSetsTheSevenFieldsInOrder) {
  clsPC4GovFormats fields;
  const clsPC4GovFormat& added = fields.Add("start", "end", "due", "one", "name", "title", "two", "key");
  EXPECT_EQ(added.PeriodStartDate(), "start");
  EXPECT_EQ(added.PeriodEndDate(), "end");
  EXPECT_EQ(added.PeriodDueDate(), "due");
  EXPECT_EQ(added.Filler1(), "one");
  EXPECT_EQ(added.ContactName(), "name");
  EXPECT_EQ(added.ContactTitle(), "title");
  EXPECT_EQ(added.Filler2(), "two");
  EXPECT_EQ(&fields.Item("key"), &added);
}

TEST(ClsPC4GovFormat, IsMadeByHostsToo) {
  clsPC4GovFormat fields;
  EXPECT_EQ(fields.ContactName(), "");
  fields.PeriodStartDate("1");
  fields.PeriodEndDate("2");
  fields.PeriodDueDate("3");
  fields.Filler1("4");
  fields.ContactName("5");
  fields.ContactTitle("6");
  fields.Filler2("7");
  EXPECT_EQ(fields.PeriodStartDate() + fields.PeriodEndDate() + fields.PeriodDueDate() + fields.Filler1() +
                fields.ContactName() + fields.ContactTitle() + fields.Filler2(),
            "1234567");
}

TEST(ClsPC4FreeFormats, AddSetsNumberAndValue) {
  clsPC4FreeFormats fields;
  const clsPC4FreeFormat& added = fields.Add("01", "000000000000012345");
  EXPECT_EQ(added.FieldNum(), "01");
  EXPECT_EQ(added.FieldValue(), "000000000000012345");
  EXPECT_EQ(fields.Count(), 1);
}

TEST(ClsPC4FreeFormat, KeepsBlanks) {
  clsPC4FreeFormat field;
  field.FieldNum("  ");
  field.FieldValue(" 7 ");
  EXPECT_EQ(field.FieldNum(), "  ");
  EXPECT_EQ(field.FieldValue(), " 7 ");
}

}  // namespace
}  // namespace fiscalon
