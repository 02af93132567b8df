#include "screens/quebec/gst_return.h"

#include "core/resume_next.h"
#include "core/values/money.h"
#include "screens/parts/refusal.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {

bool frmQue_Rev_GST::ValidateForm() {
  const Balance balance = TestBalance(tax.Payable, head, tax.Collectible);
  // A refund is not asked for its exempt supplies.
  if (balance != Balance::Payment)
    return balance == Balance::Refund;
  if (ResumeNext::Holds(
          [&] { return Money::FromDouble(txtExemptSupplies.Amount()) > Money::FromDouble(txtSupplies.Amount()); }))
    return Refuse(txtExemptSupplies, Filled("The {1} must be less than or equal to {2}.",
                                            lblExemptSupplies.WordedCaption(), lblSupplies.WordedCaption()));
  return true;
}

void frmQue_Rev_GST::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = period.From.Text(), .periodEndDate = period.To.Text()}));
  SendRecord(FreeRecord({AmountSlot("01", txtSupplies), AmountSlot("02", tax.Collectible),
                         AmountSlot("03", tax.Credits), AmountSlot("04", tax.Instalments)}));
  SendRecord(FreeRecord({AmountSlot("05", tax.Payable), AmountSlot("06", tax.Rebates),
                         AmountSlot("07", txtNewHousingRebates), AmountSlot("08", txtPensionPlanRebate)}));
  SendRecord(FreeRecord({AmountSlot("09", txtExemptSupplies), AmountSlot("10", txtAssociatesTaxableSales)}));
  EndRecords();
}

}  // namespace fiscalon
