#include "screens/federal/individual_tax.h"

#include <string>

#include "core/forms/keys.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr const char* kAmountBelowZero = "Amount of Payment cannot be less than 0.";
constexpr const char* kAskAmount = "Please enter amount of payment.";
constexpr const char* kOtherAmount = "Amount of Payment is not equal to amount to be paid.";

constexpr AmountRow kAmountOnOk[] = {{amount::IsMissing, kAskAmount},
                                     {amount::Trim},
                                     {amount::ReadMoney},
                                     {amount::IsNegative, kAmountBelowZero, Reaction::Empties},
                                     {amount::IsNoAmount},
                                     {amount::ShowInCents},
                                     {amount::Differs, kOtherAmount},
                                     // What is shown counts: less than half a cent is nothing.
                                     {amount::ReadNumber},
                                     {amount::IsZero, "Payment amount cannot be 0."}};

// What Enter tests.

constexpr AmountRow kAmountOnEnterRows[] = {
    {amount::Trim},       {amount::ReadMoney},   {amount::IsNegative, kAmountBelowZero}, {amount::IsZero, kAskAmount},
    {amount::IsNoAmount}, {amount::ShowInCents}, {amount::Differs, kOtherAmount}};

}  // namespace

constinit const AmountRows GOVINDIDUAL::kAmountOnEnter = kAmountOnEnterRows;

void GOVINDIDUAL::Form_Load() {
  head.Show(Payment());
  PaymentAmount.Text(head.AmountPaid.Caption());
  Command3D4.FindFolder(Payment().govFilename);
}

void GOVINDIDUAL::PayYear_KeyPress(int& character) {
  FilterKey(PayYear, character, kDigitsAlone);
  if (character != key::kEnter || Trim(PayYear.Text()).size() > 4)
    return;
  if (TrimText(PayYear).empty())
    PayYear.Text(std::to_string(Today().year));
  if (LeadingNumber(PayYear.Text()) >= 1000)
    PaymentAmount.SetFocus();
}

void GOVINDIDUAL::Command3D6_Click() {
  if (!YearIsValid() || !PaymentAmount.Passes(kAmountOnOk))
    return;
  WriteRecords();
  Accepted();
}

bool GOVINDIDUAL::YearIsValid() {
  if (Trim(PayYear.Text()).empty())
    return Refuse(PayYear, "Please enter instalment payment year.");
  if (TrimText(PayYear).size() != 4)
    return Refuse(PayYear);
  if (LeadingNumber(PayYear.Text()) < 1900)
    return Refuse(PayYear);
  return true;
}

void GOVINDIDUAL::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord());
  SendRecord(FreeRecord({TextSlot("01", PayYear), CentsSlot("02", PaymentAmount)}));
  EndRecords();
}

}  // namespace fiscalon
