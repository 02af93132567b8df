#include "screens/general/due_date_amount.h"

#include <string>

#include "core/messages.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/calendar.h"
#include "core/values/text.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/refusal.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {

void frmDueDateAmount::SetupForm() {
  head.Show(Payment());
  Caption(AsGiven(Payment().compName));
}

void frmDueDateAmount::txtRemittancePeriod_LostFocus() {
  const std::string& text = txtRemittancePeriod.Text();
  if (Trim(text).empty() || FocusIsOn(cmdCancel))
    return;
  if (ResumeNext::Fails([&] { return IsValidTaxationYear(text); }))
    ResumeNext::Run([&] { txtRemittancePeriod.SetFocus(); });
}

bool frmDueDateAmount::IsValidTaxationYear(std::string_view text) {
  const Date today = Today();
  const Date limit = DateFromParts(today.year + 1, today.month, 1);
  bool valid = text.size() >= 6;
  if (valid) {
    const Date date = DateFromTexts(text.substr(0, 4), text.substr(4, 2));
    valid = FormatDate(date, "YYYYMMDD") == std::string(text) + "01" && date < limit && date.year >= 1990;
  }
  if (!valid)
    ShowMessage(Filled("'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to {1}.",
                       AsGiven(FormatDate(AddMonths(limit, -1), "YYYYMM"))),
                MessageStyle::Critical);
  return valid;
}

bool frmDueDateAmount::ValidateForm() {
  if (ResumeNext::Fails([&] { return IsValidTaxationYear(txtRemittancePeriod.Text()); }))
    return Refuse(txtRemittancePeriod);
  if (ResumeNext::Holds([&] { return txtAmountPayable.Check() == AmountCheck::Refused; }))
    return Refuse(txtAmountPayable);
  if (!IsAmountToBePaid(txtAmountPayable, head))
    return Refuse(txtAmountPayable, "The Amount Payable must match the Amount to be paid.");
  return true;
}

void frmDueDateAmount::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodDueDate = txtRemittancePeriod.Text()}));
  SendRecord(FreeRecord({AmountSlot("01", txtAmountPayable), ZeroSlot("02"), ZeroSlot("03"), ZeroSlot("04")}));
  EndRecords();
}

}  // namespace fiscalon
