#include "validation/rule_sets.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "core/logging.h"
#include "core/records/field_names.h"
#include "core/records/record_reader.h"
#include "core/remittance_period.h"
#include "core/resume_next.h"
#include "core/values/text.h"
#include "validation/payment_total.h"
#include "validation/quick_tests.h"

namespace fiscalon {

namespace {

// clang-format off

// Screen "03": source deductions of the Canada Revenue Agency.

constexpr FieldTest kPaymentTests[]      = {kFilled, kFullLength, kNumeric, kNotNegative, kDigits, kPayment};
constexpr FieldTest kPeriodEndTests[]    = {kFilled, kDate};
constexpr FieldTest kGrossPayrollTests[] = {kFilled, kFullLength, kNumeric, kNotNegative, kWholeDollars};
constexpr FieldTest kEmployeesTests[]    = {kFilled, kFullLength, kNumeric, kAtLeastOne, kDigits};

constexpr FieldRule kAgencyFields[] = {
    {"01", kPaymentTests,      QuickPayment},
    {"02", kPeriodEndTests,    QuickDate},
    {"03", kGrossPayrollTests, QuickWholeDollars},
    {"04", kEmployeesTests,    QuickCount},
};

// Screen "20": source deductions of Revenue Quebec.

constexpr FieldTest kAmountTests[] = {kFilled, kFullLength, kNumeric, kNotNegative, kDigits};
constexpr FieldTest kTypeTests[]   = {kFilled, kFullLength, kNumeric, kRemittanceType, kDigits};

constexpr FieldRule kQuebecFields[] = {
    {"01", kAmountTests, QuickAmount,         0},
    {"02", kAmountTests, QuickAmount,         1},
    {"03", kAmountTests, QuickAmount,         2},
    {"04", kAmountTests, QuickAmount,         3},
    {"05", kTypeTests,   QuickRemittanceType, kNoAddend, "001052"},
    {"06", kAmountTests, QuickAmount,         4},
};

constexpr FieldTest kUnusedTests[] = {kUnused};
constexpr FieldRule kUnusedField   = {"", kUnusedTests, QuickUnused};

// clang-format on

constexpr bool AreNumberedFromOne(std::span<const FieldRule> fields) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].number[0] != '0' || fields[i].number[1] != static_cast<char>('1' + i))
      return false;
  }
  return fields.size() <= 9;
}
static_assert(AreNumberedFromOne(kAgencyFields) && AreNumberedFromOne(kQuebecFields));

constexpr size_t IndexOf(const char* number) {
  return number[0] == '0' ? static_cast<size_t>(static_cast<unsigned char>(number[1])) - '1' : SIZE_MAX;
}

const FieldRule& RuleOf(const RuleSet& rules, std::string_view number) {
  const size_t index = number.size() == 2 ? IndexOf(number.data()) : SIZE_MAX;
  return index < rules.fields.size() ? rules.fields[index] : kUnusedField;
}

bool IsLookedAt(const FieldRule& rule, const Expectation& expected) {
  return rule.onlyForBiller.empty() || rule.onlyForBiller == expected.billerCode;
}

/// The slots of an "F" record: where the first ones stand, how far apart they are, and where the last ends.
constexpr size_t kNumberOffset = FieldNamed(kFreeFormatLayout, "FieldNum").Offset();
constexpr size_t kValueOffset = FieldNamed(kFreeFormatLayout, "FieldValue").Offset();
constexpr size_t kSlotWidth = FieldNamed(kFreeFormatLayout, "FieldNum", 1).Offset() - kNumberOffset;
constexpr size_t kSlotsEnd = kNumberOffset + kSlotsPerRecord * kSlotWidth;
constexpr size_t kPeriodOffset = FieldNamed(kGovernmentLayout, "PeriodDueDate").Offset();

/// The quick test of a rule that is known when this is compiled.
template <const auto& kFields, size_t kAt>
inline bool FieldPassesQuickly(const char* value, const Expectation& expected, QuickTotal& total) {
  constexpr const FieldRule& kRule = kAt < std::size(kFields) ? kFields[kAt] : kUnusedField;
  if constexpr (!kRule.onlyForBiller.empty()) {
    if (kRule.onlyForBiller != expected.billerCode)
      return true;
  }
  const uint64_t number = kRule.quickTest(value, expected);
  if constexpr (kRule.addend != kNoAddend)
    total.Keep(kRule.addend, number);
  return number != kNoDigits;
}

/// The quick test of the rule of a field's number. A rule that is looked up in the table while the program runs costs a
/// call through a pointer for each field. So the row is sought by a comparison for each row, and each leads to the test
/// of its own row, put in place. `||` ends the search at the first row that fits; the comma lets that row's verdict out
/// of it without a part in the search.
template <const auto& kFields, size_t... kRow>
inline bool SlotPassesQuickly(size_t row, const char* value, const Expectation& expected, QuickTotal& total,
                              std::index_sequence<kRow...>) {
  bool passes = false;
  const bool found =
      ((row == kRow && (passes = FieldPassesQuickly<kFields, kRow>(value, expected, total), true)) || ...);
  return found ? passes : FieldPassesQuickly<kFields, std::size(kFields)>(value, expected, total);
}

/// The quick tests of an "F" record whose numbers stand in any order.
template <const auto& kFields>
bool AnySlotsPassQuickly(const char* record, const Expectation& expected, QuickTotal& total) {
  const char* const last = record + kSlotsPerRecord * kSlotWidth;
  for (const char* slot = record; slot != last; slot += kSlotWidth) {
    if (!SlotPassesQuickly<kFields>(IndexOf(slot + kNumberOffset), slot + kValueOffset, expected, total,
                                    std::make_index_sequence<std::size(kFields)>()))
      return false;
  }
  return true;
}

/// Whether a slot has the number of a row, from 0, as screens number their fields.
template <size_t kRow>
inline bool HasNumberOf(const char* slot) {
  static_assert(kRow < 9);
  constexpr char kNumber[] = {'0', static_cast<char>('1' + kRow)};
  return std::memcmp(slot + kNumberOffset, kNumber, sizeof kNumber) == 0;
}

/// The quick tests of an "F" record, which nearly always holds the rows from `kFirst` on, in their order. Then nothing
/// is sought: each slot goes to the test of its row.
template <const auto& kFields, size_t kFirst, size_t... kSlot>
inline bool SlotsPassQuickly(const char* record, const Expectation& expected, QuickTotal& total,
                             std::index_sequence<kSlot...>) {
  if ((HasNumberOf<kFirst + kSlot>(record + kSlot * kSlotWidth) && ...))
    return (FieldPassesQuickly<kFields, kFirst + kSlot>(record + kSlot * kSlotWidth + kValueOffset, expected, total) &&
            ...);
  return AnySlotsPassQuickly<kFields>(record, expected, total);
}

/// Whether a payment passes by quick tests alone. False says nothing.
template <const auto& kFields, Periods kPeriods, Total kTotal>
bool RecordsPassQuickly(std::span<const std::string_view> records, const Expectation& expected) {
  if (kTotal == Total::EqualsPayment && expected.logging == Logging::Entries)
    return false;
  QuickTotal total;
  size_t periods = 0;
  size_t fields = 0;
  for (const std::string_view record : records) {
    if (record.size() < kSlotsEnd)
      return false;
    const RecordKind kind = KindOf(record);
    if (kind == RecordKind::Government) {
      ++periods;
      if (kPeriods == Periods::Tested && !IsQuickPeriod(record.data() + kPeriodOffset, *expected.day))
        return false;
    } else if (kind == RecordKind::FreeFormat) {
      constexpr auto kSlots = std::make_index_sequence<kSlotsPerRecord>();
      const bool passes = fields++ == 0
                              ? SlotsPassQuickly<kFields, 0>(record.data(), expected, total, kSlots)
                              : SlotsPassQuickly<kFields, kSlotsPerRecord>(record.data(), expected, total, kSlots);
      if (!passes)
        return false;
    }
  }
  return fields > 0 && (kPeriods == Periods::Ignored || periods > 0) &&
         (kTotal == Total::Ignored || total.Makes(expected));
}

struct RuleSetTexts {
  std::string_view screenCode = {};
  std::string_view routine = {};
  std::string_view noFieldsMessage = {};
};

/// A rule set and its quick test, from one and the same rules.
template <const auto& kFields, Periods kPeriods, Total kTotal>
constexpr RuleSet RulesWith(const RuleSetTexts& texts) {
  return {.screenCode = texts.screenCode,
          .routine = texts.routine,
          .noFieldsMessage = texts.noFieldsMessage,
          .fields = kFields,
          .periods = kPeriods,
          .total = kTotal,
          .quickTest = RecordsPassQuickly<kFields, kPeriods, kTotal>};
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
    else if (rules_.total == Total::EqualsPayment && !total_.Makes(expected_, totalText_))
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
    for (const FieldTest& test : rule.tests) {
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

constexpr RuleSet kAgencyRules = RulesWith<kAgencyFields, Periods::Ignored, Total::Ignored>(
    {.screenCode = "03",
     .routine = "ValidateCRASourceDeduction",
     .noFieldsMessage = "Record for required fields is missing"});

constexpr RuleSet kQuebecRules = RulesWith<kQuebecFields, Periods::Tested, Total::EqualsPayment>(
    {.screenCode = "20",
     .routine = "ValidateQueRevSourceDeduction",
     .noFieldsMessage = "Records for other required fields are missing"});

bool JudgeRecords(const RuleSet& rules, std::span<const std::string_view> records, const Expectation& expected,
                  std::string& reason) {
  return PassesQuickly(rules, records, expected) || Judgement(rules, expected, reason).Judge(records);
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
