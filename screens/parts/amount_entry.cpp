#include "screens/parts/amount_entry.h"

#include <utility>

#include "core/forms/form.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/refusal.h"

namespace fiscalon {
namespace {

FieldDesign FieldOf(const AmountEntryDesign& design) {
  return {.tabIndex = design.tabIndex, .maxLength = 12, .alignment = Alignment::Right, .visible = design.visible};
}

}  // namespace

Asked<Wording> CaptionOf(const Label& label) {
  return [&label] { return label.WordedCaption(); };
}

AmountEntry::AmountEntry(fiscalon::Form& form, std::string name, const AmountRule& rule, AmountEntryDesign design)
    : TextField(form, std::move(name), FieldOf(design), EventsOf(this, rule.checked)),
      rule_(rule),
      design_(std::move(design)) {}

FieldEvents AmountEntry::EventsOf(AmountEntry* self, AmountsChecked checked) {
  FieldEvents events = {.change = [self] {
    ResumeNext::Run([&] { self->Text(KeepNumericChars(self->Text())); });
    MoveOn(*self, self->design_.next);
  }};
  if (checked == AmountsChecked::WhenLeft)
    events.lostFocus = [self] { self->Left(); };
  return events;
}

double AmountEntry::Amount() const {
  return LeadingNumber(Text());
}

void AmountEntry::Left() {
  if (design_.back != nullptr && FocusIsOn(*design_.back))
    return;
  ResumeNext::Run([&] {
    if (rule_.whenLeft)
      rule_.whenLeft(*this);
    else
      CheckValues();
  });
}

bool AmountEntry::IsOutOfRange(double amount) const {
  return design_.range == AmountRange::Positive ? amount <= 0 : amount < 0;
}

AmountCheck AmountEntry::Check() {
  // This compares what the active control holds, not its name, so it is practically never met.
  const Control* const active = Owner().ActiveControl();
  if (active != nullptr && active->ValueInComparisons() == "cmdCancel")
    return AmountCheck::Skipped;
  const double amount = Amount();
  if (IsOutOfRange(amount) && !FocusIsOn(rule_.cancel)) {
    const std::string_view complaint =
        design_.range == AmountRange::Positive ? "{1} cannot be zero or negative." : "{1} cannot be negative.";
    Refuse(*this, Filled(complaint, design_.name()), MessageStyle::Plain);
    return AmountCheck::Refused;
  }
  const std::string text = Text();
  Text(Format(Trim(text).empty() ? 0 : WithImplicitCents(amount, text), "0.00"));
  return AmountCheck::Accepted;
}

void AmountEntry::CheckValues() {
  if (Check() == AmountCheck::Accepted && rule_.recalculate)
    rule_.recalculate();
}

}  // namespace fiscalon
