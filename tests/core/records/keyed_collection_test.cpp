#include "core/records/keyed_collection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <ranges>
#include <vector>

#include "core/records/pc4_records.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

PC4s ThreeRecords() {
  PC4s records;
  records.Add("", "", "first");
  records.Add("", "", "second", "key");
  records.Add("", "", "third");
  return records;
}

std::string Descriptions(const PC4s& records) {
  std::string all;
  for (const PC4& record : records) all += record.Description() + ";";
  return all;
}

TEST(KeyedCollection, KeepsTheOrderOfAdding) {
  EXPECT_EQ(Descriptions(ThreeRecords()), "first;second;third;");
}

using Iterator = PC4s::iterator;
static_assert(std::random_access_iterator<Iterator> && std::random_access_iterator<PC4s::const_iterator>);
static_assert(std::sized_sentinel_for<Iterator, Iterator> && std::ranges::random_access_range<const PC4s>);
static_assert(std::convertible_to<Iterator, PC4s::const_iterator>);
static_assert(!std::convertible_to<PC4s::const_iterator, Iterator>);

TEST(KeyedCollection, IsWalkedByTheStandardAlgorithms) {
  PC4s records = ThreeRecords();
  const auto isSecond = [](const PC4& record) { return record.Description() == "second"; };
  EXPECT_EQ(std::find_if(records.begin(), records.end(), isSecond) - records.begin(), 1);
  EXPECT_EQ(std::ranges::count_if(records, isSecond), 1);
  EXPECT_EQ(std::distance(records.begin(), records.end()), 3);
  std::vector<std::string> descriptions;
  std::transform(records.begin(), records.end(), std::back_inserter(descriptions),
                 [](const PC4& record) { return record.Description(); });
  EXPECT_EQ(descriptions, (std::vector<std::string>{"first", "second", "third"}));
  EXPECT_EQ(std::prev(records.end())->Description(), "third");
  EXPECT_EQ(std::make_reverse_iterator(records.end())->Description(), "third");
}

TEST(KeyedCollection, IsWalkedStepByStep) {
  PC4s records = ThreeRecords();
  PC4s::iterator at = records.begin();
  EXPECT_EQ(at++->Description(), "first");
  EXPECT_EQ((*at).Description(), "second");
  at->Description("changed");
  EXPECT_EQ(at--->Description(), "changed");
  EXPECT_EQ(at[2].Description(), "third");
  EXPECT_TRUE(records.begin() < records.end());
  const PC4s::const_iterator constant = at;
  EXPECT_TRUE(constant == at);
}

TEST(KeyedCollection, NothingIsWalkedWhereNothingIs) {
  const PC4s records;
  EXPECT_TRUE(records.begin() == records.end());
}

TEST(KeyedCollection, CountsPositionsFromOne) {
  PC4s records = ThreeRecords();
  EXPECT_EQ(records.Count(), 3);
  EXPECT_EQ(records.Item(1).Description(), "first");
  EXPECT_EQ(records.Item(3).Description(), "third");
}

TEST(KeyedCollection, FindsAMemberByItsKey) {
  PC4s records = ThreeRecords();
  EXPECT_EQ(records.Item("key").Description(), "second");
}

TEST(KeyedCollection, AKeyIsFreeOnceItsMemberIsTakenOutByIt) {
  PC4s records = ThreeRecords();
  records.Remove("key");
  EXPECT_EQ(ErrorOf([&] { records.Item("key"); }), 5);
  records.Add("", "", "again", "key");
  EXPECT_EQ(records.Item("key").Description(), "again");
}

TEST(KeyedCollection, UnknownPositionIsError9) {
  PC4s records = ThreeRecords();
  EXPECT_EQ(ErrorOf([&] { records.Item(0); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Item(4); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Item(-1); }), 9);
  // In 32 bits they would be positions 1 to 3.
  EXPECT_EQ(ErrorOf([&] { records.Item(4294967297); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Item(uint64_t{1} << 63 | 2); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Kept(-4294967295); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Remove(4294967299); }), 9);
  EXPECT_EQ(ErrorOf([&] { records.Remove(4); }), 9);
}

TEST(KeyedCollection, UnknownKeyIsError5) {
  PC4s keyed = ThreeRecords();
  EXPECT_EQ(ErrorOf([&] { keyed.Item("other"); }), 5);
  EXPECT_EQ(ErrorOf([&] { keyed.Item("KEY"); }), 5);
  EXPECT_EQ(ErrorOf([&] { keyed.Remove("other"); }), 5);
  PC4s keyless;
  keyless.Add("", "", "first");
  EXPECT_EQ(ErrorOf([&] { keyless.Item("other"); }), 5);
}

TEST(KeyedCollection, DuplicateKeyIsError457AndAddsNothing) {
  PC4s records = ThreeRecords();
  EXPECT_EQ(ErrorOf([&] { records.Add("", "", "fourth", "key"); }), 457);
  EXPECT_EQ(Descriptions(records), "first;second;third;");
  EXPECT_EQ(records.Item("key").Description(), "second");
}

TEST(KeyedCollection, AnEmptyKeyIsNoKeyAndMayComeAgain) {
  PC4s records;
  records.Add("", "", "first", "");
  records.Add("", "", "second", "");
  EXPECT_EQ(records.Count(), 2);
  EXPECT_EQ(ErrorOf([&] { records.Item(""); }), 5);
}

TEST(KeyedCollection, RemovingByPositionFreesTheKey) {
  PC4s records = ThreeRecords();
  records.Remove(2);
  EXPECT_EQ(Descriptions(records), "first;third;");
  EXPECT_EQ(ErrorOf([&] { records.Item("key"); }), 5);
  records.Add("", "", "fourth", "key");
  EXPECT_EQ(records.Item("key").Description(), "fourth");
}

TEST(KeyedCollection, RemovingByKeyClosesTheGap) {
  PC4s records = ThreeRecords();
  records.Remove("key");
  EXPECT_EQ(Descriptions(records), "first;third;");
  EXPECT_EQ(records.Item(2).Description(), "third");
}

TEST(KeyedCollection, MembersKeepTheirAddressWhileOthersComeAndGo) {
  PC4s records;
  PC4& first = records.Add("", "", "first");
  for (int more = 0; more < 100; ++more) records.Add("", "", "more");
  records.Remove(50);
  first.Description("changed");
  EXPECT_EQ(records.Item(1).Description(), "changed");
}

TEST(KeyedCollection, AKeptMemberOutlivesItsPlace) {
  PC4s records = ThreeRecords();
  const std::shared_ptr<PC4> first = records.Kept(1);
  const std::shared_ptr<PC4> second = records.Kept("key");
  EXPECT_EQ(first.get(), &records.Item(1));
  EXPECT_EQ(second.get(), &records.Item(2));
  records.Clear();
  EXPECT_EQ(first->Description(), "first");
  EXPECT_EQ(second->Description(), "second");
  EXPECT_EQ(second.use_count(), 1);
}

TEST(KeyedCollection, ClearForgetsMembersAndKeys) {
  PC4s records = ThreeRecords();
  records.Clear();
  EXPECT_EQ(records.Count(), 0);
  EXPECT_EQ(Descriptions(records), "");
  records.Add("", "", "again", "key");
  EXPECT_EQ(records.Item(1).Description(), "again");
}

TEST(KeyedCollection, ClearOfAnEmptyCollectionRemovesNothing) {
  PC4s records;
  records.Clear();
  EXPECT_EQ(records.Count(), 0);
}

}  // namespace
}  // namespace fiscalon
