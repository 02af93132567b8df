#include "tools/reading/payment_checks.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/records/record_reader.h"
#include "core/user_locale.h"
#include "validation/quick_digits.h"

namespace fiscalon {
namespace {

constexpr RecordField kPeriod = FieldNamed(kGovernmentLayout, "PeriodDueDate");

// Codes of faults that a record by itself can't be told of.
constexpr std::string_view kNoPeriod = "no-period";
constexpr std::string_view kNoFields = "no-fields";
constexpr std::string_view kOfWholePayments[] = {kNoPeriod, kNoFields, "not-the-amount", "not-the-total"};

bool IsOfWholePayment(const Fault& fault) {
  return std::find(std::begin(kOfWholePayments), std::end(kOfWholePayments), fault.code) != std::end(kOfWholePayments);
}

/// Says what the rules have against a record that holds nothing but this field.
void SayOf(const RuleSet& rules, std::string_view record, const JudgingDay& day, const RecordField& field,
           std::vector<Note>& problems) {
  for (const Fault& fault : FaultsOfRecords(rules, {&record, 1}, {.day = &day}))
    if (!IsOfWholePayment(fault))
      AddValidatesWord(problems, field, fault.message);
}

/// Whether a slot passes for sure. A number is the amount to be paid for itself.
bool PassesQuickly(const RuleSet& rules, const FreeFormatSlotView& slot, const JudgingDay& day) {
  const char* const value = slot.fieldValue.data();
  const Expectation expected{.paymentCents = EighteenDigits(value), .day = &day};
  const FieldRule& rule = RuleOf(rules, slot.fieldNum);
  return !rule.onlyForBiller.empty() || rule.tests.Quick()(value, expected) != kNoDigits;
}

}  // namespace

void AddValidatesWord(std::vector<Note>& problems, const RecordField& field, std::string_view reason) {
  // The judge's own words are in English, wherever they are read.
  const Wording said = Filled("validate says: {1}", AsGiven(std::string(reason)));
  const auto about =
      std::find_if(problems.begin(), problems.end(), [&](const Note& note) { return note.from == field.from; });
  if (about != problems.end() && field.from != 0)
    about->text = Filled("{1}; {2}", about->text, said);
  else
    problems.push_back({.from = field.from, .to = field.to, .text = said});
}

std::optional<PaymentChecks> PaymentChecks::Of(const LaunchRow* screen) {
  const RuleSet* rules = screen == nullptr ? nullptr : RulesOf(screen->code);
  return rules == nullptr ? std::nullopt : std::optional(PaymentChecks(*rules));
}

PaymentChecks::PaymentChecks(const RuleSet& rules) : rules_(&rules), day_(JudgingDayOf(Today())) {}

void PaymentChecks::Follow(ShownRecord& record) {
  began_ = record.isRecord && now_.anything && record.Seq() != seq_;
  if (!record.isRecord)
    return;
  if (began_)
    before_ = std::exchange(now_, {});
  seq_ = record.Seq();
  now_.anything = true;
  now_.period = now_.period || record.kind == RecordKind::Government;
  now_.fields = now_.fields || record.kind == RecordKind::FreeFormat;
  // The fields of longer records do not stand where the rules look for them, and batches refuse those.
  if (record.length != kRecordLength)
    return;
  if (record.kind == RecordKind::Government)
    SayOf(*rules_, record.record, day_, kPeriod, record.problems);
  else if (record.kind == RecordKind::FreeFormat)
    FollowSlots(record);
}

void PaymentChecks::FollowSlots(ShownRecord& record) const {
  const auto slots = CutFreeFormat(record.record);
  for (size_t i = 0; i < slots.size(); ++i) {
    if (PassesQuickly(*rules_, slots[i], day_))
      continue;
    std::string alone = record.record.substr(0, kHeadLength);
    alone.append(slots[i].fieldNum).append(slots[i].fieldValue).resize(kRecordLength, ' ');
    SayOf(*rules_, alone, day_, kSlotValues[i], record.problems);
  }
}

void PaymentChecks::SayWhatLacks(const Found& found, ShownRecord& last) const {
  if (!found.anything || (found.period && found.fields))
    return;
  for (const Fault& fault : FaultsOfRecords(*rules_, {}, {.day = &day_}))
    if ((fault.code == kNoPeriod && !found.period) || (fault.code == kNoFields && !found.fields))
      AddValidatesWord(last.problems, {}, fault.message);
}

}  // namespace fiscalon
