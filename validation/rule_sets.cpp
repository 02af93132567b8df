#include "validation/rule_sets.h"

#include <algorithm>
#include <utility>

#include "core/logging.h"
#include "core/quebec_source_deductions.h"
#include "core/records/field_names.h"
#include "core/records/record_reader.h"
#include "core/resume_next.h"
#include "core/values/text.h"
#include "validation/payment_total.h"
#include "validation/quick_rules.h"

namespace fiscalon {

namespace {

bool IsLookedAt(const FieldRule& rule, const Expectation& expected) {
  return rule.onlyForBiller.empty() || rule.onlyForBiller == expected.billerCode;
}

/// What is wrong with a payment as a whole, or with a field of a "T" record.
struct Complaint {
  std::string_view code = {};
  std::string_view message = {};
};
constexpr Complaint kNoPeriod = {"no-period", "Record for Remittance Period is missing"};
constexpr Complaint kOtherTotal = {"not-the-total", "The Amount Payable must match the Amount to be paid"};
constexpr std::string_view kNoFieldsCode = "no-fields";
constexpr std::string_view kPeriodCode = "not-a-period";
constexpr std::string_view kPeriodName = "Remittance Period";

/// The judgement of one payment while it goes on.
class Judgement {
 public:
  /// With `faults` it also keeps where each message lies.
  Judgement(const RuleSet& rules, const Expectation& expected, std::string& reason,
            std::vector<Fault>* faults = nullptr)
      : rules_(rules), expected_(expected), reason_(reason), faults_(faults) {}

  bool Judge(std::span<const std::string_view> records) {
    if (rules_.periods == Periods::Tested && JudgeAll<RecordKind::Government>(records) == 0)
      Fail(kNoPeriod);
    if (JudgeAll<RecordKind::FreeFormat>(records) == 0)
      Fail({kNoFieldsCode, rules_.noFieldsMessage});
    else if (rules_.total == Total::EqualsPayment && !total_.Equals(expected_, totalText_))
      Fail(kOtherTotal, totalText_);
    return valid_;
  }

  /// The fault of a run-time error that ended the judgement: it lies where the judgement was.
  Fault FaultOf(const RuntimeError& error) const {
    return FaultHere("error-" + std::to_string(error.Number()), ErrorReason(error));
  }

 private:
  /// What is looked at.
  struct Place {
    /// From 1; 0 for the payment as a whole.
    size_t record = 0;
    std::string_view field = {};
    std::string_view name = {};
    std::string_view value = {};
  };

  /// Judges the records of a kind, in order, and returns how many there are.
  template <RecordKind kKind>
  size_t JudgeAll(std::span<const std::string_view> records) {
    size_t count = 0;
    for (size_t i = 0; i < records.size(); ++i) {
      if (KindOf(records[i]) != kKind)
        continue;
      ++count;
      if constexpr (kKind == RecordKind::Government) {
        JudgePeriod(i + 1, CutGovernmentFormat(records[i]).periodDueDate);
      } else {
        for (const FreeFormatSlotView& slot : CutFreeFormat(records[i])) JudgeSlot(i + 1, slot);
      }
    }
    place_ = {};
    return count;
  }

  void JudgePeriod(size_t record, std::string_view periodDueDate) {
    place_ = {.record = record, .name = kPeriodName, .value = periodDueDate};
    std::string message;
    if (!PeriodPasses(Trim(periodDueDate), message))
      Fail({kPeriodCode, message}, periodDueDate);
  }

  bool PeriodPasses(std::string_view period, std::string& message) const {
    if (expected_.logging != Logging::None)
      return IsValidRemittancePeriodQueRevSrcDeduct(period, expected_.billerCode, Batch::Yes, message);
    // A period that can't be read passes: the routine reports the error and keeps the result that it had.
    if (ResumeNext::Holds([&] { return IsRemittancePeriodInRange(period, expected_.day->today); }))
      return true;
    message = kRemittancePeriodMessage;
    return false;
  }

  void JudgeSlot(size_t record, const FreeFormatSlotView& slot) {
    const FieldRule& rule = RuleOf(rules_, slot.fieldNum);
    if (!IsLookedAt(rule, expected_))
      return;
    place_ = {.record = record, .field = slot.fieldNum, .value = slot.fieldValue};
    if (rule.addend != kNoAddend)
      total_.Keep(rule.addend, slot.fieldValue);
    for (const FieldTest& test : rule.tests.InOrder()) {
      if (!test.passes(slot.fieldValue, expected_)) {
        FailField(test);
        return;
      }
    }
  }

  /// Counts as failed; a failure without a message adds nothing to the reason.
  void Fail(const Complaint& complaint, std::string_view value = {}) {
    valid_ = false;
    if (complaint.message.empty())
      return;
    Separate();
    reason_ += complaint.message;
    if (faults_ == nullptr)
      return;
    place_.value = value;
    faults_->push_back(FaultHere(std::string(complaint.code), std::string(complaint.message)));
  }

  void FailField(const FieldTest& test) {
    valid_ = false;
    Separate();
    const size_t start = reason_.size();
    reason_.append("Field ")
        .append(place_.field)
        .append(" ")
        .append(FieldNameOf(rules_.screenCode, place_.field))
        .append(test.predicate);
    if (faults_ != nullptr)
      faults_->push_back(FaultHere(std::string(test.code), reason_.substr(start)));
  }

  Fault FaultHere(std::string code, std::string message) const {
    const std::string_view name = place_.field.empty() ? place_.name : FieldNameOf(rules_.screenCode, place_.field);
    return {.line = std::max<size_t>(place_.record, 1),
            .field = std::string(place_.field),
            .name = name,
            .value = std::string(TrimRight(place_.value)),
            .code = std::move(code),
            .message = std::move(message)};
  }

  void Separate() {
    if (!reason_.empty())
      reason_ += ", ";
  }

  const RuleSet& rules_;
  const Expectation& expected_;
  std::string& reason_;
  std::vector<Fault>* faults_;
  Place place_;
  bool valid_ = true;
  PaymentTotal total_;
  std::string totalText_;
};

}  // namespace

const FieldRule& RuleOf(const RuleSet& rules, std::string_view number) {
  const size_t index = number.size() == 2 ? IndexOf(number.data()) : SIZE_MAX;
  return index < rules.fields.size() ? rules.fields[index] : kUnusedField;
}

bool JudgeRecords(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected,
                  std::string& reason) {
  return PassesQuickly(rules, records, expected) || Judgement(rules, expected, reason).Judge(records);
}

bool PassEveryTest(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected) {
  Expectation silent = expected;
  silent.logging = Logging::None;
  // Who asks for a quick test alone gives the amount to be paid in cents alone.
  if (expected.paymentCents != kNoCents)
    silent.paymentAmount = static_cast<double>(expected.paymentCents) / 100;
  std::string reason;
  return Judgement(rules, silent, reason).Judge(records);
}

std::vector<Fault> FaultsOfRecords(const RuleSet& rules, std::span<const std::string_view> records,
                                   const Expectation& expected) {
  std::vector<Fault> faults;
  std::string reason;
  Judgement judgement(rules, expected, reason, &faults);
  try {
    judgement.Judge(records);
  } catch (const RuntimeError& error) {
    // The error is the only reason then.
    faults = {judgement.FaultOf(error)};
  }
  return faults;
}

}  // namespace fiscalon
