#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/calculated_total.h"
#include "screens/parts/digits_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects a source-deductions remittance to Revenue Quebec: the period and five amounts that add up to the payment,
/// and for one biller the kind of remittance. The only screen that writes the play-by-play log.
class frmQue_Rev_SourceDeduct final : public Screen {
  using Self = frmQue_Rev_SourceDeduct;

 public:
  frmQue_Rev_SourceDeduct() : Screen("frmQue_Rev_SourceDeduct", "Revenue Quebec Source Deductions") {}

  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = On(&Self::RecalcForm), .whenLeft = On(&Self::CheckValues)};

  PaymentHead     head                 {*this};
  Label           lblRemittancePeriod  {*this, "lblRemittancePeriod",  {.caption = "Remittance Period:"}};
  DigitsEntry     txtRemittancePeriod  {*this, "txtRemittancePeriod",  {.tabIndex = 0, .maxLength = 6}, &txtIncomeTaxWithheld,
                                        {.lostFocus = On(&Self::txtRemittancePeriod_LostFocus)}};
  Label           lblPeriodFormat      {*this, "lblPeriodFormat",      {.caption = "YYYYMM"}};
  Label           lblIncomeTaxWithheld {*this, "lblIncomeTaxWithheld", {.caption = "Income tax withheld and compensation tax (if applicable):"}};
  AmountEntry     txtIncomeTaxWithheld {*this, "txtIncomeTaxWithheld", amounts,
                                        {.tabIndex = 1, .name = "Income tax withheld and compensation tax", .next = &txtQPP,
                                         .back = &txtRemittancePeriod}};
  Label           lblQPP               {*this, "lblQPP",               {.caption = "QPP contributions:"}};
  AmountEntry     txtQPP               {*this, "txtQPP",               amounts,
                                        {.tabIndex = 2, .name = "QPP contributions", .next = &txtHealthFund}};
  Label           lblHealthFund        {*this, "lblHealthFund",        {.caption = "Contribution to the health services fund:"}};
  AmountEntry     txtHealthFund        {*this, "txtHealthFund",        amounts,
                                        {.tabIndex = 3, .name = "Contribution to the health services fund", .next = &txtQPIP}};
  Label           lblQPIP              {*this, "lblQPIP",              {.caption = "QPIP premiums:"}};
  AmountEntry     txtQPIP              {*this, "txtQPIP",              amounts,
                                        {.tabIndex = 4, .name = "QPIP premiums", .next = [this] { return BehindQPIP(); }}};
  Label           lblCSST              {*this, "lblCSST",              {.caption = "CSST payments:"}};
  AmountEntry     txtCSST              {*this, "txtCSST",              amounts,
                                        {.tabIndex = 5, .name = "CSST payments", .next = IfVisible(cmbRemittanceType, cmdOK)}};
  Label           lblRemittanceType    {*this, "lblRemittanceType",    {.caption = "Remittance Type:"}};
  DropDownList    cmbRemittanceType    {*this, "cmbRemittanceType",    {.tabIndex = 6},
                                        {.click = On(&Self::cmbRemittanceType_Click)}};
  Label           lblAmountPayable     {*this, "lblAmountPayable",     {.caption = "Amount payable:", .bold = true}};
  CalculatedTotal txtAmountPayable     {*this, "txtAmountPayable",     14};
  Button          cmdOK                {*this, "cmdOK",                {.caption = "&OK", .tabIndex = 7},
                                        {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button          cmdCancel            {*this, "cmdCancel",            {.caption = "Cancel", .tabIndex = 8, .cancel = true},
                                        {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// Runs when the form loads and again from the launch, after the last property is set.
  void SetupForm();

 private:
  void Accessed(std::string_view access, std::string_view property) const override;
  void Begins(std::string_view object, std::string_view event) override;
  /// A handler or routine begins: a line of the play-by-play log.
  void Entered(std::string_view routine) const;

  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void txtRemittancePeriod_LostFocus();
  Control* BehindQPIP() { return txtCSST.Enabled() && !txtCSST.Locked() ? static_cast<Control*>(&txtCSST) : &cmdOK; }
  void cmbRemittanceType_Click();

  void CheckValues(AmountEntry& box);
  void RecalcForm();
  bool ValidateForm();
  void DoWrite();

  /// Runs a routine that reports its run-time errors to the user and the error log, and then goes on.
  template <class Routine>
  void RunReporting(std::string_view procedure, Routine&& routine);
  /// Only one of the billers asks for the kind of remittance.
  bool AsksForType() const { return Payment().compCode == "001052"; }
  FreeFormatSlot TypeSlot() const;

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.rows = {{{{&lblRemittancePeriod, &txtRemittancePeriod, &lblPeriodFormat}}},
                                               {{{&lblIncomeTaxWithheld, &txtIncomeTaxWithheld}}},
                                               {{{&lblQPP, &txtQPP}}},
                                               {{{&lblHealthFund, &txtHealthFund}}},
                                               {{{&lblQPIP, &txtQPIP}}},
                                               {{{&lblCSST, &txtCSST}}},
                                               {{{&lblRemittanceType, &cmbRemittanceType}}},
                                               {{{&lblAmountPayable, &txtAmountPayable}}}}}},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
