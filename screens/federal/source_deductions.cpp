#include "screens/federal/source_deductions.h"

#include "core/resume_next.h"
#include "core/values/leading_number.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr const char* kAmountBelowZero = "Amount of Payment cannot be less than 0.";
constexpr const char* kAskAmount = "Please enter amount of payment.";
constexpr const char* kOtherAmount = "Amount of Payment is not equal to amount to be paid.";
constexpr const char* kAskDate = "Please enter the date for the end of remitting period.";
constexpr const char* kGrossBelowZero = " Amount of Gross Payroll in Remitting Period cannot be less than 0.";
constexpr const char* kEmployeesBelowZero = "Number of employees in latest pay period cannot be less than 0.";

constexpr AmountRow kGrossOnLeaving[] = {
    {amount::Trim}, {amount::ReadMoney}, {amount::IsNoAmount}, {amount::ShowInDollars}};

// What OK tests, in its order.

constexpr AmountRow kAmountOnOk[] = {{amount::Trim},
                                     {amount::ReadMoney},
                                     {amount::IsNoAmount},
                                     {amount::ShowInCents},
                                     {amount::ReadNumber},
                                     {amount::IsNegative, kAmountBelowZero},
                                     {amount::IsZeroWhileDue, kAskAmount},
                                     {amount::ShowZero},
                                     {amount::Differs, kOtherAmount}};

constexpr DateRow kDateOnOk[] = {{date::IsMissing, kAskDate},
                                 {date::IsNotEightLong, kInvalidDate, Reaction::Empties},
                                 {date::Trim},
                                 {date::IsInvalid, kInvalidDate, Reaction::Selects},
                                 {date::YearIsRefused},
                                 {date::ShowDigits}};

constexpr AmountRow kGrossOnOk[] = {
    {amount::Trim}, {amount::ReadMoney}, {amount::IsNoAmount}, {amount::IsNegative, kGrossBelowZero}};

constexpr AmountRow kGrossOfAPaymentOnOk[] = {
    {amount::ReadMoney},
    {amount::IsZero, "Please enter Gross Payroll in Remitting Period."},
    {amount::HasFraction, "Amount of Gross Payroll in Remitting Period cannot have decimal value.", Reaction::Focus,
     MessageStyle::Plain}};

constexpr AmountRow kEmployeesOnOk[] = {
    {amount::Trim},
    {amount::ReadNumber},
    {amount::IsNoAmount},
    {amount::HasFraction, "", Reaction::Selects},
    // What is shown counts from here on: less than half an employee is none.
    {amount::ShowWhole},
    {amount::ReadNumber},
    {amount::IsZeroWhileDue, "Please enter number of employees in latest pay period."},
    {amount::IsNegative, kEmployeesBelowZero}};

// What Enter and leaving test.

// Dollars alone: the text never counts cents.
constexpr AmountRow kGrossOnEnterRows[] = {
    {amount::Trim},
    {amount::ReadMoney},
    {amount::IsNoAmount},
    {amount::ShowInDollars},
    {amount::IsNegative, kGrossBelowZero},
    {amount::HasFraction, "Amount of Gross Payroll cannot have decimal value.", Reaction::Focus, MessageStyle::Plain}};

// Zero passes here; OK refuses it.
constexpr AmountRow kEmployeesOnEnterRows[] = {{amount::Trim},
                                               {amount::ReadNumber},
                                               {amount::IsNoAmount},
                                               {amount::ShowWhole},
                                               {amount::IsNegative, kEmployeesBelowZero}};

constexpr DateRow kDateOnEnterRows[] = {{date::IsMissing, kAskDate},
                                        {date::IsNotEightLong, kInvalidDate, Reaction::Empties}};

constexpr AmountRow kAmountOnEnterRows[] = {{amount::Trim},
                                            {amount::ReadMoney},
                                            {amount::IsNegative, kAmountBelowZero},
                                            {amount::IsZeroWhileDue, kAskAmount},
                                            {amount::ShowZero},
                                            {amount::IsNoAmount},
                                            {amount::ShowInCents},
                                            {amount::Differs, kOtherAmount}};

}  // namespace

constinit const AmountRows GOVSOURCEDEDUCTION::kGrossOnEnter = kGrossOnEnterRows;
constinit const AmountRows GOVSOURCEDEDUCTION::kEmployeesOnEnter = kEmployeesOnEnterRows;
constinit const DateRows GOVSOURCEDEDUCTION::kDateOnEnter = kDateOnEnterRows;
constinit const AmountRows GOVSOURCEDEDUCTION::kAmountOnEnter = kAmountOnEnterRows;

void GOVSOURCEDEDUCTION::Form_Load() {
  head.Show(Payment());
  PaymentAmount.Text(head.AmountPaid.Caption());
  Command3D4.FindFolder(Payment().govFilename);
}

void GOVSOURCEDEDUCTION::GrossPayroll_LostFocus() {
  if (skipGrossCheck_)
    skipGrossCheck_ = false;
  else
    GrossPayroll.Passes(kGrossOnLeaving);
}

void GOVSOURCEDEDUCTION::Command3D6_Click() {
  if (!PaymentAmount.Passes(kAmountOnOk) || !EndDate.Passes(kDateOnOk) || !GrossPayroll.Passes(kGrossOnOk) ||
      !SomethingIsToBePaid() || !GrossPayroll.Passes(kGrossOfAPaymentOnOk) || !NumberOfEmployees.Passes(kEmployeesOnOk))
    return;
  ResumeNext::Run([&] { WriteRecords(); });
  Accepted();
}

bool GOVSOURCEDEDUCTION::SomethingIsToBePaid() {
  if (NumberIn(head.AmountPaid.Caption()) == 0)
    return Refuse(PaymentAmount, "Amount to be paid is equal to 0.");
  return true;
}

void GOVSOURCEDEDUCTION::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord());
  SendRecord(FreeRecord({CentsSlot("01", PaymentAmount), TextSlot("02", EndDate), CentsSlot("03", GrossPayroll),
                         NumberSlot("04", LeadingNumber(NumberOfEmployees.Text()))}));
  EndRecords();
}

}  // namespace fiscalon
