#pragma once

#include <string_view>

#include "core/screen.h"
#include "screens/federal/gst34_line.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/help_button.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects the GST/HST return of a registrant for the Canada Revenue Agency, form GST34. Net tax and balance are
/// calculated; the balance is the payment, or a refund of a return without payment.
class GOVGST34 final : public Screen {
  using Self = GOVGST34;

 public:
  GOVGST34() : Screen("GOVGST34", "Goods and Services Tax  / Harmonized Sales Tax Return for Registrants ") {}

  // clang-format off
  const Handler recalculate = On(&Self::RecalcForm);

  PayeeHead   head              {*this, {.payeeTabIndex = 36}};
  Label       Label4            {*this, "Label4",            {.caption = "Goods and Services Tax / Harmonized Sales Tax Return for Registrants (Form GST34) Details"}};
  Label       Label6            {*this, "Label6",            {.caption = "Reporting Period From:"}};
  DateEntry   PeriodStartDate   {*this, "PeriodStartDate",   {.tabIndex = 1, .maxLength = 8},
                                 {.whenFull = &PeriodEndDate, .onEnter = kStartOnEnter, .next = &PeriodEndDate,
                                  .waysOut = {Command2, Command3}, .nameInWarning = "'Reporting Period From'"}};
  Label       Label8            {*this, "Label8",            {.caption = "YYYYMMDD"}};
  Label       Label7            {*this, "Label7",            {.caption = "To:"}};
  DateEntry   PeriodEndDate     {*this, "PeriodEndDate",     {.tabIndex = 2, .maxLength = 8},
                                 {.whenFull = &SalesRevenue, .onEnter = kEndOnEnter, .next = &SalesRevenue,
                                  .waysOut = {Command2, Command3}, .nameInWarning = "'Reporting Period To'"}};
  Label       Label9            {*this, "Label9",            {.caption = "YYYYMMDD"}};
  Label       Label11           {*this, "Label11",           {.caption = "Sales and  Other Revenue (101):"}};
  TypedAmount SalesRevenue      {*this, "SalesRevenue",      {.tabIndex = 3, .maxLength = 10, .alignment = Alignment::Right},
                                 {.keys = ",", .next = &InstalmentPayment, .onLeaving = kSalesOnLeaving}};
  Label       Label2            {*this, "Label2",            {.caption = ".00"}};
  Label       Label15           {*this, "Label15",           {.caption = "Instalments and Other Annual Filer Payments (110):"}};
  Gst34Line   InstalmentPayment {*this, "InstalmentPayment", recalculate,
                                 {.tabIndex = 4, .belowZero = "Instalment Amount cannot be less than 0.", .next = &Rebates}};
  Label       Label16           {*this, "Label16",           {.caption = "Rebates (111):"}};
  Gst34Line   Rebates           {*this, "Rebates",           recalculate,
                                 {.tabIndex = 5, .belowZero = "Amount of rebates cannot be less than 0.", .next = &RealProperty}};
  Label       Label17           {*this, "Label17",           {.caption = "GST/HST due on acquisition of taxable real property (205):"}};
  Gst34Line   RealProperty      {*this, "RealProperty",      recalculate,
                                 {.tabIndex = 6, .belowZero = "Amount of tax due on acquisition of real property cannot be less than 0.",
                                  .next = &ImportedTax}};
  Label       Label18           {*this, "Label18",           {.caption = "Other GST/HST to be self-assessed (405):"}};
  Gst34Line   ImportedTax       {*this, "ImportedTax",       recalculate,
                                 {.tabIndex = 7, .belowZero = "Amount of tax due on taxable supplies cannot be less than 0.",
                                  .next = &TotalGST}};
  Label       Label12           {*this, "Label12",           {.caption = "Total GST/HST and adjustments for period (105):"}};
  Gst34Line   TotalGST          {*this, "TotalGST",          recalculate,
                                 {.tabIndex = 8, .belowZero = "Amount in total GST/HST and adjustments for period field cannot be less than 0.",
                                  .next = &TotalITCs}};
  Label       Label13           {*this, "Label13",           {.caption = "Total ITCs and adjustments (108):"}};
  Gst34Line   TotalITCs         {*this, "TotalITCs",         recalculate,
                                 {.tabIndex = 9, .belowZero = "Amount in total ITCs and adjustments field cannot be less than 0.",
                                  .belowZeroOnLeaving = Reaction::Selects, .next = &Command1}};
  Label       Label14           {*this, "Label14",           {.caption = "Net tax (109):"}};
  TypedAmount NetTax            {*this, "NetTax",            {.tabIndex = 10, .maxLength = 13, .alignment = Alignment::Right, .tabStop = false, .locked = true},
                                 {.keys = ".,-", .next = &Command1},
                                 {.keyPress = [this](int& key) { LimitAmountKey(NetTax, key, 12); }, .lostFocus = On(&Self::NetTax_LostFocus)}};
  Label       Label19           {*this, "Label19",           {.caption = "Refund claimed (114):", .bold = true}};
  Gst34Line   RefundAmount      {*this, "RefundAmount",      recalculate,
                                 {.tabIndex = 11, .next = &Command1, .filledBy = LineFilledBy::Form}};
  Label       Label20           {*this, "Label20",           {.caption = "Payment enclosed (115):", .bold = true}};
  Gst34Line   PaymentEnclosed   {*this, "PaymentEnclosed",   recalculate,
                                 {.tabIndex = 12, .next = &Command1, .filledBy = LineFilledBy::Form}};
  Button      Command1          {*this, "Command1",          {.caption = "&OK"},     {.click = On(&Self::Command1_Click)}};
  Button      Command2          {*this, "Command2",          {.caption = "&Cancel"}, {.click = On(&Self::Command2_Click)}};
  HelpButton  Command3          {*this, "Command3",          {.caption = "&Help"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { FocusIfAble(PeriodStartDate); }
  void Form_QueryUnload(bool& cancel, CloseReason reason) override;
  void NetTax_LostFocus();

  /// Net tax, and the balance as a payment or a refund. A balance of less than the least amount is neither.
  void RecalcForm();
  /// Below 0 it is a refund.
  Money Balance() const;
  void ShowBalance(Money refund, Money payment);

  void Command1_Click();
  void Command2_Click();
  // What OK tests, in its order.
  bool ValidateForm();
  bool IsInOrder();
  bool LinesAreAmounts();
  bool IsNetTaxRight();
  bool AgreesWithAmountPaid();
  bool IsPaid(Money balance);
  bool IsRefundable(Money balance);
  void WriteRecords();
  FreeFormatSlot NetTaxSlot() const;

  static const DateRows kStartOnEnter, kEndOnEnter;
  static const AmountRows kSalesOnLeaving;

  // The lines stand in the order in which they are entered, and beneath a rule what they come to.
  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.heading = &Label4,
                  .rows = {{{{&Label6, &PeriodStartDate, &Label8}, {&Label7, &PeriodEndDate, &Label9}}},
                           {{{&Label11, &SalesRevenue, &Label2}}},
                           {{{&Label15, &InstalmentPayment}}},
                           {{{&Label16, &Rebates}}},
                           {{{&Label17, &RealProperty}}},
                           {{{&Label18, &ImportedTax}}},
                           {{{&Label12, &TotalGST}}},
                           {{{&Label13, &TotalITCs}}}}},
                 {.rows = {{{{&Label14, &NetTax}}}, {{{&Label19, &RefundAmount}}}, {{{&Label20, &PaymentEnclosed}}}}}},
      .buttons = {&Command1, &Command2, &Command3}};
};

}  // namespace fiscalon
