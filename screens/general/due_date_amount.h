#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/digits_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects the end of a taxation year and the amount payable, for a biller whose remittance needs no more
/// than that.
class frmDueDateAmount final : public Screen {
  using Self = frmDueDateAmount;

 public:
  frmDueDateAmount() : Screen("frmDueDateAmount", "Due Date / Amount Screen") {}

  // clang-format off
  PaymentHead head                {*this, {.amountCaption = {.name = "Label8", .caption = "Amount to be paid:"}}};
  Label       Label1              {*this, "Label1",              {.caption = "Taxation year ends on:"}};
  DigitsEntry txtRemittancePeriod {*this, "txtRemittancePeriod", {.tabIndex = 0, .maxLength = 6}, &txtAmountPayable,
                                   {.lostFocus = On(&Self::txtRemittancePeriod_LostFocus)}};
  Label       Label9              {*this, "Label9",              {.caption = "YYYYMM"}};
  Label       lblAmountPayable    {*this, "lblAmountPayable",    {.caption = "Amount payable:"}};
  AmountEntry txtAmountPayable    {*this, "txtAmountPayable",    {.cancel = cmdCancel, .checked = AmountsChecked::OnOkAlone},
                                   {.tabIndex = 1, .name = "Amount payable", .next = &cmdOK, .range = AmountRange::Positive}};
  Button      cmdOK               {*this, "cmdOK",               {.caption = "&OK", .tabIndex = 2},
                                   {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button      cmdCancel           {*this, "cmdCancel",           {.caption = "Cancel", .tabIndex = 3, .cancel = true},
                                   {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void SetupForm();

  void txtRemittancePeriod_LostFocus();

  bool ValidateForm();
  /// Whether the text is a month from 1990 to the one before this month of next year. Shows its own message.
  static bool IsValidTaxationYear(std::string_view text);
  void DoWrite();

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.rows = {{{{&Label1, &txtRemittancePeriod, &Label9}}}, {{{&lblAmountPayable, &txtAmountPayable}}}}}},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
