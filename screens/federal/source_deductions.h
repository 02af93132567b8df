#pragma once

#include <string_view>

#include "core/older_screen.h"

namespace fiscalon {

/// Collects a payroll source-deduction remittance to the Canada Revenue Agency: gross payroll, employees and the end of
/// the remitting period.
class GOVSOURCEDEDUCTION final : public OlderScreen {
  using Self = GOVSOURCEDEDUCTION;

 public:
  GOVSOURCEDEDUCTION() : OlderScreen("GOVSOURCEDEDUCTION", "Additional Information") {}

  // clang-format off
  PayeeHead head              {*this, 19};
  Frame     Frame3D1          {*this, "Frame3D1",          {}};
  Label     Label5            {*this, "Label5",            {.caption = "Additional Information", .frame = &Frame3D1}};
  Label     Label8            {*this, "Label8",            {.caption = "Gross Payroll in Remitting Period (dollars only):"}};
  TextField GrossPayroll      {*this, "GrossPayroll",      {.tabIndex = 1, .maxLength = 12},
                               {.keyPress  = OnKeys(GrossPayroll, kAmountKeys, &Self::GrossPayroll_Enter, NumberOfEmployees),
                                .lostFocus = On(&Self::GrossPayroll_LostFocus)}};
  Label     Label9            {*this, "Label9",            {.caption = "Number of Employees in Last Pay Period:"}};
  TextField NumberOfEmployees {*this, "NumberOfEmployees", {.tabIndex = 2, .maxLength = 6},
                               {.keyPress  = OnKeys(NumberOfEmployees, kAmountKeys, &Self::NumberOfEmployees_Enter, EndDate)}};
  Label     Label7            {*this, "Label7",            {.caption = "End of Remitting Period:"}};
  TextField EndDate           {*this, "EndDate",           {.tabIndex = 3, .maxLength = 8},
                               {.change    = OnFull(EndDate, Command3D6),
                                .keyPress  = OnKeys(EndDate, kDateKeys, &Self::EndDate_Enter, Command3D6),
                                .lostFocus = OnDateLeft(EndDate)}};
  Label     Label10           {*this, "Label10",           {.caption = "YYYYMMDD"}};
  Label     Label6            {*this, "Label6",            {.caption = "Amount Paid:"}};
  TextField PaymentAmount     {*this, "PaymentAmount",     {.tabIndex = 4, .maxLength = 12},
                               {.keyPress  = OnKeys(PaymentAmount, kAmountKeys, &Self::PaymentAmount_Enter, EndDate)}};
  Button    Command3D6        {*this, "Command3D6",        {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button    Command3D5        {*this, "Command3D5",        {.caption = "&Cancel"}, {.mouseDown = On(&Self::LeaveWithoutCheck),
                                                                                    .click = On(&Self::Cancel_Click)}};
  Button    Command3D4        {*this, "Command3D4",        {.caption = "&Help"},   {.mouseDown = On(&Self::LeaveWithoutCheck),
                                                                                    .click = On(&Self::Help_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { FocusIfAble(GrossPayroll); }
  // Enter checks a field by itself. Some of the checks, and their words, are not those of OK.
  bool GrossPayroll_Enter();
  bool NumberOfEmployees_Enter();
  bool EndDate_Enter();
  bool PaymentAmount_Enter();
  void GrossPayroll_LostFocus();
  /// A mouse press on Cancel or Help: gross payroll's next check on leaving is skipped, whenever that is.
  void LeaveWithoutCheck() { skipGrossCheck_ = true; }
  void Command3D6_Click();

  // The OK path, in the order of its tests.
  bool PaymentAmountPasses();
  bool EndDatePasses();
  bool GrossPayrollPasses();
  bool NumberOfEmployeesPasses();

  void WriteRecords() override;

  /// The amount to be paid as tests read it: off the screen.
  double AmountToBePaid() const { return NumberIn(head.AmountPaid.Caption()); }

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
