#include "validation/rule_sets.h"

#include <algorithm>

#include "core/logging.h"
#include "core/record_reader.h"
#include "core/remittance_period.h"
#include "core/resume_next.h"
#include "core/values/text.h"
#include "validation/payment_total.h"
#include "validation/plain_digits.h"

namespace fiscalon {

namespace {

// clang-format off

// Screen "03": source deductions of the Canada Revenue Agency.

constexpr FieldTest kPaymentTests[]      = {kFilled, kFullLength, kNumber, kNotNegative, kDigits, kPayment};
constexpr FieldTest kPeriodEndTests[]    = {kFilled, kDate};
constexpr FieldTest kGrossPayrollTests[] = {kFilled, kFullLength, kNumber, kNotNegative, kWholeDollars};
constexpr FieldTest kEmployeesTests[]    = {kFilled, kFullLength, kNumber, kAtLeastOne, kDigits};

constexpr FieldRule kAgencyFields[] = {
    {"01", "Amount of Payment",                 kPaymentTests,      IsPlainPayment},
    {"02", "End of Remitting Period",           kPeriodEndTests,    IsPlainDate},
    {"03", "Gross Payroll in Remitting Period", kGrossPayrollTests, IsPlainWholeDollars},
    {"04", "Number of Employees",               kEmployeesTests,    IsPlainCount},
};

// Screen "20": source deductions of Revenue Quebec.

constexpr FieldTest kAmountTests[] = {kFilled, kFullLength, kNumber, kNotNegative, kDigits};
constexpr FieldTest kTypeTests[]   = {kFilled, kFullLength, kNumber, kRemittanceType, kDigits};

constexpr FieldRule kQuebecFields[] = {
    {"01", "Income tax withheld and compensation tax", kAmountTests, IsPlainAmount,         0},
    {"02", "QPP contributions",                        kAmountTests, IsPlainAmount,         1},
    {"03", "Contribution to the health services fund", kAmountTests, IsPlainAmount,         2},
    {"04", "QPIP premiums",                            kAmountTests, IsPlainAmount,         3},
    {"05", "Remittance Type",                          kTypeTests,   IsPlainRemittanceType, kNoAddend, "001052"},
    {"06", "CSST payments",                            kAmountTests, IsPlainAmount,         4},
};

constexpr FieldTest kUnusedTests[] = {kUnused};
constexpr FieldRule kUnusedField   = {"", "", kUnusedTests, IsPlainlyUnused};

constexpr RuleSet kRuleSets[] = {
    {.screenCode = "03", .routine = "ValidateCRASourceDeduction",
     .noFieldsMessage = "Record for required fields is missing", .fields = kAgencyFields},
    {.screenCode = "20", .routine = "ValidateQueRevSourceDeduction",
     .noFieldsMessage = "Records for other required fields are missing", .fields = kQuebecFields,
     .periods = Periods::Tested, .total = Total::EqualsPayment},
};

// clang-format on

constexpr std::string_view kNoPeriodMessage = "Record for Remittance Period is missing";
constexpr std::string_view kTotalMessage = "The Amount Payable must match the Amount to be paid";

constexpr bool AreNumberedFromOne(std::span<const FieldRule> fields) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].number[0] != '0' || fields[i].number[1] != static_cast<char>('1' + i))
      return false;
  }
  return fields.size() <= 9;
}
static_assert(AreNumberedFromOne(kAgencyFields) && AreNumberedFromOne(kQuebecFields));

const FieldRule& RuleOf(const RuleSet& rules, std::string_view number) {
  if (number.size() == 2 && number[0] == '0') {
    const auto index = static_cast<size_t>(static_cast<unsigned char>(number[1])) - '1';
    if (index < rules.fields.size())
      return rules.fields[index];
  }
  return kUnusedField;
}

/// The judgement of one payment while it goes on.
class Judgement {
 public:
  Judgement(const RuleSet& rules, const Expectation& expected, std::string& reason)
      : rules_(rules), expected_(expected), reason_(reason) {}

  bool Judge(std::span<const std::string_view> records) {
    if (rules_.periods == Periods::Tested && JudgeAll<RecordKind::Government>(records) == 0)
      Fail(kNoPeriodMessage);
    if (JudgeAll<RecordKind::FreeFormat>(records) == 0)
      Fail(rules_.noFieldsMessage);
    else if (rules_.total == Total::EqualsPayment && !total_.Makes(expected_))
      Fail(kTotalMessage);
    return valid_;
  }

 private:
  /// Judges the records of a kind, in order, and returns how many there are.
  template <RecordKind kKind>
  size_t JudgeAll(std::span<const std::string_view> records) {
    size_t count = 0;
    for (const std::string_view record : records) {
      if (KindOf(record) != kKind)
        continue;
      ++count;
      if constexpr (kKind == RecordKind::Government) {
        JudgePeriod(CutGovernmentFormat(record).periodDueDate);
      } else {
        for (const FreeFormatSlotView& slot : CutFreeFormat(record)) JudgeSlot(slot);
      }
    }
    return count;
  }

  void JudgePeriod(std::string_view periodDueDate) {
    if (expected_.logging != Logging::Entries && IsPlainPeriod(periodDueDate, expected_.day))
      return;
    std::string message;
    if (!PeriodPasses(Trim(periodDueDate), message))
      Fail(message);
  }

  bool PeriodPasses(std::string_view period, std::string& message) const {
    if (expected_.logging != Logging::None)
      return IsValidRemittancePeriodQueRevSrcDeduct(period, expected_.billerCode, Batch::Yes, message);
    // A period that can't be read passes: the routine reports the error and keeps the result that it had.
    if (ResumeNext::Holds([&] { return IsRemittancePeriodInRange(period, expected_.day.today); }))
      return true;
    message = kRemittancePeriodMessage;
    return false;
  }

  void JudgeSlot(const FreeFormatSlotView& slot) {
    const FieldRule& rule = RuleOf(rules_, slot.fieldNum);
    const SlotValue value{slot.fieldValue, EighteenDigits(slot.fieldValue)};
    if (rule.isPlainlyGood(value, expected_)) {
      if (rule.addend != kNoAddend)
        total_.Keep(rule.addend, value.digits);
      return;
    }
    if (!rule.onlyForBiller.empty() && rule.onlyForBiller != expected_.billerCode)
      return;
    if (rule.addend != kNoAddend)
      total_.Keep(rule.addend, value.text);
    for (const FieldTest& test : rule.tests) {
      if (!test.passes(value.text, expected_)) {
        FailField(slot.fieldNum, rule.name, test.predicate);
        return;
      }
    }
  }

  /// Counts as failed; a failure without a message adds nothing to the reason.
  void Fail(std::string_view message) {
    valid_ = false;
    if (message.empty())
      return;
    Separate();
    reason_ += message;
  }

  void FailField(std::string_view number, std::string_view name, std::string_view predicate) {
    valid_ = false;
    Separate();
    reason_.append("Field ").append(number).append(" ").append(name).append(predicate);
  }

  void Separate() {
    if (!reason_.empty())
      reason_ += ", ";
  }

  const RuleSet& rules_;
  const Expectation& expected_;
  std::string& reason_;
  bool valid_ = true;
  PaymentTotal total_;
};

}  // namespace

const RuleSet* RulesOf(std::string_view screenCode) {
  const auto* const found = std::find_if(std::begin(kRuleSets), std::end(kRuleSets),
                                         [&](const RuleSet& rules) { return rules.screenCode == screenCode; });
  return found == std::end(kRuleSets) ? nullptr : found;
}

bool JudgeRecords(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected,
                  std::string& reason) {
  return Judgement(rules, expected, reason).Judge(records);
}

bool JudgeRecordsWithErrors(const RuleSet& rules, std::span<const std::string_view> records,
                            const Expectation& expected, std::string& reason) {
  try {
    return JudgeRecords(rules, records, expected, reason);
  } catch (const RuntimeError& error) {
    reason = ErrorReason(error);
    return false;
  }
}

}  // namespace fiscalon
