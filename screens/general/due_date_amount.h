#pragma once

#include <string_view>

#include "core/newer_screen.h"

namespace fiscalon {

/// Collects the end of a taxation year and the amount payable, for a biller whose remittance needs no more
/// than that.
class frmDueDateAmount final : public NewerScreen {
  using Self = frmDueDateAmount;

 public:
  frmDueDateAmount() : NewerScreen("frmDueDateAmount", "Due Date / Amount Screen") {}

  // clang-format off
  PaymentHead head              {*this, "Label8"};
  Label     Label1              {*this, "Label1",              {.caption = "Taxation year ends on:"}};
  TextField txtRemittancePeriod {*this, "txtRemittancePeriod", {.tabIndex = 0, .maxLength = 6},
                                 {.change    = OnDigitsChange(txtRemittancePeriod, txtAmountPayable),
                                  .lostFocus = On(&Self::txtRemittancePeriod_LostFocus)}};
  Label     Label9              {*this, "Label9",              {.caption = "YYYYMM"}};
  Label     lblAmountPayable    {*this, "lblAmountPayable",    {.caption = "Amount payable:"}};
  TextField txtAmountPayable    {*this, "txtAmountPayable",    {.tabIndex = 1, .maxLength = 12, .alignment = Alignment::Right},
                                 {.change    = OnAmountChange(txtAmountPayable, cmdOK)}};
  Button    cmdOK               {*this, "cmdOK",               {.caption = "&OK", .tabIndex = 2},
                                 {.click     = On(&Self::cmdOK_Click)}};
  Button    cmdCancel           {*this, "cmdCancel",           {.caption = "Cancel", .tabIndex = 3, .cancel = true},
                                 {.click     = On(&Self::cmdCancel_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { SetupForm(); }
  void SetupForm();

  void txtRemittancePeriod_LostFocus();

  bool ValidateForm() override;
  /// Whether the text is a month from 1990 to the one before this month of next year. Shows its own message.
  static bool IsValidTaxationYear(std::string_view text);
  void DoWrite() override;

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.rows = {{{{&Label1, &txtRemittancePeriod, &Label9}}}, {{{&lblAmountPayable, &txtAmountPayable}}}}}},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
