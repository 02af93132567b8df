#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/control_array.h"
#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"
#include "tools/paying/payment.h"
#include "tools/paying/payment_entries.h"

namespace fiscalon {

/// A payment to change, and all screens to show with it, again and again: a form like any other, so that it stands
/// wherever forms do.
class frmPaymentDesk final : public Form {
  using Self = frmPaymentDesk;

 public:
  frmPaymentDesk();

  /// The user wants to see the screen of that code. Doubts that stop the payment have been told before.
  std::function<void(const Payment& payment, const std::string& code)> onShow = {};
  /// The page for operators, in UTF-8, which Help and F1 open.
  std::string operatorsPage = {};

  // clang-format off
  Label                    lblPayment   {*this, "lblPayment",   {.caption = "The payment", .bold = true}};
  ControlArray<Label, 12>  lblEntry;
  ControlArray<TextField, 12> txtEntry;
  CheckBox                 chkOnHold;
  OptionButton             optCollection;
  OptionButton             optFile;
  Label                    lblDoubt     {*this, "lblDoubt",     {.caption = ""}};
  Label                    lblScreen    {*this, "lblScreen",    {.caption = "Screen:"}};
  DropDownList             cmbScreen    {*this, "cmbScreen",    {.tabIndex = 20}};
  Button                   cmdShow      {*this, "cmdShow",      {.caption = "&Show the screen", .tabIndex = 21}, {.click = On(&Self::cmdShow_Click)}};
  Button                   cmdClose     {*this, "cmdClose",     {.caption = "&Close", .tabIndex = 22, .cancel = true}, {.click = On(&Self::cmdClose_Click)}};
  Button                   cmdHelp      {*this, "cmdHelp",      {.caption = "H&elp", .tabIndex = 23}, {.click = On(&Self::cmdHelp_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void Form_Activate() override { cmdShow.SetFocus(); }
  void Form_KeyDown(int& keyCode, int shift) override;

  void txtEntry_Change(int index);
  void optDestination_Click();
  void cmdShow_Click();
  void cmdClose_Click() { Unload(); }
  void cmdHelp_Click();

  Payment Current() const;
  void ShowDoubts();
  /// Says what stops the payment, and goes to the first such entry.
  bool IsStopped();
  void GoTo(PaymentEntry entry);
  Layout MakeLayout();

  /// Cents and dollars are one amount: the other one follows.
  bool follows_ = false;
  Layout layout_;
};

}  // namespace fiscalon
