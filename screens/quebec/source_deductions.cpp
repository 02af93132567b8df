#include "screens/quebec/source_deductions.h"

#include <string>

#include "core/logging.h"
#include "core/quebec_source_deductions.h"
#include "core/resume_next.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/refusal.h"
#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

/// In the order of their numbers, 1 to 6.
constexpr std::array<std::string_view, 6> kRemittanceTypes = {
    "Weekly (1st remittance)", "Weekly (2nd remittance)",        "Weekly (3rd remittance)",
    "Weekly (4th remittance)", "Twice Monthly (1st remittance)", "Twice Monthly (2nd remittance)"};

}  // namespace

void frmQue_Rev_SourceDeduct::Accessed(std::string_view access, std::string_view property) const {
  WritePlayByPlay(Name() + " - " + std::string(access) + " " + std::string(property));
}

void frmQue_Rev_SourceDeduct::Begins(std::string_view object, std::string_view event) {
  // Every form is asked about these two; this one has no handlers for them.
  if (object == "Form" && (event == "Activate" || event == "KeyPress"))
    return;
  Entered(std::string(object).append("_").append(event));
}

void frmQue_Rev_SourceDeduct::Entered(std::string_view routine) const {
  WritePlayByPlay(Name() + " - " + std::string(routine));
}

template <class Routine>
void frmQue_Rev_SourceDeduct::RunReporting(std::string_view procedure, Routine&& routine) {
  try {
    routine();
  } catch (const RuntimeError& error) {
    ShowError(error.Number(), error.Description(), Name() + "." + std::string(procedure), Silent::No);
  }
}

void frmQue_Rev_SourceDeduct::SetupForm() {
  Entered("SetupForm");
  head.Show(Payment());
  cmbRemittanceType.Clear();
  for (const std::string_view type : kRemittanceTypes) cmbRemittanceType.AddItem(type);
  lblRemittanceType.Visible(AsksForType());
  cmbRemittanceType.Visible(AsksForType());
}

void frmQue_Rev_SourceDeduct::txtRemittancePeriod_LostFocus() {
  if (FocusIsOn(cmdCancel))
    return;
  const bool failed = ResumeNext::Fails([&] {
    std::string message;
    return IsValidRemittancePeriodQueRevSrcDeduct(txtRemittancePeriod.Text(), Payment().compCode, Batch::No, message);
  });
  if (failed)
    ResumeNext::Run([&] { txtRemittancePeriod.SetFocus(); });
}

void frmQue_Rev_SourceDeduct::cmbRemittanceType_Click() {
  if (cmdOK.Enabled())
    cmdOK.SetFocus();
}

void frmQue_Rev_SourceDeduct::CheckValues(AmountEntry& box) {
  Entered("CheckValues");
  RunReporting("CheckValues", [&] { box.CheckValues(); });
}

void frmQue_Rev_SourceDeduct::RecalcForm() {
  std::string total = txtAmountPayable.Text();
  RecalcFormQueRevSrcDeduct(total, txtIncomeTaxWithheld.Text(), txtQPP.Text(), txtHealthFund.Text(), txtQPIP.Text(),
                            txtCSST.Text());
  txtAmountPayable.Text(total);
}

bool frmQue_Rev_SourceDeduct::ValidateForm() {
  Entered("ValidateForm");
  if (AsksForType() && cmbRemittanceType.Text().empty())
    return Refuse(cmbRemittanceType, "Please select a Remittance Type.", MessageStyle::Information);
  ResumeNext::Run([&] { RecalcForm(); });
  if (!IsAmountToBePaid(txtAmountPayable, head))
    return Refuse(txtIncomeTaxWithheld, "The Amount Payable must match the Amount to be paid.");
  return true;
}

void frmQue_Rev_SourceDeduct::DoWrite() {
  Entered("DoWrite");
  RunReporting("DoWrite", [&] {
    BeginRecords();
    SendRecord(GovernmentRecord({.periodDueDate = txtRemittancePeriod.Text()}));
    SendRecord(FreeRecord({AmountSlot("01", txtIncomeTaxWithheld), AmountSlot("02", txtQPP),
                           AmountSlot("03", txtHealthFund), AmountSlot("04", txtQPIP)}));
    SendRecord(FreeRecord({TypeSlot(), AmountSlot("06", txtCSST), ZeroSlot("07"), ZeroSlot("08")}));
    EndRecords();
  });
}

FreeFormatSlot frmQue_Rev_SourceDeduct::TypeSlot() const {
  if (Payment().compCode == "001051")
    return ZeroSlot("05");
  return NumberSlot("05", cmbRemittanceType.ListIndex() + 1);
}

}  // namespace fiscalon
