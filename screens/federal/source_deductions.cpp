#include "screens/federal/source_deductions.h"

#include <string>

#include "core/forms/keys.h"
#include "core/module_state.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

constexpr std::string_view kWholeNumber = "0";
constexpr std::string_view kDollars = "0.00";
constexpr std::string_view kFieldDigits = "000000000000000000";

}  // namespace

void GOVSOURCEDEDUCTION::Form_Load() {
  ShowPayee(PayeeName);
  AmountPaid.Caption(ShownPaidAmount());
  ShowDate(lblCPayDate, PayDate);
  PaymentAmount.Text(ShownPaidAmount());
  FindHelpFolder();
}

void GOVSOURCEDEDUCTION::Form_Activate() {
  if (GrossPayroll.Visible() && GrossPayroll.Enabled())
    GrossPayroll.SetFocus();
}

void GOVSOURCEDEDUCTION::GrossPayroll_KeyPress(int& character) {
  FilterKey(GrossPayroll, character, kAmountKeys);
  if (character != key::kEnter)
    return;
  const Money amount = AmountIn(TrimText(GrossPayroll));
  if (!IsAmountText(GrossPayroll.Text())) {
    Refuse(GrossPayroll);
    return;
  }
  GrossPayroll.Text(Format(amount, kDollars));
  if (amount < Money())
    Refuse(GrossPayroll, " Amount of Gross Payroll in Remitting Period cannot be less than 0.");
  else if (HasFraction(GrossPayroll.Text()))
    Refuse(GrossPayroll, "Amount of Gross Payroll cannot have decimal value.", MessageStyle::Plain);
  else
    NumberOfEmployees.SetFocus();
}

void GOVSOURCEDEDUCTION::GrossPayroll_LostFocus() {
  if (skipGrossCheck_) {
    skipGrossCheck_ = false;
    return;
  }
  const Money amount = AmountIn(TrimText(GrossPayroll));
  if (IsAmountText(GrossPayroll.Text()))
    GrossPayroll.Text(Format(amount, kDollars));
  else
    Refuse(GrossPayroll);
}

void GOVSOURCEDEDUCTION::NumberOfEmployees_KeyPress(int& character) {
  FilterKey(NumberOfEmployees, character, kAmountKeys);
  if (character != key::kEnter)
    return;
  const double number = NumberIn(TrimText(NumberOfEmployees));
  if (!IsAmountText(NumberOfEmployees.Text())) {
    Refuse(NumberOfEmployees);
    return;
  }
  NumberOfEmployees.Text(Format(number, kWholeNumber));
  if (number < 0) {
    Refuse(NumberOfEmployees, "Number of employees in latest pay period cannot be less than 0.");
    return;
  }
  if (number == 0 && AmountToBePaid() == 0)
    NumberOfEmployees.Text("0");
  EndDate.SetFocus();
}

void GOVSOURCEDEDUCTION::EndDate_Change() {
  MoveOnWhenFull(EndDate, Command3D6);
}

void GOVSOURCEDEDUCTION::EndDate_KeyPress(int& character) {
  FilterKey(EndDate, character, kDateKeys);
  if (character != key::kEnter)
    return;
  const std::string_view date = Trim(EndDate.Text());
  if (date.empty()) {
    Refuse(EndDate, "Please enter the date for the end of remitting period.");
  } else if (date.size() != 8) {
    ShowMessage("Invalid date value.", MessageStyle::Critical);
    EndDate.Text("");
    EndDate.SetFocus();
  } else {
    Command3D6.SetFocus();
  }
}

void GOVSOURCEDEDUCTION::EndDate_LostFocus() {
  CheckDateOnLeaving(EndDate);
}

void GOVSOURCEDEDUCTION::PaymentAmount_KeyPress(int& character) {
  FilterKey(PaymentAmount, character, kAmountKeys);
  if (character != key::kEnter)
    return;
  const Money amount = AmountIn(TrimText(PaymentAmount));
  if (amount < Money()) {
    Refuse(PaymentAmount, "Amount of Payment cannot be less than 0.");
    return;
  }
  if (amount == Money() && AmountToBePaid() != 0) {
    Refuse(PaymentAmount, "Please enter amount of payment.");
    return;
  }
  if (amount == Money())
    PaymentAmount.Text(Format(0.0, kDollars));
  if (!IsAmountText(PaymentAmount.Text())) {
    Refuse(PaymentAmount);
    return;
  }
  ApplyDecimalRule(PaymentAmount, amount);
  if (AmountToBePaid() != NumberIn(PaymentAmount.Text()))
    Refuse(PaymentAmount, "Amount of Payment is not equal to amount to be paid.");
  else
    EndDate.SetFocus();
}

void GOVSOURCEDEDUCTION::ApplyDecimalRule(TextField& field, Money amount) {
  field.Text(Format(WithImplicitCents(amount, field.Text()), kDollars));
}

void GOVSOURCEDEDUCTION::Command3D6_Click() {
  if (PaymentAmountPasses() && EndDatePasses() && GrossPayrollPasses() && NumberOfEmployeesPasses())
    Accept(OutputFailure::IsSkipped);
}

bool GOVSOURCEDEDUCTION::PaymentAmountPasses() {
  const Money typed = AmountIn(TrimText(PaymentAmount));
  if (!IsAmountText(PaymentAmount.Text()))
    return Refuse(PaymentAmount);
  ApplyDecimalRule(PaymentAmount, typed);
  const double amount = NumberIn(PaymentAmount.Text());
  if (amount < 0)
    return Refuse(PaymentAmount, "Amount of Payment cannot be less than 0.");
  if (amount == 0 && AmountToBePaid() != 0)
    return Refuse(PaymentAmount, "Please enter amount of payment.");
  if (amount == 0)
    PaymentAmount.Text(Format(0.0, kDollars));
  if (AmountToBePaid() != NumberIn(PaymentAmount.Text()))
    return Refuse(PaymentAmount, "Amount of Payment is not equal to amount to be paid.");
  return true;
}

bool GOVSOURCEDEDUCTION::EndDatePasses() {
  if (Trim(EndDate.Text()).empty())
    return Refuse(EndDate, "Please enter the date for the end of remitting period.");
  if (Trim(EndDate.Text()).size() != 8) {
    ShowMessage("Invalid date value.", MessageStyle::Critical);
    EndDate.Text("");
    return Refuse(EndDate);
  }
  TrimText(EndDate);
  if (!HoldsDate(EndDate)) {
    EndDate.SelectAll();
    return Refuse(EndDate, "Invalid date value.");
  }
  if (YearIsRefused(EndDate, Label7))
    return Refuse(EndDate);
  ShowDateDigits(EndDate);
  return true;
}

bool GOVSOURCEDEDUCTION::GrossPayrollPasses() {
  const Money gross = AmountIn(TrimText(GrossPayroll));
  if (!IsAmountText(GrossPayroll.Text()))
    return Refuse(GrossPayroll);
  if (gross < Money())
    return Refuse(GrossPayroll, " Amount of Gross Payroll in Remitting Period cannot be less than 0.");
  if (AmountToBePaid() == 0)
    return Refuse(PaymentAmount, "Amount to be paid is equal to 0.");
  if (gross == Money())
    return Refuse(GrossPayroll, "Please enter Gross Payroll in Remitting Period.");
  if (HasFraction(GrossPayroll.Text()))
    return Refuse(GrossPayroll, "Amount of Gross Payroll in Remitting Period cannot have decimal value.",
                  MessageStyle::Plain);
  return true;
}

bool GOVSOURCEDEDUCTION::NumberOfEmployeesPasses() {
  const double number = NumberIn(TrimText(NumberOfEmployees));
  if (!IsAmountText(NumberOfEmployees.Text()))
    return Refuse(NumberOfEmployees);
  if (HasFraction(NumberOfEmployees.Text())) {
    NumberOfEmployees.SelectAll();
    return Refuse(NumberOfEmployees);
  }
  // What is shown counts from here on: less than half an employee is none.
  NumberOfEmployees.Text(Format(number, kWholeNumber));
  if (NumberIn(NumberOfEmployees.Text()) == 0 && AmountToBePaid() != 0)
    return Refuse(NumberOfEmployees, "Please enter number of employees in latest pay period.");
  if (number < 0)
    return Refuse(NumberOfEmployees, "Number of employees in latest pay period cannot be less than 0.");
  return true;
}

void GOVSOURCEDEDUCTION::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord());
  SendRecord(FreeRecord({{"01", Format(Cents(PaymentAmount.Text()), kFieldDigits)},
                         {"02", std::string(Trim(EndDate.Text()))},
                         {"03", Format(Cents(GrossPayroll.Text()), kFieldDigits)},
                         {"04", Format(LeadingNumber(NumberOfEmployees.Text()), kFieldDigits)}}));
  EndRecords();
}

}  // namespace fiscalon
