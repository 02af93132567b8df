#pragma once

#include "core/screen.h"
#include "screens/parts/account_number.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/calculated_total.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/period_pair.h"
#include "screens/parts/tax_lines.h"
#include "screens/parts/validation_guard.h"

namespace fiscalon {

/// Collects two returns to Revenue Quebec that one payment settles, GST/HST and QST: a period and the lines of each,
/// and the total of both balances.
class frmQue_Rev_QSTGSTComb final : public Screen {
  using Self = frmQue_Rev_QSTGSTComb;

 public:
  frmQue_Rev_QSTGSTComb() : Screen("frmQue_Rev_QSTGSTComb", "Quebec GST/HST - QST Return") {}

  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = On(&Self::RecalcForm)};
  ValidationGuard  inValidation        {*this, cmdCancel};

  PaymentHead      head                {*this};
  Label            lblGSTAccountNumber {*this, "lblGSTAccountNumber", {.caption = "GST account number:"}};
  AccountNumber    txtGSTAccountNumber {*this, "txtGSTAccountNumber", {.tabIndex = 0, .maxLength = 15}, inValidation,
                                        [this] { return &gstPeriod.From; }};
  Label            Label4              {*this, "Label4",              {.caption = "Reporting Period"}};
  PeriodPair       gstPeriod           {*this, inValidation, {.caption = "GST/HST From:", .tabIndex = 1,
                                        .limit = PeriodLimit::OneYearLessADay,
                                        .next = [this] { return &qstPeriod.From; }, .name = "GST Reporting Period",
                                        .from = "txtGSTPeriodFrom", .to = "txtGSTPeriodTo"}};
  PeriodPair       qstPeriod           {*this, inValidation, {.caption = "QST From:", .tabIndex = 3,
                                        .limit = PeriodLimit::OneYear, .next = [this] { return &gst.Collectible; }, .name = "QST Reporting Period",
                                        .fromCaptionName = "Label2", .from = "txtQSTPeriodFrom",
                                        .toCaptionName = "Label3", .to = "txtQSTPeriodTo", .fromHint = "", .toHint = ""}};
  TaxLines         gst                 {*this, amounts,
                                        {.collectible = {"GSTCollectible",     "GST/HST collectible and adjustments (105)"},
                                         .credits     = {"GSTITCs",            "ITCs payable and adjustments (108)"},
                                         .instalments = {"GSTInstalment",      "GST/HST instalment (110)"},
                                         .rebates     = {"OtherGSTHSTRebates", "Other GST/HST Rebates (111)"},
                                         .payable     = {"GSTPayable",         "GST/HST payable or refund (113)"},
                                         .tabIndex = 5, .payableTabIndex = 29, .next = &txtNewHousingRebate}};
  Label            lblNewHousingRebate {*this, "lblNewHousingRebate", {.caption = "New Housing Rebate Included in the ITCs (135)"}};
  AmountEntry      txtNewHousingRebate {*this, "txtNewHousingRebate", amounts,
                                        {.tabIndex = 9, .name = CaptionOf(lblNewHousingRebate),
                                         .next = [this] { return &qst.Collectible; }}};
  TaxLines         qst                 {*this, amounts,
                                        {.collectible = {"QSTCollectible",     "QST collectible and adjustments (205):"},
                                         .credits     = {"QSTITRs",            "ITRs payable and adjustments (208):"},
                                         .instalments = {"QSTInstalment",      "QST instalment (210):"},
                                         .rebates     = {"OtherQSTRebates",    "Other QST Rebates (211)"},
                                         .payable     = {"QSTPayable",         "QST payable or refund (213):"},
                                         .tabIndex = 10, .payableTabIndex = 34, .next = &txtSupplies}};
  Label            lblSupplies         {*this, "lblSupplies",         {.caption = "Supplies (sales figure) (101):"}};
  AmountEntry      txtSupplies         {*this, "txtSupplies", amounts,
                                        {.tabIndex = 14, .name = CaptionOf(lblSupplies), .next = &cmdOK}};
  Label            lblAmountPayable    {*this, "lblAmountPayable",    {.caption = "Amount payable:", .bold = true}};
  CalculatedTotal  txtAmountPayable    {*this, "txtAmountPayable", 39};
  Button           cmdOK               {*this, "cmdOK",     {.caption = "&OK", .tabIndex = 15},
                                        {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button           cmdCancel           {*this, "cmdCancel", {.caption = "Cancel", .tabIndex = 16, .cancel = true},
                                        {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { head.Show(Payment()); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }

  void RecalcForm();
  bool ValidateForm();
  void DoWrite();

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.rows = {{{{&lblGSTAccountNumber, &txtGSTAccountNumber}}}}},
                 {.heading = &Label4, .rows = {gstPeriod.Row(), qstPeriod.Row()}},
                 gst.Rows({}, {{{{&lblNewHousingRebate, &txtNewHousingRebate}}}}),
                 qst.Rows({}, {}),
                 {.rows = {{{{&lblSupplies, &txtSupplies}}}, {{{&lblAmountPayable, &txtAmountPayable}}}}}},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
