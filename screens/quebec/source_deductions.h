#pragma once

#include <string_view>

#include "core/newer_screen.h"

namespace fiscalon {

/// Collects a source-deductions remittance to Revenue Quebec: the period and five amounts that add up to the payment,
/// and for one biller the kind of remittance. The only screen that writes the play-by-play log.
class frmQue_Rev_SourceDeduct final : public NewerScreen {
  using Self = frmQue_Rev_SourceDeduct;

 public:
  frmQue_Rev_SourceDeduct() : NewerScreen("frmQue_Rev_SourceDeduct", "Revenue Quebec Source Deductions") {}

  // clang-format off
  PaymentHead  head                 {*this};
  Label        lblRemittancePeriod  {*this, "lblRemittancePeriod",  {.caption = "Remittance Period:"}};
  TextField    txtRemittancePeriod  {*this, "txtRemittancePeriod",  {.tabIndex = 0, .maxLength = 6},
                                     {.change    = OnDigitsChange(txtRemittancePeriod, txtIncomeTaxWithheld),
                                      .lostFocus = On(&Self::txtRemittancePeriod_LostFocus)}};
  Label        lblPeriodFormat      {*this, "lblPeriodFormat",      {.caption = "YYYYMM"}};
  Label        lblIncomeTaxWithheld {*this, "lblIncomeTaxWithheld", {.caption = "Income tax withheld and compensation tax (if applicable):"}};
  TextField    txtIncomeTaxWithheld {*this, "txtIncomeTaxWithheld", {.tabIndex = 1, .maxLength = 12, .alignment = Alignment::Right},
                                     {.change    = OnAmountChange(txtIncomeTaxWithheld, txtQPP),
                                      .lostFocus = On(&Self::txtIncomeTaxWithheld_LostFocus)}};
  Label        lblQPP               {*this, "lblQPP",               {.caption = "QPP contributions:"}};
  TextField    txtQPP               {*this, "txtQPP",               {.tabIndex = 2, .maxLength = 12, .alignment = Alignment::Right},
                                     {.change    = OnAmountChange(txtQPP, txtHealthFund),
                                      .lostFocus = OnAmountLeft(txtQPP, "QPP contributions")}};
  Label        lblHealthFund        {*this, "lblHealthFund",        {.caption = "Contribution to the health services fund:"}};
  TextField    txtHealthFund        {*this, "txtHealthFund",        {.tabIndex = 3, .maxLength = 12, .alignment = Alignment::Right},
                                     {.change    = OnAmountChange(txtHealthFund, txtQPIP),
                                      .lostFocus = OnAmountLeft(txtHealthFund, "Contribution to the health services fund")}};
  Label        lblQPIP              {*this, "lblQPIP",              {.caption = "QPIP premiums:"}};
  TextField    txtQPIP              {*this, "txtQPIP",              {.tabIndex = 4, .maxLength = 12, .alignment = Alignment::Right},
                                     {.change    = On(&Self::txtQPIP_Change),
                                      .lostFocus = OnAmountLeft(txtQPIP, "QPIP premiums")}};
  Label        lblCSST              {*this, "lblCSST",              {.caption = "CSST payments:"}};
  TextField    txtCSST              {*this, "txtCSST",              {.tabIndex = 5, .maxLength = 12, .alignment = Alignment::Right},
                                     {.change    = On(&Self::txtCSST_Change),
                                      .lostFocus = OnAmountLeft(txtCSST, "CSST payments")}};
  Label        lblRemittanceType    {*this, "lblRemittanceType",    {.caption = "Remittance Type:"}};
  DropDownList cmbRemittanceType    {*this, "cmbRemittanceType",    {.tabIndex = 6},
                                     {.click     = On(&Self::cmbRemittanceType_Click)}};
  Label        lblAmountPayable     {*this, "lblAmountPayable",     {.caption = "Amount payable:", .bold = true}};
  TextField    txtAmountPayable     {*this, "txtAmountPayable",     {.tabIndex = 14, .maxLength = 12, .alignment = Alignment::Right,
                                                                     .tabStop = false, .locked = true}};
  Button       cmdOK                {*this, "cmdOK",                {.caption = "&OK", .tabIndex = 7},
                                     {.click     = On(&Self::cmdOK_Click)}};
  Button       cmdCancel            {*this, "cmdCancel",            {.caption = "Cancel", .tabIndex = 8, .cancel = true},
                                     {.click     = On(&Self::cmdCancel_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// Runs when the form loads and again from the launch, after the last property is set.
  void SetupForm();

 private:
  void Accessed(std::string_view access, std::string_view property) const override;
  void Entered(std::string_view routine) const override;

  void Form_Load() override;
  void Form_QueryUnload(bool& cancel, CloseReason reason) override;
  void txtRemittancePeriod_LostFocus();
  void txtIncomeTaxWithheld_LostFocus();
  void txtQPIP_Change();
  void txtCSST_Change();
  void cmbRemittanceType_Click();

  void CheckValues(TextField& box, std::string_view name) override;
  void RecalcForm() override;
  bool ValidateForm() override;
  void DoWrite() override;

  /// Runs a routine that reports its run-time errors to the user and the error log, and then goes on.
  template <class Routine>
  void Reported(std::string_view procedure, Routine&& routine);
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
