#include "screens/parts/period_pair.h"

#include "core/messages.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/calendar.h"
#include "screens/parts/entered_text.h"

namespace fiscalon {
namespace {

constexpr size_t kDateLength = 8;
constexpr Date kBeforeFirstDay = {1992, 7, 1};

FieldDesign DateField(int tabIndex) {
  return {.tabIndex = tabIndex, .maxLength = kDateLength};
}

void AddHint(std::optional<Label>& hint, Form& form, const std::string& name) {
  if (!name.empty())
    hint.emplace(form, name, LabelDesign{.caption = "YYYYMMDD"});
}

Wording YYYYMMDD(const Date& date) {
  return AsGiven(FormatDate(date, "YYYYMMDD"));
}

/// Whether two dates, the other one where it is complete, are in order. One that can't be made is not.
bool AreInOrder(const TextField& from, const TextField& to) {
  return !ResumeNext::Fails([&] { return DateFromYYYYMMDD(from.Text()) < DateFromYYYYMMDD(to.Text()); });
}

std::optional<Date> LastDay(PeriodLimit limit) {
  if (limit == PeriodLimit::None)
    return std::nullopt;
  const Date yearAhead = AddYears(Today(), 1);
  return limit == PeriodLimit::OneYear ? yearAhead : AddDays(yearAhead, -1);
}

}  // namespace

PeriodPair::PeriodPair(Form& form, ValidationGuard& guard, const PeriodDesign& design)
    : FromCaption(form, design.fromCaptionName, {.caption = design.caption}),
      From(form, design.from, DateField(design.tabIndex), &To,
           {.lostFocus = [this] { guard_.FieldIsLeft(From, [this] { return CheckPeriodFrom(); }); }}),
      ToCaption(form, design.toCaptionName, {.caption = "To:"}),
      To(form, design.to, DateField(design.tabIndex + 1), design.next,
         {.lostFocus = [this] { guard_.FieldIsLeft(To, [this] { return CheckPeriodTo(); }); }}),
      guard_(guard),
      name_(design.name),
      limit_(design.limit) {
  AddHint(FromHint, form, design.fromHint);
  AddHint(ToHint, form, design.toHint);
}

Row PeriodPair::Row() {
  return {.cells = {{&FromCaption, &From, FromHint ? &*FromHint : nullptr},
                    {&ToCaption, &To, ToHint ? &*ToHint : nullptr}}};
}

bool PeriodPair::CheckPeriodFrom() {
  const Date yesterday = AddDays(Today(), -1);
  const bool isInRange = IsDate(From.Text()) && DateFromYYYYMMDD(From.Text()) > kBeforeFirstDay &&
                         DateFromYYYYMMDD(From.Text()) <= yesterday;
  if (!isInRange) {
    ShowMessage(Filled("{1} From must be in the form YYYYMMDD and must be between 19920702 and {2}", name_,
                       YYYYMMDD(yesterday)),
                MessageStyle::Critical);
    return false;
  }
  if (To.Text().size() != kDateLength || AreInOrder(From, To))
    return true;
  ShowMessage(Filled("{1} From must be less than the {1} 'To' date.", name_), MessageStyle::Critical);
  return false;
}

bool PeriodPair::CheckPeriodTo() {
  const std::optional<Date> lastDay = LastDay(limit_());
  const bool isInRange = IsDate(To.Text()) && (!lastDay || DateFromYYYYMMDD(To.Text()) <= *lastDay);
  if (!isInRange) {
    ShowMessage(lastDay ? Filled("{1} To must be in the form YYYYMMDD and must be between the From date and {2}", name_,
                                 YYYYMMDD(*lastDay))
                        : Filled("{1} To must be in the form YYYYMMDD and must be greater than the From date.", name_),
                MessageStyle::Critical);
    return false;
  }
  if (From.Text().size() != kDateLength || AreInOrder(From, To))
    return true;
  ShowMessage(Filled("{1} To must be greater than the {1} 'From' date.", name_), MessageStyle::Critical);
  return false;
}

}  // namespace fiscalon
