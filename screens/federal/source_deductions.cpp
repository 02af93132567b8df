#include "screens/federal/source_deductions.h"

#include <string>

#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

constexpr std::string_view kWholeNumber = "0";
constexpr std::string_view kDollars = "0.00";
constexpr size_t kDateLength = 8;

}  // namespace

void GOVSOURCEDEDUCTION::Form_Load() {
  ShowPayment(head);
  PaymentAmount.Text(ShownPaidAmount());
  FindHelpFolder();
}

bool GOVSOURCEDEDUCTION::GrossPayroll_Enter() {
  const Money amount = AmountIn(TrimText(GrossPayroll));
  if (!IsAmountText(GrossPayroll.Text()))
    return Refuse(GrossPayroll);
  GrossPayroll.Text(Format(amount, kDollars));
  if (amount < Money())
    return Refuse(GrossPayroll, " Amount of Gross Payroll in Remitting Period cannot be less than 0.");
  if (HasFraction(GrossPayroll.Text()))
    return Refuse(GrossPayroll, "Amount of Gross Payroll cannot have decimal value.", MessageStyle::Plain);
  return true;
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

bool GOVSOURCEDEDUCTION::NumberOfEmployees_Enter() {
  const double number = NumberIn(TrimText(NumberOfEmployees));
  if (!IsAmountText(NumberOfEmployees.Text()))
    return Refuse(NumberOfEmployees);
  NumberOfEmployees.Text(Format(number, kWholeNumber));
  if (number < 0)
    return Refuse(NumberOfEmployees, "Number of employees in latest pay period cannot be less than 0.");
  if (number == 0 && AmountToBePaid() == 0)
    NumberOfEmployees.Text("0");
  return true;
}

bool GOVSOURCEDEDUCTION::EndDate_Enter() {
  if (Trim(EndDate.Text()).empty())
    return Refuse(EndDate, "Please enter the date for the end of remitting period.");
  if (Trim(EndDate.Text()).size() != kDateLength)
    return RefuseAndEmpty(EndDate, "Invalid date value.");
  return true;
}

bool GOVSOURCEDEDUCTION::PaymentAmount_Enter() {
  const Money amount = AmountIn(TrimText(PaymentAmount));
  if (amount < Money())
    return Refuse(PaymentAmount, "Amount of Payment cannot be less than 0.");
  if (amount == Money() && AmountToBePaid() != 0)
    return Refuse(PaymentAmount, "Please enter amount of payment.");
  if (amount == Money())
    PaymentAmount.Text(Format(0.0, kDollars));
  if (!IsAmountText(PaymentAmount.Text()))
    return Refuse(PaymentAmount);
  ShowWithImplicitCents(PaymentAmount, amount);
  if (AmountToBePaid() != NumberIn(PaymentAmount.Text()))
    return Refuse(PaymentAmount, "Amount of Payment is not equal to amount to be paid.");
  return true;
}

void GOVSOURCEDEDUCTION::Command3D6_Click() {
  if (PaymentAmountPasses() && EndDatePasses() && GrossPayrollPasses() && NumberOfEmployeesPasses())
    Accept(OutputFailure::IsSkipped);
}

bool GOVSOURCEDEDUCTION::PaymentAmountPasses() {
  const Money typed = AmountIn(TrimText(PaymentAmount));
  if (!IsAmountText(PaymentAmount.Text()))
    return Refuse(PaymentAmount);
  ShowWithImplicitCents(PaymentAmount, typed);
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
  if (Trim(EndDate.Text()).size() != kDateLength)
    return RefuseAndEmpty(EndDate, "Invalid date value.");
  TrimText(EndDate);
  if (!HoldsDate(EndDate)) {
    EndDate.SelectAll();
    return Refuse(EndDate, "Invalid date value.");
  }
  if (YearIsRefused(EndDate, "'" + WithoutColon(Label7) + "'"))
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
  SendRecord(FreeRecord({AmountSlot("01", PaymentAmount), TextSlot("02", EndDate), AmountSlot("03", GrossPayroll),
                         NumberSlot("04", LeadingNumber(NumberOfEmployees.Text()))}));
  EndRecords();
}

}  // namespace fiscalon
