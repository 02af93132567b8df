#pragma once

#include <string>
#include <string_view>

#include "core/forms/label.h"
#include "core/forms/layout.h"
#include "core/forms/text_field.h"
#include "core/screen.h"

/// What stands above the entries of a screen: the payment that the host has set. A form has its head as a member in
/// its table of controls; the controls keep the names that they have on the form.
namespace fiscalon {

/// A label as a form's table gives it to a part.
struct NamedLabel {
  std::string name = {};
  Wording caption = {};
};

/// What becomes of the date while the payment is on hold.
enum class HeldDate { IsHidden, IsShown };

/// How the amount is shown: the number at the start of its text, or the text itself as far as it is a number.
enum class AmountRead { AsNumber, AsText };
struct ShownAmount {
  std::string_view pattern = "0.00";
  AmountRead read = AmountRead::AsNumber;
};

struct PaymentHeadDesign {
  NamedLabel dateCaption = {.name = "lblCPayDate", .caption = "Payment Date:"};
  std::string date = "lblPayDate";
  NamedLabel amountCaption = {.name = "lblCAmountPaid", .caption = "Amount to be paid:"};
  std::string amount = "lblAmountPaid";
  ShownAmount shown = {.pattern = "Currency", .read = AmountRead::AsText};
  HeldDate heldDate = HeldDate::IsShown;
};

/// Date and amount to be paid.
class PaymentHead {
 public:
  explicit PaymentHead(Form& form, const PaymentHeadDesign& design = {});

  /// Fills the head, when the form loads.
  void Show(const GivenPayment& payment);

  /// The amount that is shown, as the user's locale reads it. Error 13 while there is none.
  Money Amount() const;

  Group Rows() { return {.rows = {{{{&DateCaption, &PayDate}}}, {{{&AmountCaption, &AmountPaid}}}}}; }

  Label DateCaption;
  Label PayDate;
  Label AmountCaption;
  Label AmountPaid;

 private:
  ShownAmount shown_;
  HeldDate heldDate_;
};

/// The payee, in a field that the user can't change.
class PayeeField {
 public:
  PayeeField(Form& form, std::string name, int tabIndex);

  Label PayeeCaption;
  TextField PayeeName;
};

struct PayeeHeadDesign {
  std::string payee = "PayeeName";
  int payeeTabIndex = FieldDesign().tabIndex;
  std::string date = "PayDate";
  NamedLabel amountCaption = {.name = "Label3", .caption = "Amount to be paid:"};
  std::string amount = "AmountPaid";
  ShownAmount shown = {};
};

/// Payee, date and amount to be paid. The date is hidden while the payment is on hold.
class PayeeHead : public PayeeField, public PaymentHead {
 public:
  PayeeHead(Form& form, const PayeeHeadDesign& design);

  void Show(const GivenPayment& payment);

  Group Rows();
};

}  // namespace fiscalon
