#pragma once

#include "tests/support/test_form.h"

namespace fiscalon {

/// A form with a control of every kind, laid out as screens are.
class EveryKindForm : public TestForm {
 public:
  // clang-format off
  Label        lblPayee    {*this, "lblPayee",    {.caption = "Payment to:"}};
  TextField    txtPayee    {*this, "txtPayee",    {.tabIndex = 20, .tabStop = false, .locked = true}, Noted("txtPayee")};
  Label        lblPaid     {*this, "lblPaid",     {.caption = "Amount to be paid:"}};
  Label        lblAmount   {*this, "lblAmount",   {.caption = "$123.45"}};
  Frame        fraKind     {*this, "fraKind",     {.caption = "Kind of payment"}};
  OptionButton optFirst    {*this, "optFirst",    {.caption = "&First", .tabIndex = 0, .frame = &fraKind}, Noted("optFirst")};
  OptionButton optSecond   {*this, "optSecond",   {.caption = "&Second", .tabIndex = 1, .frame = &fraKind}, Noted("optSecond")};
  Label        lblPeriod   {*this, "lblPeriod",   {.caption = "Period ends on:"}};
  TextField    txtPeriod   {*this, "txtPeriod",   {.tabIndex = 2, .maxLength = 6}, Noted("txtPeriod")};
  Label        lblHint     {*this, "lblHint",     {.caption = "YYYYMM"}};
  Label        lblTotal    {*this, "lblTotal",    {.caption = "Total:", .bold = true}};
  TextField    txtTotal    {*this, "txtTotal",    {.tabIndex = 3, .maxLength = 12, .alignment = Alignment::Right}, Noted("txtTotal")};
  Label        lblPurpose  {*this, "lblPurpose",  {.caption = "Purpose:"}};
  TextField    txtPurpose  {*this, "txtPurpose",  {.tabIndex = 4, .maxLength = 60, .multiLine = true}, Noted("txtPurpose")};
  CheckBox     chkFinal    {*this, "chkFinal",    {.caption = "Final pa&yment", .tabIndex = 5}, Noted("chkFinal")};
  Label        lblProvince {*this, "lblProvince", {.caption = "Province:"}};
  DropDownList cmbProvince {*this, "cmbProvince", {.tabIndex = 6}, Noted("cmbProvince")};
  Label        lblInvoices {*this, "lblInvoices", {.caption = "Invoices"}};
  ListBox      lstInvoices {*this, "lstInvoices", {.tabIndex = 7, .fixedPitch = true}, Noted("lstInvoices")};
  Button       cmdOK       {*this, "cmdOK",       {.caption = "&OK"}, Noted("cmdOK")};
  Button       cmdCancel   {*this, "cmdCancel",   {.caption = "Cancel", .cancel = true}, Noted("cmdCancel")};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 protected:
  void Form_Load() override {
    txtPayee.Text("Summit Levies");
    for (const char* province : {"Alberta", "Manitoba", "Quebec"}) cmbProvince.AddItem(province);
    for (const char* invoice : {"INV-1   10.00", "INV-2   20.00", "INV-3   30.00"}) lstInvoices.AddItem(invoice);
    TestForm::Form_Load();
  }

 private:
  const Layout layout_ = {.groups = {{.rows = {{{{&lblPayee, &txtPayee}}}, {{{&lblPaid, &lblAmount}}}}},
                                     {.heading = &fraKind, .rows = {{{{nullptr, &optFirst}, {nullptr, &optSecond}}}}},
                                     {.rows = {{{{&lblPeriod, &txtPeriod, &lblHint}}},
                                               {{{&lblTotal, &txtTotal}}},
                                               {{{&lblPurpose, &txtPurpose}}},
                                               {{{nullptr, &chkFinal}}},
                                               {{{&lblProvince, &cmbProvince}}},
                                               {{{&lblInvoices}}},
                                               {{{nullptr, &lstInvoices}}}}}},
                          .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
