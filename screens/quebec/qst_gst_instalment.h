#pragma once

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/calculated_total.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/period_pair.h"

namespace fiscalon {

/// Collects an instalment to Revenue Quebec for one period: one payment, split between GST/HST and QST. Closing the
/// window leaves `Chosen` alone.
class frmQue_Rev_QSTGSTInst final : public Screen {
  using Self = frmQue_Rev_QSTGSTInst;

 public:
  frmQue_Rev_QSTGSTInst() : Screen("frmQue_Rev_QSTGSTInst", "Revenue Quebec QST/GST/HST Instalment") {}

  // clang-format off
  ValidationGuard  inValidation     {*this, cmdCancel};
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = On(&Self::RecalcForm)};

  PaymentHead     head             {*this};
  PeriodPair      period           {*this, inValidation, {.caption = "Instalment Period From:", .tabIndex = 0, .next = &txtGSTInstalment}};
  Label           lblGSTInstalment {*this, "lblGSTInstalment", {.caption = "GST/HST Instalment:"}};
  AmountEntry     txtGSTInstalment {*this, "txtGSTInstalment", amounts,
                                    {.tabIndex = 2, .name = CaptionOf(lblGSTInstalment), .next = &txtQSTInstalment}};
  Label           lblQSTInstalment {*this, "lblQSTInstalment", {.caption = "QST Instalment:"}};
  AmountEntry     txtQSTInstalment {*this, "txtQSTInstalment", amounts,
                                    {.tabIndex = 3, .name = CaptionOf(lblQSTInstalment), .next = &cmdOK}};
  Label           lblAmountPayable {*this, "lblAmountPayable", {.caption = "Amount Remitted:"}};
  // The user may type over the total: OK takes what stands there.
  CalculatedTotal txtAmountPayable {*this, "txtAmountPayable", 16, TotalLock::Open};
  Button          cmdOK            {*this, "cmdOK",            {.caption = "&OK", .tabIndex = 4},
                                    {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button          cmdCancel        {*this, "cmdCancel",        {.caption = "Cancel", .tabIndex = 5, .cancel = true},
                                    {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void SetupForm() { head.Show(Payment()); }

  void RecalcForm();
  bool ValidateForm();
  void DoWrite();

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.rows = {period.Row(),
                                               {{{&lblGSTInstalment, &txtGSTInstalment}}},
                                               {{{&lblQSTInstalment, &txtQSTInstalment}}},
                                               {{{&lblAmountPayable, &txtAmountPayable}}}}}},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
