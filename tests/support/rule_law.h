#pragma once

#include <algorithm>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/platform/runtime_error.h"
#include "core/values/leading_number.h"
#include "validation/quick_digits.h"
#include "validation/rule_sets.h"
#include "validation/trial_payments.h"

/// What binds the tests of a field to its quick test: what that passes, each of them passes. Held against each
/// value that a test gives as one it refuses, and against each value of good and of spoilt trial payments. So that no
/// test escapes, there must be a value that fails that one alone.
namespace fiscalon {

/// What fails these tests of form fails another test too: a blank is short, a sign is no digit, and what has too many
/// digits for a number has too many for most tests. That a value fails them first must do.
inline constexpr std::string_view kNeverAlone[] = {"blank", "negative", "not-a-number"};

class RuleLaw {
 public:
  RuleLaw(const RuleSet& rules, const Date& today) : rules_(rules), day_(JudgingDayOf(today)) {
    TakeValuesOf(rules, today);
    for (const RuleSet* const each : RuleSets()) TakeValuesOf(*each, today);
  }

  /// How the rules break it, a sentence a line.
  std::string Breaches() const {
    std::string breaches;
    for (const FieldRule& rule : rules_.fields)
      for (const std::string& breach : BreachesOf(rule.tests))
        breaches.append("screen ")
            .append(rules_.screenCode)
            .append(", field ")
            .append(rule.number)
            .append(": ")
            .append(breach + "\n");
    return breaches;
  }

 private:
  using Codes = std::vector<std::string_view>;

  void TakeValuesOf(const RuleSet& rules, const Date& today) {
    for (const FieldRule& rule : rules.fields)
      for (const FieldTest& test : rule.tests.InOrder()) values_.insert(InField(test.refused));
    constexpr int kPayments = 3;
    Dice dice(1);
    for (int i = 0; i < kPayments; ++i)
      for (const FreeFormatSlot& slot : rules.trial->goodPayment(dice, today).slots) {
        values_.insert(InField(slot.fieldValue));
        for (const Defect& defect : rules.trial->defects) {
          std::string value = slot.fieldValue;
          if (defect.spoilValue != nullptr)
            defect.spoilValue(value);
          values_.insert(InField(value));
        }
      }
  }

  static std::string InField(std::string_view value) {
    std::string wide(value);
    wide.resize(kValueWidth, ' ');
    return wide;
  }

  /// What a value is held against: a payment of that very amount, and another one.
  std::vector<Expectation> ExpectedOf(const std::string& value) const {
    const double dollars = LeadingNumber(value) / 100;
    return {{.paymentAmount = dollars, .paymentCents = CentsOfDollars(dollars), .day = &day_},
            {.paymentAmount = 123.45, .paymentCents = 12345, .day = &day_}};
  }

  /// The tests that a value fails. A run-time error is a failure too, but behind another one: those tests are never
  /// asked.
  static Codes Failed(const FieldTests& tests, const std::string& value, const Expectation& expected) {
    Codes failed;
    for (const FieldTest& test : tests.InOrder()) {
      try {
        if (!test.passes(value, expected))
          failed.push_back(test.code);
      } catch (const RuntimeError&) {
        if (failed.empty())
          failed.push_back(test.code);
      }
    }
    return failed;
  }

  std::vector<std::string> BreachesOf(const FieldTests& tests) const {
    std::vector<std::string> breaches;
    std::set<std::string_view> alone;
    std::set<std::string_view> first;
    std::set<std::string_view> passed;
    for (const std::string& value : values_)
      for (const Expectation& expected : ExpectedOf(value)) {
        const Codes failed = Failed(tests, value, expected);
        if (failed.empty())
          continue;
        first.insert(failed.front());
        if (failed.size() == 1)
          alone.insert(failed.front());
        if (tests.Quick()(value.data(), expected) != kNoDigits && passed.insert(failed.front()).second)
          breaches.push_back("the quick test passes '" + value + "', which " + Named(failed.front()) + " refuses");
      }
    for (const FieldTest& test : tests.InOrder()) {
      if (!Refuses(tests, test))
        breaches.push_back(Named(test.code) + " passes the value that it gives as `refused`");
      if (!(Has(kNeverAlone, test.code) ? first : alone).contains(test.code))
        breaches.push_back("no value fails " + Named(test.code) + " alone: give the test one as `refused`");
    }
    return breaches;
  }

  static std::string Named(std::string_view code) { return "\"" + std::string(code) + "\""; }

  static bool Has(std::span<const std::string_view> codes, std::string_view code) {
    return std::ranges::find(codes, code) != codes.end();
  }

  bool Refuses(const FieldTests& tests, const FieldTest& test) const {
    const std::string value = InField(test.refused);
    return std::ranges::any_of(
        ExpectedOf(value), [&](const Expectation& expected) { return Has(Failed(tests, value, expected), test.code); });
  }

  const RuleSet& rules_;
  JudgingDay day_;
  /// As wide as a field.
  std::set<std::string> values_;
};

}  // namespace fiscalon
