#include "screens/parts/date_entry.h"

#include <algorithm>
#include <utility>

#include "core/forms/keys.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/text.h"
#include "screens/parts/confirmation.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/joined_events.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/moving_on.h"

namespace fiscalon {

namespace date {

bool Trim(TestedDate& entry) {
  TrimText(entry.Field());
  return false;
}

bool ShowDigits(TestedDate& entry) {
  entry.Field().Text(Format(NumberIn(entry.Text()), "00000000"));
  return false;
}

bool IsMissing(TestedDate& entry) {
  return fiscalon::Trim(entry.Text()).empty();
}

bool IsNotEightLong(TestedDate& entry) {
  constexpr size_t kDateLength = 8;
  return fiscalon::Trim(entry.Text()).size() != kDateLength;
}

bool IsInvalid(TestedDate& entry) {
  const auto isDate = [&] { return IsValidYYYYMMDD(entry.Text()); };
  return entry.Policy() == Failures::Skipped ? ResumeNext::Fails(isDate) : !isDate();
}

bool YearIsRefused(TestedDate& entry) {
  return YearIsNotCurrent(entry.Text(), entry.NameInWarning()) == kTrue;
}

}  // namespace date

DateEntry::DateEntry(fiscalon::Form& form, std::string name, const FieldDesign& design, DateRules rules,
                     FieldEvents own)
    : TextField(form, std::move(name), design, Joined(std::move(own), EventsOf(this, rules))),
      rules_(std::move(rules)) {}

// A handler that would do nothing is none: what observes a form hears of handlers that it has.
FieldEvents DateEntry::EventsOf(DateEntry* self, const DateRules& rules) {
  FieldEvents events = {.keyPress = [self](int& character) { self->KeyPressed(character); }};
  if (rules.whenFull.IsGiven())
    events.change = [self] { MoveOn(*self, self->rules_.whenFull); };
  if (rules.whenLeft != DateLeft::Unchecked)
    events.lostFocus = [self] { self->Left(); };
  return events;
}

bool DateEntry::Passes(DateRows rows) {
  return PassesRows(TestedDate(*this, rules_.nameInWarning, rules_.failures), rows);
}

void DateEntry::KeyPressed(int& character) {
  FilterKey(*this, character, kDigitsAlone);
  if (character == key::kEnter && Passes(rules_.onEnter))
    Confirm(rules_.confirmed, rules_.next, rules_.failures);
}

void DateEntry::Left() {
  if (Text().empty() || std::any_of(rules_.waysOut.begin(), rules_.waysOut.end(), FocusIsOn))
    return;
  static constexpr DateRow kChecked[] = {{date::Trim}, {date::IsInvalid, kInvalidDate}};
  TestedDate entry(*this, rules_.nameInWarning, Failures::Skipped);
  if (PassesRows(entry, kChecked) && rules_.whenLeft == DateLeft::ShowsDigits)
    date::ShowDigits(entry);
}

}  // namespace fiscalon
