#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/period_pair.h"
#include "screens/parts/tax_lines.h"
#include "screens/parts/validation_guard.h"

namespace fiscalon {

/// Collects a QST return to Revenue Quebec and, for one biller, by other captions, a GST/HST return.
class frmQue_Rev_QST final : public Screen {
  using Self = frmQue_Rev_QST;

 public:
  frmQue_Rev_QST() : Screen("frmQue_Rev_QST", "Quebec Sales Tax Remittance") {}

  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = [this] { tax.Recalculate(); }};
  ValidationGuard  inValidation         {*this, cmdCancel};

  PaymentHead      head                 {*this};
  PeriodPair       period               {*this, inValidation, {.caption = "Reporting Period From:", .tabIndex = 0,
                                         .limit = [this] { return LastPeriod(); }, .next = &txtSupplies}};
  Label            lblSupplies          {*this, "lblSupplies", {.caption = "Supplies (sales figure) (201)"}};
  AmountEntry      txtSupplies          {*this, "txtSupplies", amounts,
                                         {.tabIndex = 2, .name = CaptionOf(lblSupplies),
                                          .next = [this] { return &tax.Collectible; }, .back = &period.To}};
  TaxLines         tax                  {*this, amounts,
                                         {.collectible = {"TaxCollectible", "QST collectible and adjustments (205)"},
                                          .credits     = {"ITRs",           "ITRs and adjustments (208)"},
                                          .instalments = {"Instalments",    "QST instalments (210)"},
                                          .rebates     = {"OtherRebates",   "Other QST Rebates (211)"},
                                          .payable     = {"AmountPayable",  "QST payable or refund (213)"},
                                          .tabIndex = 3, .payableTabIndex = 22, .next = IfVisible(txtNewHousingRebates, cmdOK)}};
  Label            lblNewHousingRebates {*this, "lblNewHousingRebates", {.caption = "New Housing Rebate Included in the ITCs (135)"}};
  AmountEntry      txtNewHousingRebates {*this, "txtNewHousingRebates", amounts,
                                         {.tabIndex = 7, .name = CaptionOf(lblNewHousingRebates), .next = &cmdOK}};
  Button           cmdOK                {*this, "cmdOK",     {.caption = "&OK", .tabIndex = 8},
                                         {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button           cmdCancel            {*this, "cmdCancel", {.caption = "Cancel", .tabIndex = 9, .cancel = true},
                                         {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  using Screen::CompCode;
  /// Rewrites the captions at once for the biller of the GST/HST return, which loads the form: the amount and the date
  /// of the payment must have been set.
  void CompCode(std::string_view text) override;

 private:
  bool IsForQST() const { return Payment().compCode == "001053"; }
  bool IsForGST() const { return Payment().compCode == "001055"; }

  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void SetupForm();
  void SetQSTGSTCaptions();

  PeriodLimit LastPeriod() const { return IsForQST() ? PeriodLimit::OneYear : PeriodLimit::OneYearLessADay; }

  bool ValidateForm();
  void DoWrite();

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.rows = {period.Row()}},
                 tax.Rows({{{{&lblSupplies, &txtSupplies}}}}, {{{{&lblNewHousingRebates, &txtNewHousingRebates}}}})},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
