#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "validation/expectation.h"
#include "validation/fault.h"
#include "validation/field_tests.h"
#include "validation/usual_form.h"

/// The rules of the screens whose payments also come in bulk, as tables, and the one routine that judges a
/// payment's records by them. docs/adding-a-rule.md goes through them.
namespace fiscalon {

inline constexpr int kNoAddend = -1;

/// What holds for the field of one number.
struct FieldRule {
  std::string_view number = {};
  FieldTests tests;
  /// Which of the addends of the payment's total the field is.
  int addend = kNoAddend;
  /// The biller for whom alone the field is looked at; empty for all billers.
  std::string_view onlyForBiller = {};
};

enum class Periods { Ignored, Tested };
enum class Total { Ignored, EqualsPayment };

struct TrialRecipe;

/// What holds for the records of one screen. Made by `RulesWith` (rules_with.h), which gives it its quick tests.
struct RuleSet {
  std::string_view screenCode = {};
  /// The validator's routine, for the logs.
  std::string_view routine = {};
  std::string_view noFieldsMessage = {};
  /// Numbered "01", "02" and so on without a gap. A field of another number must be blank or zero.
  std::span<const FieldRule> fields = {};
  /// Whether each "T" record must hold a remittance period.
  Periods periods = Periods::Ignored;
  /// Whether the addends must make the amount to be paid.
  Total total = Total::Ignored;
  /// The quick tests of all this, compiled for these very rules.
  bool (*quickTest)(std::span<const std::string_view> records, const Expectation& expected) = nullptr;
  /// The same of a payment as screens write it, before its amount is known.
  UsualForms usual = {};
  /// How `fiscalon generate` makes payments of the screen, good ones and bad ones (trial_payments.h).
  const TrialRecipe* trial = nullptr;
};

extern const RuleSet kAgencyRules;
extern const RuleSet kQuebecRules;

/// All rule sets, by their screens' codes. Who asks which screens' payments can be judged asks here.
inline constexpr std::array kRuleSets = {&kAgencyRules, &kQuebecRules};

constexpr std::span<const RuleSet* const> RuleSets() {
  return kRuleSets;
}

inline constexpr size_t kScreenCodeLength = 2;

/// The rules of a screen code; null for a screen whose payments are not judged.
inline const RuleSet* RulesOf(std::string_view screenCode) {
  // Asked for each payment of a batch: a length that is known here makes the comparison one of numbers.
  if (screenCode.size() != kScreenCodeLength)
    return nullptr;
  for (const RuleSet* const rules : RuleSets()) {
    if (std::memcmp(rules->screenCode.data(), screenCode.data(), kScreenCodeLength) == 0)
      return rules;
  }
  return nullptr;
}

/// The rule of a field's number; for a number that the screen does not use, that its field be blank or zero.
const FieldRule& RuleOf(const RuleSet& rules, std::string_view number);

/// What a screen without rules is told, and the code of that fault.
inline constexpr std::string_view kUnsupportedScreen = "Invalid or not supported Screen Type";
inline constexpr std::string_view kUnsupportedScreenCode = "no-such-screen";

/// Whether records meet the rules. Otherwise `reason`, which must be empty, holds one message for each
/// failure, ", " between them. Records of another kind than "T" and "F" are passed over. Raises the run-time
/// errors of the rules' conversions.
bool JudgeRecords(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected,
                  std::string& reason);

/// Where the reasons lie that `JudgeRecords` gives, one fault for each, in the same order; a run-time error is one too.
std::vector<Fault> FaultsOfRecords(const RuleSet& rules, std::span<const std::string_view> records,
                                   const Expectation& expected);

/// Whether records meet the rules, test by test, whatever the quick tests say.
bool PassEveryTest(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected);

/// Whether records meet the rules by quick tests alone, as nearly all good ones do. False says nothing. `JudgeRecords`
/// begins with it.
inline bool PassesQuickly(const RuleSet& rules, std::span<const std::string_view> records,
                          const Expectation& expected) {
  const bool passes = rules.quickTest(records, expected);
  assert(!passes || PassEveryTest(rules, records, expected));
  return passes;
}

}  // namespace fiscalon
