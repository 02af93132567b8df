#include "screens/parts/payment_head.h"

#include <utility>

#include "core/user_locale.h"
#include "core/values/leading_number.h"

namespace fiscalon {

PaymentHead::PaymentHead(Form& form, const PaymentHeadDesign& design)
    : DateCaption(form, design.dateCaption.name, {.caption = design.dateCaption.caption}),
      PayDate(form, design.date, {}),
      AmountCaption(form, design.amountCaption.name, {.caption = design.amountCaption.caption}),
      AmountPaid(form, design.amount, {}),
      shown_(design.shown),
      heldDate_(design.heldDate) {}

void PaymentHead::Show(const GivenPayment& payment) {
  const std::string_view text = payment.paidAmount;
  AmountPaid.Caption(AsGiven(shown_.read == AmountRead::AsNumber ? Format(LeadingNumber(text), shown_.pattern)
                                                                 : Format(text, shown_.pattern)));
  const bool hasDate = !payment.IsHeld() || heldDate_ == HeldDate::IsShown;
  DateCaption.Visible(hasDate);
  PayDate.Visible(hasDate);
  if (hasDate)
    PayDate.Caption(AsGiven(payment.ShownDate()));
}

Money PaymentHead::Amount() const {
  return ToMoney(AmountPaid.Caption());
}

PayeeField::PayeeField(Form& form, std::string name, int tabIndex)
    : PayeeCaption(form, "Label1", {.caption = "Payment to:"}),
      PayeeName(form, std::move(name), {.tabIndex = tabIndex, .tabStop = false, .locked = true}) {}

PayeeHead::PayeeHead(Form& form, const PayeeHeadDesign& design)
    : PayeeField(form, design.payee, design.payeeTabIndex),
      PaymentHead(form, {.dateCaption = {.name = "lblCPayDate", .caption = "Payment will be made on:"},
                         .date = design.date,
                         .amountCaption = design.amountCaption,
                         .amount = design.amount,
                         .shown = design.shown,
                         .heldDate = HeldDate::IsHidden}) {}

void PayeeHead::Show(const GivenPayment& payment) {
  PayeeName.Text(payment.compName);
  PaymentHead::Show(payment);
}

Group PayeeHead::Rows() {
  Group group = PaymentHead::Rows();
  group.rows.insert(group.rows.begin(), Row{.cells = {{&PayeeCaption, &PayeeName}}});
  return group;
}

}  // namespace fiscalon
