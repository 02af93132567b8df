#include "screens/federal/assessment.h"

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <vector>

#include "core/forms/keys.h"
#include "core/messages.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/calendar.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {
namespace {

constexpr size_t kClassLength = 7;
constexpr double kAssessmentLimit = 9999999.99;

constexpr const char* kAskMonth = "Please enter the month for the start of the period.";
constexpr const char* kInvalidYear =
    "Invalid year value, please re-enter the year value or check your PC to make sure that it has the correct date.";
constexpr const char* kInvalidMonth =
    "Invalid month value, please re-enter or check your PC to make sure that it has the correct date.";
constexpr const char* kInvalidEndMonth = "Invalid month value, please re-enter.";
constexpr const char* kInvalidClass = "Invalid classification number.";
constexpr const char* kDuplicateClass = "Classification number is duplicated.";

bool IsNoMonth(TestedAmount& entry) {
  return entry.Value() < 1 || entry.Value() > 12;
}

bool PadOneDigit(TestedAmount& entry) {
  if (entry.Text().size() == 1)
    entry.Field().Text("0" + entry.Text());
  return false;
}

bool IsOverLimit(TestedAmount& entry) {
  return entry.Value() > kAssessmentLimit;
}

/// Cents become dollars; what was typed with a decimal separator stays as it stands.
bool ShowIfInCents(TestedAmount& entry) {
  return !HasDecimalSeparator(entry.Text()) && amount::ShowInCents(entry);
}

Wording TooLarge() {
  return Filled("Assessment amount cannot be greater than\n{1}", AsGiven(Format(kAssessmentLimit, "Currency")));
}

constexpr AmountRow kMonthOnLeaving[] = {{amount::ReadNumber}, {IsNoMonth}, {PadOneDigit}};

// The end of the period is asked for in the words of its start.
constexpr AmountRow kMonthOnOk[] = {{amount::IsMissing, kAskMonth, Reaction::Empties},
                                    {amount::ReadNumber},
                                    {IsNoMonth},
                                    {amount::Trim},
                                    {PadOneDigit}};

constexpr AmountRow kYearOnOk[] = {
    {amount::IsMissing, "Please enter year field.", Reaction::Focus, MessageStyle::Plain}};

bool Passes(TextField& field, AmountRows rows) {
  return PassesRows(TestedAmount(field, {}, Failures::Leave), rows);
}

// Limits are shown as the user's locale shows amounts, so these rows are made when they are needed.

bool PassesOnEnter(TextField& field) {
  const Wording tooLarge = Filled("{1}.", TooLarge());
  return Passes(field, std::to_array<AmountRow>({{amount::ReadMoney},
                                                 {amount::IsNegative, "Amount cannot be less than 0."},
                                                 {amount::ShowInCents},
                                                 {IsOverLimit, tooLarge}}));
}

bool PassesOnOk(TextField& field) {
  const Wording tooLarge = TooLarge();
  return Passes(field, std::to_array<AmountRow>({{amount::ReadMoney},
                                                 {amount::IsNegative, "Assessment amount cannot be less than 0."},
                                                 {ShowIfInCents},
                                                 {IsOverLimit, tooLarge}}));
}

/// A box, then the fields are emptied, and the first one has the focus.
bool RefuseEmptied(std::initializer_list<std::reference_wrapper<TextField>> fields, const Wording& message) {
  ShowMessage(message, MessageStyle::Critical);
  for (TextField& field : fields) field.Text("");
  return Refuse(*fields.begin());
}

/// Digits pass, and Enter goes to the next field.
void PeriodKeyPressed(TextField& field, int& character, Control& next) {
  FilterKey(field, character, kDigitsAlone);
  if (character == key::kEnter)
    next.SetFocus();
}

std::string TwoDigits(int number) {
  return Format(number, "00");
}

// The numbers under which a pair goes, on the form and in the record.
std::string ClassNumber(int index) {
  return TwoDigits(2 * index + 1);
}
std::string AssessmentNumber(int index) {
  return TwoDigits(2 * index + 2);
}

}  // namespace

LabelDesign Assessment::ClassLabelDesign(int index) {
  return {.caption = Filled("{1} Classification", AsGiven(ClassNumber(index)))};
}

LabelDesign Assessment::AssessmentLabelDesign(int index) {
  return {.caption = Filled("{1} Assessment", AsGiven(AssessmentNumber(index)))};
}

Group Assessment::Details() {
  Group details = {.heading = &Label23};
  for (int i = 0; i < kPairs; ++i)
    details.rows.push_back({.cells = {{&ClassLabel[i], &WCBclass[i]}, {&AssessmentLabel[i], &WCBassessment[i]}}});
  return details;
}

void Assessment::Form_Load() {
  head.Show(Payment());
  WCBstatementonly[1].Value(true);
  Command3D4.FindFolder(Payment().govFilename);
}

void Assessment::WCBperiodfrommm_KeyPress(int& character) {
  PeriodKeyPressed(WCBperiodfrommm, character, WCBperiodtomm);
}

void Assessment::WCBperiodfrommm_LostFocus() {
  if (MonthIsAccepted(WCBperiodfrommm))
    ResumeNext::Run([&] { WCBperiodtomm.SetFocus(); });
}

void Assessment::WCBperiodtomm_KeyPress(int& character) {
  PeriodKeyPressed(WCBperiodtomm, character, WCBperiodyyyy);
}

void Assessment::WCBperiodtomm_LostFocus() {
  MonthIsAccepted(WCBperiodtomm);
}

bool Assessment::MonthIsAccepted(TextField& month) {
  if (month.Text().empty() || FocusWentToCancelOrHelp())
    return false;
  return PassesRows(TestedAmount(month, {}, Failures::Skipped), kMonthOnLeaving);
}

void Assessment::WCBperiodyyyy_KeyPress(int& character) {
  const bool isTooLong = WCBperiodyyyy.Text().size() > 4;
  PeriodKeyPressed(WCBperiodyyyy, character, isTooLong ? WCBperiodyyyy : WCBclass[0]);
}

void Assessment::WCBperiodyyyy_LostFocus() {
  // A full year goes on to the first classification, so Cancel and Help are left again.
  if (Trim(WCBperiodyyyy.Text()).empty())
    WCBperiodyyyy.Text(std::to_string(Today().year));
  if (FocusWentToCancelOrHelp())
    return;
  ResumeNext::Run([&] {
    if (PeriodIsValid())
      WCBclass[0].SetFocus();
  });
}

void Assessment::WCBclass_KeyPress(int index, int& character) {
  FilterKey(WCBclass[index], character, kDigitsAlone);
  if (character == key::kEnter && ClassIsAccepted(index))
    WCBassessment[index].SetFocus();
}

bool Assessment::ClassIsAccepted(int index) {
  TextField& field = WCBclass[index];
  if (field.Text().empty())
    return true;
  if (Trim(field.Text()).size() != kClassLength)
    return Refuse(field, kInvalidClass);
  for (int before = 0; before < index; ++before)
    if (Trim(field.Text()) == Trim(WCBclass[before].Text()))
      return Refuse(field, kDuplicateClass);
  return true;
}

void Assessment::WCBassessment_KeyPress(int index, int& character) {
  TextField& field = WCBassessment[index];
  FilterKey(field, character, kAmountKeys);
  if (character != key::kEnter || !PassesOnEnter(field))
    return;
  if (index == kPairs - 1)
    Command3D6.SetFocus();
  else
    WCBclass[index + 1].SetFocus();
}

void Assessment::Command3D6_Click() {
  if (WCBstatementonly.PaysStatementAlone())
    return Accepted();
  if (!PeriodIsEntered() || !PeriodIsValid() || !DetailsAreValid())
    return;
  WriteRecords();
  Accepted();
}

bool Assessment::PeriodIsEntered() {
  return Passes(WCBperiodfrommm, kMonthOnOk) && Passes(WCBperiodtomm, kMonthOnOk) && Passes(WCBperiodyyyy, kYearOnOk);
}

bool Assessment::PeriodIsValid() {
  const Date today = Today();
  const double year = LeadingNumber(WCBperiodyyyy.Text());
  const double from = LeadingNumber(WCBperiodfrommm.Text());
  const double to = LeadingNumber(WCBperiodtomm.Text());
  const bool isLastYear = year == today.year - 1;

  if (year != today.year && !isLastYear)
    return RefuseEmptied({WCBperiodyyyy}, kInvalidYear);
  if (isLastYear && today.month > 2)
    return RefuseEmptied({WCBperiodyyyy}, kInvalidYear);
  // Last year is open from here on, so no month of it is too late.
  if (from == to) {
    if (to > today.month && !isLastYear)
      return RefuseEmptied({WCBperiodfrommm, WCBperiodtomm}, kInvalidMonth);
    return true;
  }
  const bool beginsQuarter = from == 1 || from == 4 || from == 7 || from == 10;
  const bool mayBeAYear = from == 1 || to == 12;
  if (!beginsQuarter || mayBeAYear)
    return true;
  if (to != from + 2)
    return RefuseEmptied({WCBperiodtomm}, kInvalidEndMonth);
  if (to > today.month + 1 && !isLastYear)
    return RefuseEmptied({WCBperiodtomm}, kInvalidEndMonth);
  return true;
}

bool Assessment::DetailsAreValid() {
  const auto isEmpty = [](const TextField& field) { return field.Text().empty(); };
  if (std::all_of(WCBassessment.begin(), WCBassessment.end(), isEmpty))
    return Refuse(WCBassessment[0]);
  if (!ClassesAreUnique())
    return false;
  // Their sum is compared with nothing, not even with the amount to be paid.
  for (int i = 0; i < kPairs; ++i)
    if (!isEmpty(WCBassessment[i]) && !IsValidPair(i))
      return false;
  return true;
}

bool Assessment::ClassesAreUnique() {
  for (int i = 0; i < kPairs; ++i)
    for (int other = 0; other < kPairs; ++other)
      if (other != i && !WCBclass[i].Text().empty() && Trim(WCBclass[i].Text()) == Trim(WCBclass[other].Text()))
        return Refuse(WCBclass[other], kDuplicateClass);
  return true;
}

bool Assessment::IsValidPair(int index) {
  if (!PassesOnOk(WCBassessment[index]))
    return false;
  const std::string_view number = Trim(WCBclass[index].Text());
  if (number.empty())
    return Refuse(WCBclass[index], "Please enter classification number.");
  if (number.size() != kClassLength)
    return Refuse(WCBclass[index], kInvalidClass);
  return true;
}

void Assessment::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = PeriodStart(), .periodEndDate = PeriodEnd()}));
  SendPairs();
  EndRecords();
}

std::string Assessment::PeriodStart() const {
  return YearText() + std::string(Trim(WCBperiodfrommm.Text()).substr(0, 2)) + "01";
}

std::string Assessment::PeriodEnd() const {
  const std::string_view month = Trim(WCBperiodtomm.Text());
  // February is as long as this year's, whatever the year of the period.
  const Date lastDay = DateFromParts(Today().year, static_cast<int>(LeadingNumber(month)) + 1, 0);
  return YearText() + std::string(month) + TwoDigits(lastDay.day);
}

std::string Assessment::YearText() const {
  return std::string(Trim(WCBperiodyyyy.Text()).substr(0, 4));
}

void Assessment::SendPairs() {
  std::vector<FreeFormatSlot> slots;
  const auto send = [&] {
    SendRecord(ComposeFreeFormat(Payment().seqNumber, slots));
    slots.clear();
  };
  for (int i = 0; i < kPairs; ++i) {
    if (WCBassessment[i].Text().empty())
      continue;
    slots.push_back(TextSlot(ClassNumber(i), WCBclass[i]));
    slots.push_back(LocaleCentsSlot(AssessmentNumber(i), WCBassessment[i]));
    if (slots.size() == kSlotsPerRecord)
      send();
  }
  if (!slots.empty())
    send();
}

}  // namespace fiscalon
