#include "screens/quebec/qst_gst_instalment.h"

#include "core/user_locale.h"
#include "screens/parts/refusal.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {

void frmQue_Rev_QSTGSTInst::RecalcForm() {
  txtAmountPayable.Show(txtGSTInstalment.Amount() + txtQSTInstalment.Amount());
}

// The period is not tested again: leaving its fields is its only gate. A total that was typed over may be negative.
bool frmQue_Rev_QSTGSTInst::ValidateForm() {
  if (!IsAmountToBePaid(txtAmountPayable, head))
    return Refuse(txtGSTInstalment, "The Amount Remitted must match the Amount to be paid.");
  if (ToMoney(txtAmountPayable.Text()) == Money())
    return Refuse(txtGSTInstalment, "The Amount Remitted must be greater than zero.");
  return true;
}

void frmQue_Rev_QSTGSTInst::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = period.From.Text(), .periodEndDate = period.To.Text()}));
  // QST goes first, though the screen asks for GST/HST first.
  SendRecord(FreeRecord(
      {AmountSlot("01", txtQSTInstalment), AmountSlot("02", txtGSTInstalment), ZeroSlot("03"), ZeroSlot("04")}));
  EndRecords();
}

}  // namespace fiscalon
