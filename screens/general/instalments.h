#pragma once

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/period_pair.h"

namespace fiscalon {

/// Collects one instalment for one period, for any biller that takes it. Closing the window leaves `Chosen` alone.
class frmInstalments final : public Screen {
  using Self = frmInstalments;

 public:
  frmInstalments() : Screen("frmInstalments", "Instalment Remittance") {}

  // clang-format off
  ValidationGuard inValidation     {*this, cmdCancel};

  PaymentHead     head             {*this};
  PeriodPair      period           {*this, inValidation, {.caption = "Instalment Period From:", .tabIndex = 0, .next = &txtAmountPayable}};
  Label           lblAmountPayable {*this, "lblAmountPayable", {.caption = "Instalment Amount:"}};
  AmountEntry     txtAmountPayable {*this, "txtAmountPayable", {.cancel = cmdCancel},
                                    {.tabIndex = 2, .name = CaptionOf(lblAmountPayable), .next = &cmdOK}};
  Button          cmdOK            {*this, "cmdOK",            {.caption = "&OK", .tabIndex = 3},
                                    {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button          cmdCancel        {*this, "cmdCancel",        {.caption = "Cancel", .tabIndex = 4, .cancel = true},
                                    {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void SetupForm();

  bool ValidateForm();
  void DoWrite();

  const Layout layout_ = {.groups = {head.Rows(), {.rows = {period.Row(), {{{&lblAmountPayable, &txtAmountPayable}}}}}},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
