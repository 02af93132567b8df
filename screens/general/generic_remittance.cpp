#include "screens/general/generic_remittance.h"

#include <algorithm>
#include <span>

#include "core/forms/keys.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/text.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {
namespace {

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of the period.";
constexpr const char* kAskDue = "Please enter due date.";

/// What the box of an item takes beside digits.
constexpr std::string_view kBoxKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz.-,";

// What OK tests, in its order.

// clang-format off
constexpr DateRow kStartOnOk[] = {{date::IsMissing, kAskStart},
                             {date::IsNotEightLong},
                             {date::Trim},
                             {date::IsInvalid, kInvalidDate},
                             {date::YearIsRefused},
                             {date::ShowDigits}};

constexpr DateRow kEndOnOk[] = {{date::IsMissing, kAskEnd},
                           {date::IsNotEightLong},
                           {date::Trim},
                           {date::IsInvalid, kInvalidDate}};

constexpr DateRow kEndBehindStartOnOk[] = {{date::YearIsRefused},
                                      {date::ShowDigits}};

// The due date alone is tested as it stands, and says so where it is too short.
constexpr DateRow kDueOnOk[] = {{date::IsMissing, kAskDue},
                           {date::IsNotEightLong, kInvalidDate},
                           {date::IsInvalid, kInvalidDate},
                           {date::YearIsRefused},
                           {date::ShowDigits}};

constexpr AmountRow kOtherAmountOnOk[] = {{amount::Trim},
                                     {amount::IsMissing, "", Reaction::Passes},
                                     {amount::IsNoAmount},
                                     {amount::ReadMoney},
                                     {amount::ShowInCents}};
// clang-format on

bool IsBoxText(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) {
    return IsDigit(character) || kBoxKeys.find(character) != std::string_view::npos;
  });
}

bool IsPrintableText(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) { return character >= ' ' && character <= '~'; });
}

bool IsBlank(const TextField& field) {
  return Trim(field.Text()).empty();
}

/// The number of an item, as the user and the records know it.
std::string NumberOf(int index) {
  return Format(static_cast<double>(index + 1), "00");
}

std::string DateIn(const TextField& field) {
  constexpr size_t kDateLength = 8;
  return std::string(Trim(field.Text()).substr(0, kDateLength));
}

std::string CentsIn(const TextField& field) {
  return DigitsOf(Cents(Trim(field.Text())));
}

// What Enter tests.

constexpr DateRow kStartOnEnterRows[] = {{date::IsMissing, kAskStart}, {date::IsNotEightLong}};

constexpr DateRow kEndOnEnterRows[] = {{date::IsMissing, kAskEnd}, {date::IsNotEightLong}};

constexpr DateRow kDueOnEnterRows[] = {{date::IsMissing, kAskDue}, {date::IsNotEightLong}};

}  // namespace

constinit const DateRows GENERICFORM::kStartOnEnter = kStartOnEnterRows;
constinit const DateRows GENERICFORM::kEndOnEnter = kEndOnEnterRows;
constinit const DateRows GENERICFORM::kDueOnEnter = kDueOnEnterRows;

void GENERICFORM::Form_Load() {
  head.Show(Payment());
  const double number = NumberIn(numberOfInfoCollect_);
  boxCount_ = number > 0 && number < kItems + 1 ? ToInt16(number) : 0;
  // 12.7 items are 13, which are too many.
  if (boxCount_ > kItems)
    boxCount_ = 0;
  for (int i = boxCount_; i < kItems; ++i) Box[i].Enabled(false);
  Command3D4.FindFolder(Payment().govFilename);
}

void GENERICFORM::OpenDetails() {
  const bool open = !StatementOnly.PaysStatementAlone();
  for (Control* const date : {&PeriodStartDate, &PeriodEndDate, &DueDate}) date->Enabled(open);
  for (int i = 0; i < boxCount_; ++i) Box[i].Enabled(open);
  Box[kDetails].Enabled(open);
  Box[kAmount].Enabled(open);
}

void GENERICFORM::Box_KeyPress(int index, int& character) {
  if (index == kDetails)
    DropQuote(character);
  else
    FilterKey(Box[index], character, kBoxKeys);
  Capitalize(character);
  if (character != key::kEnter || index >= boxCount_ || !RequiredBoxPasses(index))
    return;
  Control* const next = index + 1 < boxCount_ ? static_cast<Control*>(&Box[index + 1]) : &Command3D6;
  ResumeNext::Run([&] { next->SetFocus(); });
}

void GENERICFORM::Command3D6_Click() {
  if (StatementOnly.PaysStatementAlone())
    return Accepted();
  // A closed box that is refused can't take the focus, which is skipped: it is refused all the same.
  if (ResumeNext::Fails([&] { return DetailsAreValid(); }))
    return;
  ResumeNext::Run([&] { WriteRecords(); });
  Accepted();
}

bool GENERICFORM::DetailsAreValid() {
  return PeriodStartDate.Passes(kStartOnOk) && PeriodEndDate.Passes(kEndOnOk) && EndIsBehindStart() &&
         PeriodEndDate.Passes(kEndBehindStartOnOk) && DueDate.Passes(kDueOnOk) && BoxesPass() && OtherAmountPasses();
}

bool GENERICFORM::EndIsBehindStart() {
  const double start = NumberIn(PeriodStartDate.Text());
  const double end = NumberIn(PeriodEndDate.Text());
  if (end == start)
    return Refuse(PeriodEndDate, "Reporting period starting date is same as ending date.");
  if (end < start)
    return Refuse(PeriodEndDate, "Reporting period ending date is incorrect.");
  return true;
}

bool GENERICFORM::RequiredBoxPasses(int index) {
  if (IsBlank(Box[index]))
    return Refuse(Box[index], Filled("Please enter Box {1} field.", AsGiven(NumberOf(index))));
  if (!IsBoxText(TrimText(Box[index])))
    return Refuse(Box[index]);
  return true;
}

bool GENERICFORM::BoxesPass() {
  for (int i = 0; i < boxCount_; ++i)
    if (!RequiredBoxPasses(i))
      return false;
  for (int i = boxCount_; i < kItems; ++i)
    if (!IsBlank(Box[i]) && !IsBoxText(Box[i].Text()))
      return Refuse(Box[i]);
  return true;
}

bool GENERICFORM::OtherAmountPasses() {
  if (!IsPrintableText(TrimText(Box[kDetails])))
    return Refuse(Box[kDetails]);
  if (!PassesRows(TestedAmount(Box[kAmount], {}, Failures::Skipped), kOtherAmountOnOk))
    return false;
  if (!IsBlank(Box[kDetails]) && IsBlank(Box[kAmount]))
    return Refuse(Box[kAmount], "If you enter a value for 'Details', you must also enter a value for 'Other Amount'.",
                  MessageStyle::Information);
  if (IsBlank(Box[kDetails]) && !IsBlank(Box[kAmount]))
    return Refuse(Box[kDetails], "If you enter a value for 'Other Amount', you must also enter a value for 'Details'.",
                  MessageStyle::Information);
  return true;
}

void GENERICFORM::WriteRecords() {
  const std::string& seqNumber = Payment().seqNumber;
  const std::string& details = Box[kDetails].Text();
  const bool hasDetails = !IsBlank(Box[kDetails]) || !IsBlank(Box[kAmount]);
  const std::vector<FreeFormatSlot> filled = FilledBoxes();
  // Readers of the collection, not those of the file, expect the details behind the slots of a record with room left.
  const bool isJoined = hasDetails && Payment().writeFile != kTrue && filled.size() % kSlotsPerRecord != 0;
  const size_t joined = isJoined ? filled.size() % kSlotsPerRecord : 0;
  const std::span slots(filled);

  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = DateIn(PeriodStartDate),
                               .periodEndDate = DateIn(PeriodEndDate),
                               .periodDueDate = DateIn(DueDate)}));
  for (const std::string& record : ComposeFreeFormats(seqNumber, slots.first(slots.size() - joined)))
    SendRecord(record);
  if (isJoined)
    SendRecord(ComposeFreeFormatWithDetails(seqNumber, slots.last(joined), CentsIn(Box[kAmount]), details));
  else if (hasDetails)
    SendRecord(ComposeGenericDetails(seqNumber, CentsIn(Box[kAmount]), details));
  EndRecords();
}

std::vector<FreeFormatSlot> GENERICFORM::FilledBoxes() const {
  std::vector<FreeFormatSlot> slots;
  for (int i = 0; i < kItems; ++i)
    if (!IsBlank(Box[i]))
      slots.push_back(TextSlot(NumberOf(i), Box[i]));
  return slots;
}

}  // namespace fiscalon
