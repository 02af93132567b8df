#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"
#include "screens/parts/calculated_total.h"
#include "screens/parts/digits_entry.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects what Revenue Quebec asks beside three kinds of payment, by screen code: of a CSST payment ("25") the end of
/// its period, with the amount shown; of "26" the end of a period alone; of "27" the month for which non-resident tax
/// was withheld. OK tests nothing: leaving the dates is their only gate.
class frmQue_Rev_CSST_Payments final : public Screen {
  using Self = frmQue_Rev_CSST_Payments;

 public:
  frmQue_Rev_CSST_Payments() : Screen("frmQue_Rev_CSST_Payments", "Revenue Quebec CSST Payments") {}

  // clang-format off
  PaymentHead     head                      {*this, {.dateCaption = {.name = "lblPaymentDate", .caption = "Payment Date"},
                                                     .amountCaption = {.name = "Label1", .caption = "Amount to be paid"}}};
  Label           lblPeriodEndDate          {*this, "lblPeriodEndDate",          {.caption = "Remittance Period End Date"}};
  DigitsEntry     txtRemittancePeriod       {*this, "txtRemittancePeriod",       {.tabIndex = 0, .maxLength = 8}, &cmdOK,
                                             {.lostFocus = On(&Self::txtRemittancePeriod_LostFocus)}};
  Label           lblRemittancePeriodFormat {*this, "lblRemittancePeriodFormat", {.caption = "YYYYMMDD"}};
  Frame           fraMonthNonResidentTax    {*this, "fraMonthNonResidentTax",    {}};
  Label           lblMonthWithheld          {*this, "lblMonthWithheld",          {.caption = "Month for which non-resident tax was withheld",
                                                                                  .frame = &fraMonthNonResidentTax}};
  DigitsEntry     txtYear                   {*this, "txtYear",                   {.tabIndex = 3, .maxLength = 4, .frame = &fraMonthNonResidentTax},
                                             [this] { return BehindYear(); }, {.lostFocus = On(&Self::txtYear_LostFocus)}};
  Label           Label3                    {*this, "Label3",                    {.caption = "YYYY", .frame = &fraMonthNonResidentTax}};
  DigitsEntry     txtMonth                  {*this, "txtMonth",                  {.tabIndex = 4, .maxLength = 2, .frame = &fraMonthNonResidentTax},
                                             &cmdOK, {.lostFocus = On(&Self::txtMonth_LostFocus)}};
  Label           Label4                    {*this, "Label4",                    {.caption = "MM", .frame = &fraMonthNonResidentTax}};
  Label           lblAmountPayable          {*this, "lblAmountPayable",          {.caption = "CSST Payable", .bold = true}};
  CalculatedTotal txtAmountPayable          {*this, "txtAmountPayable",          12};
  Button          cmdOK                     {*this, "cmdOK",                     {.caption = "&OK", .tabIndex = 1},
                                             {.click = On(&Self::cmdOK_Click)}};
  Button          cmdCancel                 {*this, "cmdCancel",                 {.caption = "Cancel", .tabIndex = 2, .cancel = true},
                                             {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// The screen code. Any other than "26" and "27" is a CSST payment.
  void ScreenType(std::string_view code) { screenType_ = code; }

 private:
  /// What of its dates the form tests: the end of the period, or one field of the month.
  enum class Tested { Period, Year, Month };

  bool AsksForPeriodAlone() const { return screenType_ == "26"; }
  bool AsksForMonth() const { return screenType_ == "27"; }
  bool PaysCsst() const { return !AsksForPeriodAlone() && !AsksForMonth(); }

  void Form_Load() override;
  void Form_Activate() override;
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void SetupForm();

  void txtRemittancePeriod_LostFocus();
  Control* BehindYear();
  void txtYear_LostFocus();
  void txtMonth_LostFocus();
  void cmdOK_Click();

  /// Shows its own message. With resume-next: a date that can't be made is none.
  bool CheckDateFields(Tested tested) const;
  bool IsValidPeriod(Tested tested) const;
  bool IsValidMonth(Tested tested) const;
  /// From 8 years before that of the payment to the one behind it; any year where the payment has no date.
  bool IsYearNearPayment(int year) const;
  Wording Complaint() const;
  void DoWrite();

  std::string screenType_;
  // While the year pulls the focus back, leaving the month tests nothing, and the other way round.
  bool yearFailed_ = false;
  bool monthFailed_ = false;

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.rows = {{{{&lblPeriodEndDate, &txtRemittancePeriod, &lblRemittancePeriodFormat}}},
                           {{{&lblAmountPayable, &txtAmountPayable}}}}},
                 {.heading = &fraMonthNonResidentTax,
                  .rows = {{{{&lblMonthWithheld, &txtYear, &Label3}, {nullptr, &txtMonth, &Label4}}}}}},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
