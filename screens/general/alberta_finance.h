#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects a remittance to Alberta Finance: the tax program, the end of the period, and for the Tourism Levy the
/// number of the facility.
class frmAlbertaRevenue final : public Screen {
  using Self = frmAlbertaRevenue;

 public:
  frmAlbertaRevenue() : Screen("frmAlbertaRevenue", "Alberta Finance") {}

  // clang-format off
  PaymentHead  head              {*this, {.dateCaption = {.name = "lblCPayDate", .caption = "Date:"},
                                          .amountCaption = {.name = "Label3", .caption = "Amount to be paid:"}}};
  Label        Label1            {*this, "Label1",            {.caption = "Tax Program:"}};
  DropDownList cmbTaxProgram     {*this, "cmbTaxProgram",     {.tabIndex = 0},
                                  {.click = On(&Self::cmbTaxProgram_Click), .chosen = On(&Self::cmbTaxProgram_Chosen)}};
  Label        Label7            {*this, "Label7",            {.caption = "Period End Date:"}};
  DateEntry    txtPeriodEndDate  {*this, "txtPeriodEndDate",  {.tabIndex = 1, .maxLength = 8},
                                  {.whenFull = [this] { return BehindPeriodEndDate(); }, .onEnter = kDateOnEnter,
                                   .waysOut = {cmdOK, cmdCancel}}};
  Label        Label9            {*this, "Label9",            {.caption = "YYYYMMDD"}};
  Label        Label2            {*this, "Label2",            {.caption = "Facility Number:"}};
  TextField    txtFacilityNumber {*this, "txtFacilityNumber", {.tabIndex = 2, .maxLength = 3, .enabled = false},
                                  {.change = OnFull(txtFacilityNumber, &cmdOK), .keyPress = On(&Self::txtFacilityNumber_KeyPress)}};
  Button       cmdOK             {*this, "cmdOK",             {.caption = "&OK"},    {.click = OnOk(&Self::CheckValues, &Self::DoWrite)}};
  Button       cmdCancel         {*this, "cmdCancel",         {.caption = "Cancel"}, {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { SetupForm(); }
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void SetupForm();

  /// Stepping to a program opens or closes the facility number.
  void cmbTaxProgram_Click();
  /// Picking one, which clicks too, also moves on.
  void cmbTaxProgram_Chosen() { txtPeriodEndDate.SetFocus(); }
  Control* BehindPeriodEndDate();
  void txtFacilityNumber_KeyPress(int& character);

  bool CheckValues();
  void DoWrite();

  static const DateRows kDateOnEnter;

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.rows = {{{{&Label1, &cmbTaxProgram}}},
                                               {{{&Label7, &txtPeriodEndDate, &Label9}}},
                                               {{{&Label2, &txtFacilityNumber}}}}}},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
