#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"
#include "screens/parts/enter_as_tab.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"

namespace fiscalon {

/// Collects who makes a payment to a charity, and for what, so that the charity can send a receipt.
class frmDonation final : public Screen {
  using Self = frmDonation;

 public:
  frmDonation() : Screen("frmDonation", "Payment From") {}

  // clang-format off
  Label        Label4         {*this, "Label4",         {.caption = "Payment to:"}};
  Label        lblBillerName  {*this, "lblBillerName",  {}};
  PaymentHead  head           {*this, {.dateCaption = {.name = "lblCPayDate", .caption = "Date:"},
                                       .amountCaption = {.name = "Label3", .caption = "Total to be paid:"},
                                       .shown = {.pattern = "#0.00"}, .heldDate = HeldDate::IsHidden}};
  Label        Label1         {*this, "Label1",         {.caption = "Please indicate the name and address of the person making the payment:"}};
  Label        lblCName       {*this, "lblCName",       {.caption = "Name:"}};
  TextField    txtName        {*this, "txtName",        {.tabIndex = 0, .maxLength = 60}, {.keyPress = TypedInCapitals}};
  Label        lblCAddress    {*this, "lblCAddress",    {.caption = "Address:"}};
  TextField    txtAddress     {*this, "txtAddress",     {.tabIndex = 1, .maxLength = 60}, {.keyPress = TypedInCapitals}};
  Label        lblCCity       {*this, "lblCCity",       {.caption = "City:"}};
  TextField    txtCity        {*this, "txtCity",        {.tabIndex = 2, .maxLength = 20}, {.keyPress = TypedInCapitals}};
  Label        lblCProvince   {*this, "lblCProvince",   {.caption = "Province:"}};
  DropDownList cmbProvince    {*this, "cmbProvince",    {.tabIndex = 3}};
  Label        lblCPostalCode {*this, "lblCPostalCode", {.caption = "Postal Code:"}};
  TextField    txtPostalCode  {*this, "txtPostalCode",  {.tabIndex = 4, .maxLength = 9},  {.keyPress = TypedInCapitals}};
  Label        Label8         {*this, "Label8",         {.caption = "Email (if available):"}};
  TextField    txtEmail       {*this, "txtEmail",       {.tabIndex = 5, .maxLength = 60}, {.keyPress = DropQuote}};
  Label        lblCPhoneNo    {*this, "lblCPhoneNo",    {.caption = "Phone No:"}};
  TextField    txtPhoneNo1    {*this, "txtPhoneNo1",    {.tabIndex = 6, .maxLength = 3},
                               {.change = OnFull(txtPhoneNo1, &txtPhoneNo2), .keyPress = AmountKeysOf(txtPhoneNo1)}};
  TextField    txtPhoneNo2    {*this, "txtPhoneNo2",    {.tabIndex = 7, .maxLength = 3},
                               {.change = OnFull(txtPhoneNo2, &txtPhoneNo3), .keyPress = AmountKeysOf(txtPhoneNo2)}};
  TextField    txtPhoneNo3    {*this, "txtPhoneNo3",    {.tabIndex = 8, .maxLength = 4},
                               {.change = OnFull(txtPhoneNo3, &txtAmount),   .keyPress = AmountKeysOf(txtPhoneNo3)}};
  Label        Label2         {*this, "Label2",         {.caption = "If a donation receipt is required, please provide the information requested below:"}};
  Label        lblCAmount     {*this, "lblCAmount",     {.caption = "Amount:"}};
  TextField    txtAmount      {*this, "txtAmount",      {.tabIndex = 9, .maxLength = 16, .alignment = Alignment::Right},
                               {.keyPress = AmountKeysOf(txtAmount)}};
  Label        lblCPurpose    {*this, "lblCPurpose",    {.caption = "Purpose:"}};
  TextField    txtPurpose     {*this, "txtPurpose",     {.tabIndex = 10, .maxLength = 60, .multiLine = true},
                               {.keyPress = TypedInCapitals}};
  Button       cmdOK          {*this, "cmdOK",          {.caption = "&OK"},     {.click = OnOk(&Self::ValidateForm, &Self::DoWrite)}};
  Button       cmdCancel      {*this, "cmdCancel",      {.caption = "&Cancel"}, {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// The payer's name, where the host knows it: it can't be changed then.
  const std::string& BusinessName() const { return businessName_; }
  void BusinessName(std::string_view text) { businessName_ = text; }

 private:
  void Form_Load() override;
  /// Enter moves on from every control, so that no field ever hears of it.
  void Form_KeyPress(int& character) override { EnterAsTab(*this, character); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }

  static void TypedInCapitals(int& character);
  /// Phone numbers are filtered like amounts.
  static KeyPressHandler AmountKeysOf(TextField& field) {
    return [&field](int& character) { FilterKey(field, character, kAmountKeys); };
  }

  bool ValidateForm();
  bool EmailIsValid();
  void DoWrite();

  std::string businessName_;

  const Layout layout_ = {
      .groups = {{.rows = {{{{&Label4, &lblBillerName}}},
                           {{{&head.DateCaption, &head.PayDate}}},
                           {{{&head.AmountCaption, &head.AmountPaid}}}}},
                 {.heading = &Label1,
                  .rows = {{{{&lblCName, &txtName}}},
                           {{{&lblCAddress, &txtAddress}}},
                           {{{&lblCCity, &txtCity},
                             {.caption = &lblCProvince, .field = &cmbProvince, .isClose = true}}},
                           {{{&lblCPostalCode, &txtPostalCode}}},
                           {{{&Label8, &txtEmail}}},
                           {{{&lblCPhoneNo, &txtPhoneNo1},
                             {.field = &txtPhoneNo2, .isClose = true},
                             {.field = &txtPhoneNo3, .isClose = true}}}}},
                 {.heading = &Label2, .rows = {{{{&lblCAmount, &txtAmount}}}, {{{&lblCPurpose, &txtPurpose}}}}}},
      .buttons = {&cmdOK, &cmdCancel}};
};

}  // namespace fiscalon
