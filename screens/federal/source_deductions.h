#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/help_button.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Collects a payroll source-deduction remittance to the Canada Revenue Agency: gross payroll, employees and the end of
/// the remitting period.
class GOVSOURCEDEDUCTION final : public Screen {
  using Self = GOVSOURCEDEDUCTION;

 public:
  GOVSOURCEDEDUCTION() : Screen("GOVSOURCEDEDUCTION", "Additional Information") {}

  // clang-format off
  PayeeHead   head              {*this, {.payeeTabIndex = 19}};
  Frame       Frame3D1          {*this, "Frame3D1",          {}};
  Label       Label5            {*this, "Label5",            {.caption = "Additional Information", .frame = &Frame3D1}};
  Label       Label8            {*this, "Label8",            {.caption = "Gross Payroll in Remitting Period (dollars only):"}};
  TypedAmount GrossPayroll      {*this, "GrossPayroll",      {.tabIndex = 1, .maxLength = 12},
                                 {.onEnter = kGrossOnEnter, .next = &NumberOfEmployees},
                                 {.lostFocus = On(&Self::GrossPayroll_LostFocus)}};
  Label       Label9            {*this, "Label9",            {.caption = "Number of Employees in Last Pay Period:"}};
  TypedAmount NumberOfEmployees {*this, "NumberOfEmployees", {.tabIndex = 2, .maxLength = 6},
                                 {.onEnter = kEmployeesOnEnter, .next = &EndDate, .toBePaid = AmountOn(head.AmountPaid)}};
  Label       Label7            {*this, "Label7",            {.caption = "End of Remitting Period:"}};
  DateEntry   EndDate           {*this, "EndDate",           {.tabIndex = 3, .maxLength = 8},
                                 {.whenFull = &Command3D6, .onEnter = kDateOnEnter, .next = &Command3D6,
                                  .waysOut = {Command3D5, Command3D4}, .nameInWarning = "'End of Remitting Period'"}};
  Label       Label10           {*this, "Label10",           {.caption = "YYYYMMDD"}};
  Label       Label6            {*this, "Label6",            {.caption = "Amount Paid:"}};
  TypedAmount PaymentAmount     {*this, "PaymentAmount",     {.tabIndex = 4, .maxLength = 12},
                                 {.onEnter = kAmountOnEnter, .next = &EndDate, .toBePaid = AmountOn(head.AmountPaid)}};
  Button      Command3D6        {*this, "Command3D6",        {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button      Command3D5        {*this, "Command3D5",        {.caption = "&Cancel"}, {.mouseDown = On(&Self::LeaveWithoutCheck),
                                                                                      .click = On(&Self::Cancelled)}};
  HelpButton  Command3D4        {*this, "Command3D4",        {.caption = "&Help"},   {.mouseDown = On(&Self::LeaveWithoutCheck)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { FocusIfAble(GrossPayroll); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void GrossPayroll_LostFocus();
  /// A mouse press on Cancel or Help: gross payroll's next check on leaving is skipped, whenever that is.
  void LeaveWithoutCheck() { skipGrossCheck_ = true; }
  void Command3D6_Click();
  bool SomethingIsToBePaid();
  void WriteRecords();

  // What Enter tests. Some of the tests, and their words, are not those of OK.
  static const AmountRows kGrossOnEnter, kEmployeesOnEnter, kAmountOnEnter;
  static const DateRows kDateOnEnter;

  bool skipGrossCheck_ = false;

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.heading = &Label5,
                                      .rows = {{{{&Label8, &GrossPayroll}}},
                                               {{{&Label9, &NumberOfEmployees}}},
                                               {{{&Label7, &EndDate, &Label10}}},
                                               {{{&Label6, &PaymentAmount}}}}}},
                          .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
