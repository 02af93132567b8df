#pragma once

#include <string>
#include <string_view>

#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/layout.h"
#include "core/forms/text_field.h"

/// What stands above the entries of many screens: the payment that the host has set. A form has its head as a member in
/// its table of controls; the controls keep the names that they have on the form.
namespace fiscalon {

/// The head of an older screen: payee, date and amount to be paid.
class PayeeHead {
 public:
  PayeeHead(Form& form, int payeeTabIndex)
      : Label1(form, "Label1", {.caption = "Payment to:"}),
        PayeeName(form, "PayeeName", {.tabIndex = payeeTabIndex, .tabStop = false, .locked = true}),
        lblCPayDate(form, "lblCPayDate", {.caption = "Payment will be made on:"}),
        PayDate(form, "PayDate", {}),
        Label3(form, "Label3", {.caption = "Amount to be paid:"}),
        AmountPaid(form, "AmountPaid", {}) {}

  Group Rows() {
    return {.rows = {{{{&Label1, &PayeeName}}}, {{{&lblCPayDate, &PayDate}}}, {{{&Label3, &AmountPaid}}}}};
  }

  Label Label1;
  TextField PayeeName;
  Label lblCPayDate;
  Label PayDate;
  Label Label3;
  Label AmountPaid;
};

/// The head of a newer screen: date and amount to be paid.
class PaymentHead {
 public:
  explicit PaymentHead(Form& form, std::string_view amountCaption = "lblCAmountPaid")
      : lblCPayDate(form, "lblCPayDate", {.caption = "Payment Date:"}),
        lblPayDate(form, "lblPayDate", {}),
        lblCAmountPaid(form, std::string(amountCaption), {.caption = "Amount to be paid:"}),
        lblAmountPaid(form, "lblAmountPaid", {}) {}

  Group Rows() { return {.rows = {{{{&lblCPayDate, &lblPayDate}}}, {{{&lblCAmountPaid, &lblAmountPaid}}}}}; }

  Label lblCPayDate;
  Label lblPayDate;
  Label lblCAmountPaid;
  Label lblAmountPaid;
};

}  // namespace fiscalon
