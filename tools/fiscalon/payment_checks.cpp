#include "tools/fiscalon/payment_checks.h"

#include <algorithm>

#include "core/logging.h"
#include "core/platform/code_page.h"
#include "core/records/field_names.h"
#include "core/records/record_reader.h"
#include "core/remittance_period.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "validation/quick_digits.h"

namespace fiscalon {
namespace {

constexpr RecordField kPeriod = FieldNamed(kGovernmentLayout, "PeriodDueDate");
constexpr std::string_view kNoPeriod = "Record for Remittance Period is missing";

/// Says it beside what is said of the same columns already, or by itself.
void Say(std::vector<Note>& problems, const RecordField& field, std::string_view reason) {
  if (reason.empty())
    return;
  const std::string said = "validate says: " + ToUtf8(reason);
  const auto about =
      std::find_if(problems.begin(), problems.end(), [&](const Note& note) { return note.from == field.from; });
  if (about != problems.end() && field.from != 0)
    about->text.append("; ").append(said);
  else
    problems.push_back({.from = field.from, .to = field.to, .text = said});
}

std::string ReasonAgainst(const RuleSet& rules, const FieldRule* rule, const FreeFormatSlotView& slot,
                          const JudgingDay& day) {
  const auto against = [&](std::string_view predicate) {
    return std::string("Field ")
        .append(slot.fieldNum)
        .append(" ")
        .append(FieldNameOf(rules.screenCode, slot.fieldNum))
        .append(predicate);
  };
  // A number is the amount to be paid for itself: what is to be paid is not known.
  const Expectation expected{.paymentAmount = LeadingNumber(slot.fieldValue) / 100,
                             .paymentCents = EighteenDigits(slot.fieldValue.data()),
                             .day = &day};
  try {
    if (rule == nullptr)
      return kUnused.passes(slot.fieldValue, expected) ? "" : against(kUnused.predicate);
    if (rule->quickTest(slot.fieldValue.data(), expected) != kNoDigits)
      return {};
    for (const FieldTest& test : rule->tests)
      if (!test.passes(slot.fieldValue, expected))
        return against(test.predicate);
    return {};
  } catch (const RuntimeError& error) {
    return ErrorReason(error);
  }
}

}  // namespace

std::optional<PaymentChecks> PaymentChecks::Of(const LaunchRow* screen) {
  const RuleSet* rules = screen == nullptr ? nullptr : RulesOf(screen->code);
  return rules == nullptr ? std::nullopt : std::optional(PaymentChecks(*rules));
}

PaymentChecks::PaymentChecks(const RuleSet& rules) : rules_(&rules), day_(JudgingDayOf(Today())) {}

void PaymentChecks::Follow(ShownRecord& record) {
  hasPeriod_ = hasPeriod_ || record.kind == RecordKind::Government;
  hasFields_ = hasFields_ || record.kind == RecordKind::FreeFormat;
  // The fields of longer records do not stand where the rules look for them, and batches refuse those.
  if (record.length != kRecordLength)
    return;
  if (record.kind == RecordKind::Government)
    FollowPeriod(record);
  else if (record.kind == RecordKind::FreeFormat)
    FollowFields(record);
}

void PaymentChecks::FollowPeriod(ShownRecord& record) const {
  const std::string_view period = Trim(TextIn(record.record, kPeriod));
  // A period that can't be read passes.
  if (rules_->periods == Periods::Tested &&
      !ResumeNext::Holds([&] { return IsRemittancePeriodInRange(period, day_.today); }))
    Say(record.problems, kPeriod, kRemittancePeriodMessage);
}

void PaymentChecks::FollowFields(ShownRecord& record) const {
  const auto slots = CutFreeFormat(record.record);
  for (size_t i = 0; i < slots.size(); ++i) {
    const auto rule = std::find_if(rules_->fields.begin(), rules_->fields.end(),
                                   [&](const FieldRule& each) { return each.number == slots[i].fieldNum; });
    const bool isUnused = rule == rules_->fields.end();
    if (isUnused || rule->onlyForBiller.empty())
      Say(record.problems, kSlotValues[i], ReasonAgainst(*rules_, isUnused ? nullptr : &*rule, slots[i], day_));
  }
}

void PaymentChecks::EndPayment(ShownRecord& last) {
  if (rules_->periods == Periods::Tested && !hasPeriod_)
    Say(last.problems, {}, kNoPeriod);
  if (!hasFields_)
    Say(last.problems, {}, rules_->noFieldsMessage);
  hasPeriod_ = hasFields_ = false;
}

}  // namespace fiscalon
