#include "validation/rules_with.h"

#include <gtest/gtest.h>

#include <vector>

namespace fiscalon {
namespace {

/// Whether fields of these numbers may be those of a screen.
bool AreNumbers(const std::vector<std::string_view>& numbers) {
  std::vector<FieldRule> fields;
  for (const std::string_view number : numbers)
    fields.push_back({.number = number, .tests = {kQuickAmount, {kDigits}}});
  return AreNumberedFromOne(fields);
}

TEST(AreNumberedFromOne, TakesTheNumbersFromOneToNine) {
  std::vector<std::string_view> numbers;
  EXPECT_TRUE(AreNumbers(numbers));
  for (const char* const number : {"01", "02", "03", "04", "05", "06", "07", "08", "09"}) {
    numbers.push_back(number);
    EXPECT_TRUE(AreNumbers(numbers)) << number;
  }
  // What the digit behind the nine would be.
  numbers.push_back("0:");
  EXPECT_FALSE(AreNumbers(numbers));
}

TEST(AreNumberedFromOne, TakesNoOther) {
  for (const std::string_view number : {"00", "02", "11", "1", "", "0", "010", "A1"})
    EXPECT_FALSE(AreNumbers({number})) << number;
  EXPECT_FALSE(AreNumbers({"01", "03"}));
  EXPECT_FALSE(AreNumbers({"01", "01"}));
  EXPECT_FALSE(AreNumbers({"02", "01"}));
  EXPECT_FALSE(AreNumbers({"01", "12"}));
}

TEST(FieldRule, IsNoAddendAndForAllBillersUnlessItSaysSo) {
  const FieldRule rule{.number = "01", .tests = {kQuickAmount, {kDigits}}};
  EXPECT_EQ(rule.addend, -1);
  EXPECT_EQ(rule.onlyForBiller, "");
  EXPECT_FALSE(rule.tests.Quick().tellsPayment);
  EXPECT_EQ(rule.tests.InOrder().size(), 1u);
}

}  // namespace
}  // namespace fiscalon
