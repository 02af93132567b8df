#include "screens/general/instalments.h"

#include "screens/parts/refusal.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {

void frmInstalments::SetupForm() {
  head.Show(Payment());
  Caption(AsGiven(Payment().compName));
}

// The period is not tested again: leaving its fields is its only gate. Nothing paid is accepted for nothing due.
bool frmInstalments::ValidateForm() {
  if (!IsAmountToBePaid(txtAmountPayable, head))
    return Refuse(txtAmountPayable, "The Instalment Amount must match the Amount to be paid.");
  return true;
}

void frmInstalments::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = period.From.Text(), .periodEndDate = period.To.Text()}));
  SendRecord(FreeRecord({AmountSlot("01", txtAmountPayable), ZeroSlot("02"), ZeroSlot("03"), ZeroSlot("04")}));
  EndRecords();
}

}  // namespace fiscalon
