#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "validation/expectation.h"
#include "validation/fault.h"
#include "validation/field_tests.h"

/// The rules of the screens whose payments also come in bulk, as tables, and the one routine that judges a
/// payment's records by them.
namespace fiscalon {

inline constexpr int kNoAddend = -1;

/// What holds for the field of one number.
struct FieldRule {
  std::string_view number = {};
  /// From the top; the first that fails gives the field's only message.
  std::span<const FieldTest> tests = {};
  /// All tests in one look at the value's 18 characters; see quick_tests.h.
  uint64_t (*quickTest)(const char* value, const Expectation& expected) = nullptr;
  /// Which of the addends of the payment's total the field is.
  int addend = kNoAddend;
  /// The biller for whom alone the field is looked at; empty for all billers.
  std::string_view onlyForBiller = {};
};

enum class Periods { Ignored, Tested };
enum class Total { Ignored, EqualsPayment };

/// What holds for the records of one screen.
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
  /// The quick tests of all this, compiled for these very rules; null where there are none.
  bool (*quickTest)(std::span<const std::string_view> records, const Expectation& expected) = nullptr;
};

extern const RuleSet kAgencyRules;
extern const RuleSet kQuebecRules;

/// The rules of a screen code; null for a screen whose payments are not judged.
inline const RuleSet* RulesOf(std::string_view screenCode) {
  if (screenCode.size() != 2)
    return nullptr;
  if (screenCode[0] == '0' && screenCode[1] == '3')
    return &kAgencyRules;
  return screenCode[0] == '2' && screenCode[1] == '0' ? &kQuebecRules : nullptr;
}

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

/// Whether records meet the rules by quick tests alone, as nearly all good ones do. False says nothing. `JudgeRecords`
/// begins with it.
inline bool PassesQuickly(const RuleSet& rules, std::span<const std::string_view> records,
                          const Expectation& expected) {
  return rules.quickTest != nullptr && rules.quickTest(records, expected);
}

}  // namespace fiscalon
