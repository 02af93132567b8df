#pragma once

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/period_pair.h"
#include "screens/parts/tax_lines.h"
#include "screens/parts/validation_guard.h"

namespace fiscalon {

/// Collects a GST/HST return to Revenue Quebec, with lines that only inform: exempt supplies, the sales of associates
/// and the rebates that the ITCs include.
class frmQue_Rev_GST final : public Screen {
  using Self = frmQue_Rev_GST;

 public:
  frmQue_Rev_GST() : Screen("frmQue_Rev_GST", "Quebec GST/HST Remittance") {}

  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = [this] { tax.Recalculate(); }};
  ValidationGuard  inValidation              {*this, cmdCancel};

  PaymentHead      head                      {*this};
  PeriodPair       period                    {*this, inValidation, {.caption = "Reporting Period From:", .tabIndex = 0,
                                              .limit = PeriodLimit::OneYearLessADay, .next = &txtSupplies}};
  Label            lblSupplies               {*this, "lblSupplies", {.caption = "Supplies (sales figure) (101)"}};
  AmountEntry      txtSupplies               {*this, "txtSupplies", amounts,
                                              {.tabIndex = 2, .name = CaptionOf(lblSupplies),
                                               .next = [this] { return &tax.Collectible; }, .back = &period.To}};
  TaxLines         tax                       {*this, amounts,
                                              {.collectible = {"TaxCollectible", "GST/HST collectible and adjustments (105)"},
                                               .credits     = {"ITRs",           "ITCs and adjustments (108)"},
                                               .instalments = {"Instalments",    "GST/HST instalments (110)"},
                                               .rebates     = {"OtherRebates",   "Other GST/HST Rebates (111)"},
                                               .payable     = {"AmountPayable",  "GST/HST payable or refund (113)"},
                                               .tabIndex = 3, .payableTabIndex = 25, .next = IfVisible(txtNewHousingRebates, cmdOK)}};
  Label            lblNewHousingRebates      {*this, "lblNewHousingRebates", {.caption = "New Housing Rebate Included in the ITCs (135)"}};
  AmountEntry      txtNewHousingRebates      {*this, "txtNewHousingRebates", amounts,
                                              {.tabIndex = 7, .name = CaptionOf(lblNewHousingRebates), .next = &txtExemptSupplies}};
  Label            lblExemptSupplies         {*this, "lblExemptSupplies", {.caption = "Exempt supplies, zero-rated exports, and other sales (91)"}};
  AmountEntry      txtExemptSupplies         {*this, "txtExemptSupplies", amounts,
                                              {.tabIndex = 8, .name = CaptionOf(lblExemptSupplies), .next = &txtAssociatesTaxableSales}};
  Label            lblAssociatesTaxableSales {*this, "lblAssociatesTaxableSales", {.caption = "Associates' taxable sales made in Canada (102):"}};
  AmountEntry      txtAssociatesTaxableSales {*this, "txtAssociatesTaxableSales", amounts,
                                              {.tabIndex = 9, .name = CaptionOf(lblAssociatesTaxableSales), .next = &txtPensionPlanRebate}};
  Label            lblPensionPlanRebate      {*this, "lblPensionPlanRebate", {.caption = "Pension plan rebate included in the ITCs (136):"}};
  AmountEntry      txtPensionPlanRebate      {*this, "txtPensionPlanRebate", amounts,
                                              {.tabIndex = 10, .name = CaptionOf(lblPensionPlanRebate), .next = &cmdOK}};
  Button           cmdOK                     {*this, "cmdOK",     {.caption = "&OK", .tabIndex = 11},
                                              {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button           cmdCancel                 {*this, "cmdCancel", {.caption = "Cancel", .tabIndex = 12, .cancel = true},
                                              {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { head.Show(Payment()); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }

  bool ValidateForm();
  void DoWrite();

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.rows = {period.Row()}},
                                     tax.Rows({{{{&lblSupplies, &txtSupplies}}}},
                                              {{{{&lblNewHousingRebates, &txtNewHousingRebates}}},
                                               {{{&lblExemptSupplies, &txtExemptSupplies}}},
                                               {{{&lblAssociatesTaxableSales, &txtAssociatesTaxableSales}}},
                                               {{{&lblPensionPlanRebate, &txtPensionPlanRebate}}}})},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
