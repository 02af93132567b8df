// What holds for every rule of every rule set, whichever there are.

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "core/records/field_names.h"
#include "tests/support/module_test.h"
#include "tests/support/rule_law.h"
#include "validation/judge_payment.h"
#include "validation/rules_with.h"

namespace fiscalon {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr Date kToday = {.year = 2026, .month = 6, .day = 15};

/// A payment of a rule set's recipe, with its records and what the judge says.
class TrialPayment {
 public:
  TrialPayment(const RuleSet& rules, const Defect* defect) : rules_(rules) {
    Dice dice(1);
    draft_ = rules.trial->goodPayment(dice, kToday);
    if (defect != nullptr)
      defect->Plant(draft_);
    if (draft_.hasPeriodRecord)
      records_.push_back(ComposeGovernmentFormat("0001", {.periodDueDate = draft_.period}));
    for (std::string& record : ComposeFreeFormats("0001", draft_.slots)) records_.push_back(std::move(record));
  }

  bool IsGoodQuickly() const {
    const JudgingDay day = JudgingDayOf(kToday);
    return PassesQuickly(rules_, Views(), {.paymentCents = draft_.cents, .billerCode = draft_.biller, .day = &day});
  }
  std::string Reason() const {
    std::string reason;
    PaymentJudge(kToday).Judge(Figures(), Views(), reason);
    return reason;
  }
  std::vector<Fault> Faults() const { return PaymentJudge(kToday).FaultsOf(Figures(), Views()); }

 private:
  PaymentFigures Figures() const {
    return {.screenCode = rules_.screenCode, .billerCode = draft_.biller, .cents = static_cast<int64_t>(draft_.cents)};
  }
  std::vector<std::string_view> Views() const { return {records_.begin(), records_.end()}; }

  const RuleSet& rules_;
  Draft draft_;
  std::vector<std::string> records_;
};

class EveryRule : public ModuleTest, public testing::WithParamInterface<const RuleSet*> {
 protected:
  const RuleSet& rules_ = *GetParam();
};

TEST_P(EveryRule, IsKeptByItsQuickTest) {
  EXPECT_EQ(RuleLaw(rules_, kToday).Breaches(), "");
}

TEST_P(EveryRule, HasANameForItsField) {
  for (const FieldRule& rule : rules_.fields) EXPECT_NE(FieldNameOf(rules_.screenCode, rule.number), "") << rule.number;
}

TEST_P(EveryRule, HasItsCodeInTheManual) {
  std::ifstream file(FISCALON_SOURCE_DIR "/man/fiscalon-validate.1");
  const std::string page{std::istreambuf_iterator(file), {}};
  for (const FieldRule& rule : rules_.fields)
    for (const FieldTest& test : rule.tests.InOrder())
      EXPECT_THAT(page, HasSubstr("\n.B " + std::regex_replace(std::string(test.code), std::regex("-"), "\\-") + "\n"))
          << rule.number;
}

TEST_P(EveryRule, IsBrokenByADefectOfTheTrialPayments) {
  std::set<std::string> planted;
  for (const Defect& defect : rules_.trial->defects)
    for (const Fault& fault : TrialPayment(rules_, &defect).Faults()) planted.insert(fault.code);
  for (const FieldRule& rule : rules_.fields)
    for (const FieldTest& test : rule.tests.InOrder())
      EXPECT_THAT(planted, Contains(test.code)) << "field " << rule.number;
}

TEST_P(EveryRule, GivesADefectOfTheTrialPaymentsItsReason) {
  EXPECT_TRUE(TrialPayment(rules_, nullptr).IsGoodQuickly());
  for (const Defect& defect : rules_.trial->defects) {
    const TrialPayment payment(rules_, &defect);
    EXPECT_FALSE(payment.IsGoodQuickly()) << defect.name;
    EXPECT_EQ(payment.Reason(), defect.reason) << defect.name;
  }
}

INSTANTIATE_TEST_SUITE_P(RuleSets, EveryRule, testing::ValuesIn(RuleSets().begin(), RuleSets().end()),
                         [](const auto& row) { return "Screen" + std::string(row.param->screenCode); });

TEST(RuleSets, AreFoundByTheirScreens) {
  std::set<std::string_view> screens;
  for (const RuleSet* const rules : RuleSets()) {
    EXPECT_EQ(RulesOf(rules->screenCode), rules);
    screens.insert(rules->screenCode);
  }
  EXPECT_EQ(screens.size(), RuleSets().size());
  for (const char* other : {"", "0", "04", "003", "033", "30", "02"}) EXPECT_EQ(RulesOf(other), nullptr) << other;
}

// Rules whose quick test does not keep them, to see that it is found.

uint64_t PassesDigits(const char* value, const Expectation&) {
  return EighteenDigits(value);
}
bool IsBelowSeven(std::string_view value, const Expectation&) {
  return LeadingNumber(value) < 7;
}
bool IsNotEight(std::string_view value, const Expectation&) {
  return LeadingNumber(value) != 8;
}
constexpr FieldTest kBelowSeven = {IsBelowSeven, " is invalid", "above-six", "000000000000000007"};
constexpr FieldTest kNotEight = {IsNotEight, " is invalid", "eight", "000000000000000008"};
constexpr FieldRule kLooseFields[] = {{"01", {PassesDigits, {kFilled, kFullLength, kBelowSeven}}},
                                      {"02", {PassesDigits, {kDigits, kNotEight, kBelowSeven}}}};
constexpr TrialRecipe kTrial = {.goodPayment = [](Dice&, const Date&) {
  return Draft{.slots = {{"01", Digits(1)}, {"02", Digits(1)}}};
}};
constexpr RuleSet kLooseRules = RulesWith<kLooseFields, Periods::Ignored, Total::Ignored>(
    {.screenCode = "15", .noFieldsMessage = "No fields", .trial = &kTrial});

class LooseRules : public ModuleTest {
 protected:
  static bool Judge(const std::string& value) {
    const std::string record = ComposeFreeFormat("0001", {{"01", value}});
    const std::string_view records[] = {record};
    const JudgingDay day = JudgingDayOf(kToday);
    std::string reason;
    return JudgeRecords(kLooseRules, records, {.day = &day}, reason);
  }
};

TEST_F(LooseRules, AreFoundByTheLaw) {
  const std::string breaches = RuleLaw(kLooseRules, kToday).Breaches();
  EXPECT_THAT(breaches,
              HasSubstr("screen 15, field 01: the quick test passes '000000000000000007', which \"above-six\" "
                        "refuses\n"));
  // Eight is above six too.
  EXPECT_THAT(breaches,
              HasSubstr("screen 15, field 02: no value fails \"eight\" alone: give the test one as `refused`\n"));
  EXPECT_THAT(breaches, Not(HasSubstr("field 01: no value")));
}

TEST_F(LooseRules, EndATrialRun) {
  EXPECT_TRUE(Judge("000000000000000006"));
  EXPECT_FALSE(Judge("7"));
  EXPECT_DEBUG_DEATH(Judge("000000000000000007"), "PassEveryTest");
}

}  // namespace
}  // namespace fiscalon
