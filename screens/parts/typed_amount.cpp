#include "screens/parts/typed_amount.h"

#include <utility>

#include "core/forms/keys.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/confirmation.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/joined_events.h"

namespace fiscalon {
namespace {

constexpr std::string_view kDollars = "0.00";
constexpr std::string_view kWhole = "0";

}  // namespace

void TestedAmount::ReadNumber() {
  isMoney_ = false;
  number_ = 0;
  Attempt(policy_, [&] { number_ = LeadingNumber(Text()); });
}

void TestedAmount::ReadMoney() {
  isMoney_ = true;
  money_ = Money();
  Attempt(policy_, [&] { money_ = Money::FromDouble(LeadingNumber(Text())); });
}

void TestedAmount::TakeAsCents() {
  money_ = WithImplicitCents(money_, Text());
  number_ = WithImplicitCents(number_, Text());
}

void TestedAmount::Show(std::string_view pattern) {
  field_.Text(isMoney_ ? Format(money_, pattern) : Format(number_, pattern));
}

void TestedAmount::ShowZero() {
  money_ = Money();
  number_ = 0;
  Show(kDollars);
}

namespace amount {

bool Trim(TestedAmount& entry) {
  TrimText(entry.Field());
  return false;
}

bool ReadNumber(TestedAmount& entry) {
  entry.ReadNumber();
  return false;
}

bool ReadMoney(TestedAmount& entry) {
  entry.ReadMoney();
  return false;
}

bool ShowInCents(TestedAmount& entry) {
  entry.TakeAsCents();
  entry.Show(kDollars);
  return false;
}

bool ShowInDollars(TestedAmount& entry) {
  entry.Show(kDollars);
  return false;
}

bool ShowWhole(TestedAmount& entry) {
  entry.Show(kWhole);
  return false;
}

bool ShowZero(TestedAmount& entry) {
  if (IsZero(entry))
    entry.ShowZero();
  return false;
}

bool FillEmpty(TestedAmount& entry) {
  if (IsMissing(entry))
    entry.ShowZero();
  return false;
}

bool IsMissing(TestedAmount& entry) {
  return fiscalon::Trim(entry.Text()).empty();
}

bool IsNoAmount(TestedAmount& entry) {
  return !IsAmountText(entry.Text());
}

bool IsNegative(TestedAmount& entry) {
  return entry.Value() < 0;
}

bool IsZero(TestedAmount& entry) {
  return entry.Value() == 0;
}

bool IsZeroWhileDue(TestedAmount& entry) {
  return IsZero(entry) && entry.ToBePaid() != 0;
}

bool HasFraction(TestedAmount& entry) {
  return fiscalon::HasFraction(entry.Text());
}

bool Exceeds(TestedAmount& entry) {
  return entry.Value() > entry.ToBePaid();
}

bool Differs(TestedAmount& entry) {
  return entry.ToBePaid() != NumberIn(entry.Text());
}

}  // namespace amount

Asked<double> AmountOn(const Label& label) {
  return [&label] { return NumberIn(label.Caption()); };
}

TypedAmount::TypedAmount(fiscalon::Form& form, std::string name, const FieldDesign& design, TypedAmountRules rules,
                         FieldEvents own)
    : TextField(form, std::move(name), design, Joined(std::move(own), EventsOf(this, rules))),
      rules_(std::move(rules)) {}

// A handler that would do nothing is none: what observes a form hears of handlers that it has.
FieldEvents TypedAmount::EventsOf(TypedAmount* self, const TypedAmountRules& rules) {
  FieldEvents events = {.keyPress = [self](int& character) { self->KeyPressed(character); }};
  if (!rules.onLeaving.empty() || rules.left)
    events.lostFocus = [self] { self->Left(); };
  return events;
}

bool TypedAmount::Passes(AmountRows rows) {
  return PassesRows(TestedAmount(*this, rules_.toBePaid, rules_.failures), rows);
}

void TypedAmount::KeyPressed(int& character) {
  FilterKey(*this, character, rules_.keys);
  if (character == key::kEnter && Passes(rules_.onEnter))
    Confirm(rules_.confirmed, rules_.next, rules_.failures);
}

void TypedAmount::Left() {
  if (!PassesRows(TestedAmount(*this, rules_.toBePaid, Failures::Skipped), rules_.onLeaving))
    return;
  if (rules_.left)
    ResumeNext::Run(rules_.left);
}

}  // namespace fiscalon
