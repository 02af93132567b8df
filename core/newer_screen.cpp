#include "core/newer_screen.h"

#include "core/forms/keys.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

void NewerScreen::cmdOK_Click() {
  if (!ValidateForm())
    return;
  DoWrite();
  Chosen(kTrue);
  Hide();
}

void NewerScreen::cmdCancel_Click() {
  Chosen(kFalse);
  Hide();
}

void NewerScreen::Form_KeyDown(int& keyCode, int shift) {
  if (keyCode != key::kEnter || shift != shift_state::kNone)
    return;
  keyCode = 0;
  SendKeys("{TAB}");
}

void NewerScreen::ShowPayment(Label& payDate, Label& amountPaid) const {
  payDate.Caption(ShownPaidDate());
  amountPaid.Caption(Format(std::string_view(PaidAmount()), "Currency"));
}

std::string NewerScreen::AmountAsShown(std::string_view typed) {
  const double amount = Trim(typed).empty() ? 0 : WithImplicitCents(LeadingNumber(typed), typed);
  return Format(amount, "0.00");
}

void NewerScreen::MoveOnWhenFull(const TextField& field, Control& next) {
  if (static_cast<int>(Trim(field.Text()).size()) == field.MaxLength() && next.Enabled())
    next.SetFocus();
}

}  // namespace fiscalon
