#include "screens/quebec/combined_return.h"

#include "core/resume_next.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {

void frmQue_Rev_QSTGSTComb::RecalcForm() {
  gst.Recalculate();
  qst.Recalculate();
  // The balances count as they are shown.
  ResumeNext::Run([&] { txtAmountPayable.Show(gst.Payable.Amount() + qst.Payable.Amount()); });
}

bool frmQue_Rev_QSTGSTComb::ValidateForm() {
  return TestBalance(txtAmountPayable, head, gst.Collectible) != Balance::Refused;
}

void frmQue_Rev_QSTGSTComb::DoWrite() {
  BeginRecords();
  // The period of the GST/HST return has no place here: it follows in fields 11 and 12.
  SendRecord(GovernmentRecord({.periodStartDate = qstPeriod.From.Text(), .periodEndDate = qstPeriod.To.Text()}));
  SendRecord(FreeRecord({AmountSlot("01", txtSupplies), AmountSlot("02", qst.Collectible),
                         AmountSlot("03", qst.Credits), AmountSlot("04", qst.Instalments)}));
  SendRecord(FreeRecord({AmountSlot("05", qst.Payable), AmountSlot("06", gst.Collectible),
                         AmountSlot("07", gst.Credits), AmountSlot("08", gst.Instalments)}));
  SendRecord(FreeRecord({AmountSlot("09", gst.Payable), TextSlot("10", txtGSTAccountNumber),
                         TextSlot("11", gstPeriod.From), TextSlot("12", gstPeriod.To)}));
  SendRecord(FreeRecord({AmountSlot("13", qst.Rebates), AmountSlot("14", gst.Rebates),
                         AmountSlot("15", txtNewHousingRebate), ZeroSlot("16")}));
  EndRecords();
}

}  // namespace fiscalon
