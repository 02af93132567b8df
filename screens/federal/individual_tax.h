#pragma once

#include "core/screen.h"
#include "screens/parts/help_button.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Collects an individual's instalment of income tax to the Canada Revenue Agency: the year it is for, and the amount
/// once more.
class GOVINDIDUAL final : public Screen {
  using Self = GOVINDIDUAL;

 public:
  GOVINDIDUAL() : Screen("GOVINDIDUAL", "Individual Instalment Remittance") {}

  // clang-format off
  PayeeHead   head          {*this, {.payeeTabIndex = 15}};
  Label       Label7        {*this, "Label7",        {.caption = "Individual Instalment Remittance Details"}};
  Label       Label8        {*this, "Label8",        {.caption = "Instalment Payment for:"}};
  TextField   PayYear       {*this, "PayYear",       {.tabIndex = 2, .maxLength = 4}, {.keyPress = On(&Self::PayYear_KeyPress)}};
  Label       Label9        {*this, "Label9",        {.caption = "YYYY"}};
  Label       Label10       {*this, "Label10",       {.caption = "Amount of Payment:"}};
  TypedAmount PaymentAmount {*this, "PaymentAmount", {.tabIndex = 3, .maxLength = 12},
                             {.onEnter = kAmountOnEnter, .confirmed = On(&Self::Command3D6_Click),
                              .toBePaid = AmountOn(head.AmountPaid), .failures = Failures::Leave}};
  Button      Command3D6    {*this, "Command3D6",    {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button      Command3D5    {*this, "Command3D5",    {.caption = "&Cancel"}, {.click = On(&Self::Cancelled)}};
  HelpButton  Command3D4    {*this, "Command3D4",    {.caption = "&Help"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { FocusIfAble(PayYear); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void PayYear_KeyPress(int& character);
  void Command3D6_Click();
  bool YearIsValid();
  void WriteRecords();

  static const AmountRows kAmountOnEnter;

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.heading = &Label7, .rows = {{{{&Label8, &PayYear, &Label9}}}, {{{&Label10, &PaymentAmount}}}}}},
      .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
