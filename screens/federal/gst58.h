#pragma once

#include "core/screen.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/help_button.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Collects a GST remittance to the Canada Revenue Agency by form GST58: a reporting period, and the payment split into
/// five categories.
class GOVGST58 final : public Screen {
  using Self = GOVGST58;

 public:
  GOVGST58() : Screen("GOVGST58", "Goods and Services Tax Remittance") {}

  // clang-format off
  PayeeHead   head              {*this, {.payeeTabIndex = 28}};
  Label       Label5            {*this, "Label5",            {.caption = "Goods and Services Tax Remittance Details"}};
  Label       Label6            {*this, "Label6",            {.caption = "Period From:"}};
  DateEntry   PeriodStartDate   {*this, "PeriodStartDate",   {.tabIndex = 1, .maxLength = 8},
                                 {.whenFull = &PeriodEndDate, .onEnter = kStartOnEnter, .next = &PeriodEndDate,
                                  .waysOut = {Command3D4, Command3D5}, .nameInWarning = "Period From"}};
  Label       Label10           {*this, "Label10",           {.caption = "YYYYMMDD"}};
  Label       Label7            {*this, "Label7",            {.caption = "To:"}};
  DateEntry   PeriodEndDate     {*this, "PeriodEndDate",     {.tabIndex = 2, .maxLength = 8},
                                 {.whenFull = &InstalmentPayment, .onEnter = kEndOnEnter, .next = &InstalmentPayment,
                                  .waysOut = {Command3D4, Command3D5}, .nameInWarning = "To"}};
  Label       Label11           {*this, "Label11",           {.caption = "YYYYMMDD"}};
  Label       Label9            {*this, "Label9",            {.caption = "Instalment Payment:"}};
  TypedAmount InstalmentPayment {*this, "InstalmentPayment", {.tabIndex = 3, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kInstalmentOnEnter, .confirmed = On(&Self::RecalcTotal), .next = &ArrearsPayment}};
  Label       Label13           {*this, "Label13",           {.caption = "Arrears Payment:"}};
  TypedAmount ArrearsPayment    {*this, "ArrearsPayment",    {.tabIndex = 4, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kArrearsOnEnter, .confirmed = On(&Self::RecalcTotal), .next = &OtherPayment}};
  Label       Label34           {*this, "Label34",           {.caption = "Other Payment:"}};
  TypedAmount OtherPayment      {*this, "OtherPayment",      {.tabIndex = 5, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kOtherOnEnter, .confirmed = On(&Self::RecalcTotal), .next = &AuditAssessment}};
  Label       label33           {*this, "label33",           {.caption = "Audit Assessment:"}};
  TypedAmount AuditAssessment   {*this, "AuditAssessment",   {.tabIndex = 6, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kAuditOnEnter, .confirmed = On(&Self::RecalcTotal), .next = &NetTaxDue}};
  Label       lebal10           {*this, "lebal10",           {.caption = "Net Tax Remittance:"}};
  TypedAmount NetTaxDue         {*this, "NetTaxDue",         {.tabIndex = 7, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kNetTaxOnEnter, .confirmed = On(&Self::RecalcTotal), .next = &PaymentEnclosed}};
  Label       Label45           {*this, "Label45",           {.caption = "Total Payment Enclosed:", .bold = true}};
  TypedAmount PaymentEnclosed   {*this, "PaymentEnclosed",   {.tabIndex = 8, .maxLength = 12, .alignment = Alignment::Right},
                                 {.onEnter = kTotalOnEnter, .confirmed = On(&Self::Command3D6_Click), .toBePaid = AmountOn(head.AmountPaid)}};
  Button      Command3D6        {*this, "Command3D6",        {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button      Command3D5        {*this, "Command3D5",        {.caption = "&Cancel"}, {.click = On(&Self::Cancelled)}};
  HelpButton  Command3D4        {*this, "Command3D4",        {.caption = "&Help"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { FocusIfAble(PeriodStartDate); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void RecalcTotal();
  void Command3D6_Click();
  bool ValidateGST58();
  bool PeriodPasses();
  bool PeriodIsInOrder();
  bool CategoriesPass();
  bool TotalPasses();
  bool CategoryIsGiven();
  void WriteRecords();

  // What Enter tests. Some of the words are not those of OK.
  static const DateRows kStartOnEnter, kEndOnEnter;
  static const AmountRows kInstalmentOnEnter, kArrearsOnEnter, kOtherOnEnter, kAuditOnEnter, kNetTaxOnEnter,
      kTotalOnEnter;

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.heading = &Label5,
                  .rows = {{{{&Label6, &PeriodStartDate, &Label10}, {&Label7, &PeriodEndDate, &Label11}}},
                           {{{&Label9, &InstalmentPayment}}},
                           {{{&Label13, &ArrearsPayment}}},
                           {{{&Label34, &OtherPayment}}},
                           {{{&label33, &AuditAssessment}}},
                           {{{&lebal10, &NetTaxDue}}},
                           {{{&Label45, &PaymentEnclosed}}}}}},
      .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
