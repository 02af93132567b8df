#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/list_control.h"
#include "core/screen.h"
#include "core/values/money.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/help_button.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/statement_choice.h"
#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Collects the invoices that a payment settles, for any biller who wants to know them: each one's date, number and
/// amount, until they add up to the payment. Enter on a check box accepts a payment of a statement of account instead.
class InvoicePayments final : public Screen {
  using Self = InvoicePayments;

 public:
  InvoicePayments() : Screen("InvoicePayments", "Zelmor - Invoice Payments") {}

  // clang-format off
  PayeeHead       head                 {*this, {.payee = "InvoicePayeeName", .payeeTabIndex = 19, .date = "InvoicePaymentDate",
                                                .amount = "InvoicePaymentAmount", .shown = {.pattern = "#,###,###0.00"}}};
  Label           Label7               {*this, "Label7",               {.caption = "Invoice Payments Details"}};
  StatementChoice InvoiceStatementOnly {*this, "InvoiceStatementOnly", {.tabIndex = 1, .details = &InvoiceDate,
                                                                        .chosen = On(&Self::InvoiceStatementOnly_Click),
                                                                        .accept = On(&Self::Accepted)}};
  Label           Label4               {*this, "Label4",               {.caption = "Invoice date [YYYYMMDD]"}};
  DateEntry       InvoiceDate          {*this, "InvoiceDate",          {.tabIndex = 3, .maxLength = 8},
                                        {.onEnter = kDateOnEnter, .next = &InvoiceNumber, .whenLeft = DateLeft::Unchecked,
                                         .failures = Failures::Leave},
                                        {.keyPress = On(&Self::InvoiceDate_KeyPress)}};
  Label           Label5               {*this, "Label5",               {.caption = "Invoice No./Description"}};
  TextField       InvoiceNumber        {*this, "InvoiceNumber",        {.tabIndex = 4, .maxLength = 27},
                                        {.keyPress = On(&Self::InvoiceNumber_KeyPress)}};
  Label           Label6               {*this, "Label6",               {.caption = "Amount"}};
  TypedAmount     InvoiceAmount        {*this, "InvoiceAmount",        {.tabIndex = 5, .maxLength = 12},
                                        {.keys = ",.-", .confirmed = On(&Self::InvoiceAmount_Confirmed), .failures = Failures::Leave},
                                        {.keyDown = On(&Self::InvoiceAmount_KeyDown)}};
  Label           Label12              {*this, "Label12",              {.caption = "Invoice Date          Invoice No./Description"
                                                                                   "                                Amount"}};
  ListBox         InvoicePaymentList   {*this, "InvoicePaymentList",   {.tabIndex = 6, .fixedPitch = true},
                                        {.click = On(&Self::InvoicePaymentList_Click)}};
  Label           Label2               {*this, "Label2",               {.caption = "If you wish to delete an invoice payment, select the item in the "
                                                                                   "list of invoice payments, then select Cancel an Invoice button.",
                                                                        .visible = false}};
  Button          CancelInvoice        {*this, "CancelInvoice",        {.caption = "Cancel an &Invoice", .tabIndex = 7, .enabled = false},
                                        {.click = On(&Self::CancelInvoice_Click)}};
  Button          cmdOK                {*this, "cmdOK",                {.caption = "&OK", .tabIndex = 20},     {.click = On(&Self::cmdOK_Click)}};
  Button          cmdCancel            {*this, "cmdCancel",            {.caption = "&Cancel", .tabIndex = 21}, {.click = On(&Self::Cancelled)}};
  HelpButton      cmdHelp              {*this, "cmdHelp",              {.caption = "&Help", .tabIndex = 22}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }
  Wording BoxTitle() const override { return Label7.WordedCaption(); }

  /// The host's customer number: it names a folder of statement rows.
  const std::string& ZelmorNumber() const { return zelmorNumber_; }
  void ZelmorNumber(std::string_view text) { zelmorNumber_ = text; }

  /// The invoices as "I" rows, in a file of their own below the process's current folder. No event leads here.
  void WriteInvoiceStatementRows();

 private:
  /// One invoice as it was keyed. The amount is dollars, as short as its value can be written.
  struct InvoiceLine {
    std::string date = {};
    std::string number = {};
    std::string amount = {};
  };

  void Form_Load() override;
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }

  void InvoiceStatementOnly_Click();
  void InvoiceDate_KeyPress(int& character);
  void InvoiceNumber_KeyPress(int& character);
  void InvoiceAmount_KeyDown(int& keyCode, int shift);
  /// Enter in the amount adds the invoice.
  void InvoiceAmount_Confirmed();
  void InvoicePaymentList_Click();
  void CancelInvoice_Click();
  void cmdOK_Click();

  /// What OK tests of an entry in progress; a date that is too short is silent where there are no words for it.
  bool EntryPasses(std::string_view dateTooShort);
  bool NumberIsGiven(const Wording& ask);
  /// A message that asks for an entry. On hold it says ahead that entries are mandatory.
  Wording Asking(std::string_view ask) const;
  /// Reads the amount, as cents where it was typed without a decimal separator, shows it, and tests it.
  bool AmountFits();
  bool NoLineIsLeft() const;
  void WarnOfManyLines();
  void AcceptInvoices();

  void AddInvoiceLine();
  void RemoveInvoiceLine(int row);
  /// Error 9 beyond the store.
  InvoiceLine& LineAt(int index);
  void FindRemainingAmount();
  void SuggestRemainingAmount();
  /// Tells how an invoice is cancelled, while there is one.
  void ShowWhetherToCancel();

  void WriteInvoiceRows();
  void AddInvoiceRecords();
  /// The entries of a row, by the routine of its kind: as many lines from the first as there are.
  template <class Entry>
  std::vector<Entry> EntriesOf(Entry (*make)(std::string_view date, std::string_view amount, std::string_view number),
                               int first, int count) const;

  static const DateRows kDateOnEnter;

  std::string zelmorNumber_;
  /// The list box's row i and line i are the same invoice.
  std::array<InvoiceLine, 51> invoiceLines_;
  int16_t lineCount_ = 0;
  /// What the invoices so far leave of the payment.
  Money remainingAmount_;
  /// The amount that was suggested has been wiped for this entry.
  bool amountCleared_ = false;
  /// As it was when the form was loaded.
  bool isHeld_ = false;

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.heading = &Label7,
                                      .rows = {{{{nullptr, &InvoiceStatementOnly[0]}}},
                                               {{{nullptr, &InvoiceStatementOnly[1]}}},
                                               {{{&Label4, &InvoiceDate}}},
                                               {{{&Label5, &InvoiceNumber}}},
                                               {{{&Label6, &InvoiceAmount}}},
                                               {{{&Label12}}},
                                               {{{nullptr, &InvoicePaymentList}}},
                                               {{{&Label2}}},
                                               {{{nullptr, &CancelInvoice}}}}}},
                          .buttons = {&cmdOK, &cmdCancel, &cmdHelp}};
};

}  // namespace fiscalon
