#pragma once

#include "core/screen.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/help_button.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Collects a corporation's income tax payment to the Canada Revenue Agency by form RC98: the whole amount goes to an
/// amount owing (voucher RC99), or to an instalment (voucher RC100) for a fiscal period.
class GOVCORPINCOME final : public Screen {
  using Self = GOVCORPINCOME;

 public:
  GOVCORPINCOME() : Screen("GOVCORPINCOME", "Corporation/Business Remittance Voucher") {}

  // clang-format off
  const Asked<double> amountPaid = [this] { return NumberIn(Payment().paidAmount); };

  PayeeHead    head              {*this, {.payeeTabIndex = 19}};
  Label        Label5            {*this, "Label5",            {.caption = "Corporation/Business Remittance Voucher (Form RC98/RC99/RC100)"}};
  OptionButton optRC99           {*this, "optRC99",           {.caption = "RC99", .tabIndex = 0},  {.click = On(&Self::optRC99_Click)}};
  OptionButton optRC100          {*this, "optRC100",          {.caption = "RC100", .tabIndex = 1}, {.click = On(&Self::optRC100_Click)}};
  // The options are the entry: they fill one of the amounts, and the user changes neither.
  Label        Label9            {*this, "Label9",            {.caption = "Amounts Owing Payment:"}};
  TypedAmount  ArrearsPayment    {*this, "ArrearsPayment",    {.tabIndex = 3, .maxLength = 10, .locked = true},
                                  {.onEnter = kArrearsOnEnter, .next = &Command3D6, .toBePaid = amountPaid}};
  Label        Label6            {*this, "Label6",            {.caption = "Instalment Payment:"}};
  TypedAmount  InstalmentPayment {*this, "InstalmentPayment", {.tabIndex = 4, .maxLength = 10, .locked = true},
                                  {.onEnter = kInstalmentOnEnter, .confirmed = On(&Self::InstalmentConfirmed), .toBePaid = amountPaid}};
  Label        Label7            {*this, "Label7",            {.caption = "Remittance Period Ending:"}};
  DateEntry    EndDate           {*this, "EndDate",           {.tabIndex = 5, .maxLength = 8},
                                  {.whenFull = &Command3D6, .confirmed = On(&Self::EndDateConfirmed),
                                   .waysOut = {Command3D5, Command3D4}, .nameInWarning = "'Remittance Period Ending'"}};
  Label        Label8            {*this, "Label8",            {.caption = "YYYYMMDD"}};
  Button       Command3D6        {*this, "Command3D6",        {.caption = "&OK", .tabIndex = 6},     {.click = On(&Self::Command3D6_Click)}};
  Button       Command3D5        {*this, "Command3D5",        {.caption = "&Cancel", .tabIndex = 7}, {.click = On(&Self::Cancelled)}};
  HelpButton   Command3D4        {*this, "Command3D4",        {.caption = "&Help", .tabIndex = 8}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void optRC99_Click();
  void optRC100_Click();
  /// The whole amount to be paid goes into the one field; the other one is empty and closed.
  void PayBy(TypedAmount& chosen, TypedAmount& other);
  void InstalmentConfirmed();
  void EndDateConfirmed();
  void Command3D6_Click();
  bool EntriesPass();
  void WriteRecords();

  // What Enter tests.
  static const AmountRows kArrearsOnEnter, kInstalmentOnEnter;

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.heading = &Label5,
                                      .rows = {{{{.field = &optRC99}}},
                                               {{{.field = &optRC100}}},
                                               {{{&Label9, &ArrearsPayment}}},
                                               {{{&Label6, &InstalmentPayment}}},
                                               {{{&Label7, &EndDate, &Label8}}}}}},
                          .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
