#include "screens/general/due_date_amount.h"

#include <string>

#include "core/record_composer.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/calendar.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

void frmDueDateAmount::SetupForm() {
  ShowPayment(lblPayDate, lblAmountPaid);
  Caption(CompName());
}

void frmDueDateAmount::txtRemittancePeriod_Change() {
  ResumeNext::Run([&] { txtRemittancePeriod.Text(DigitsOnly(txtRemittancePeriod.Text())); });
  ResumeNext::Run([&] { MoveOnWhenFull(txtRemittancePeriod, txtAmountPayable); });
}

void frmDueDateAmount::txtRemittancePeriod_LostFocus() {
  const std::string& text = txtRemittancePeriod.Text();
  if (Trim(text).empty() || FocusIsOn("cmdCancel"))
    return;
  if (ResumeNext::Holds([&] { return !IsValidTaxationYear(text); }))
    ResumeNext::Run([&] { txtRemittancePeriod.SetFocus(); });
}

void frmDueDateAmount::txtAmountPayable_Change() {
  txtAmountPayable.Text(KeepNumericChars(txtAmountPayable.Text()));
  MoveOnWhenFull(txtAmountPayable, cmdOK);
}

bool frmDueDateAmount::IsValidTaxationYear(std::string_view text) {
  const Date today = Today();
  const Date limit = DateFromParts(today.year + 1, today.month, 1);
  bool valid = text.size() >= 6;
  if (valid) {
    const Date date = DateFromParts(ToInt16(text.substr(0, 4)), ToInt16(text.substr(4, 2)), 1);
    valid = FormatDate(date, "YYYYMMDD") == std::string(text) + "01" && date < limit && date.year >= 1990;
  }
  if (!valid)
    ShowMessage("'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to " +
                    FormatDate(AddMonths(limit, -1), "YYYYMM") + ".",
                MessageStyle::Critical);
  return valid;
}

bool frmDueDateAmount::CheckValues(TextField& control, std::string_view label) {
  // This compares what the active control holds, not its name, so it is practically never met.
  if (ActiveControl() != nullptr && ActiveControl()->DefaultValue() == "cmdCancel")
    return true;
  const double amount = LeadingNumber(control.Text());
  if (amount <= 0 && !FocusIsOn("cmdCancel")) {
    ShowMessage(std::string(label) + " cannot be zero or negative.", MessageStyle::Plain);
    control.SetFocus();
    return false;
  }
  control.Text(AmountAsShown(control.Text()));
  return true;
}

bool frmDueDateAmount::ValidateForm() {
  if (ResumeNext::Holds([&] { return !IsValidTaxationYear(txtRemittancePeriod.Text()); })) {
    txtRemittancePeriod.SetFocus();
    return false;
  }
  if (ResumeNext::Holds([&] { return !CheckValues(txtAmountPayable, "Amount payable"); })) {
    txtAmountPayable.SetFocus();
    return false;
  }
  if (ResumeNext::Holds([&] { return ToMoney(txtAmountPayable.Text()) != ToMoney(lblAmountPaid.Caption()); }))
    return Refuse(txtAmountPayable, "The Amount Payable must match the Amount to be paid.");
  return true;
}

void frmDueDateAmount::DoWrite() {
  BeginRecords();
  SendRecord(ComposeGovernmentFormat(
      SeqNumber(),
      {.periodDueDate = txtRemittancePeriod.Text(), .contactName = EnterName(), .contactTitle = EnterTitle()}));
  SendRecord(ComposeFreeFormat(SeqNumber(), {{"01", AmountToField(Cents(txtAmountPayable.Text()))},
                                             {"02", std::string(kZeroValue)},
                                             {"03", std::string(kZeroValue)},
                                             {"04", std::string(kZeroValue)}}));
  EndRecords();
}

}  // namespace fiscalon
