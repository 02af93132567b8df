#include "core/newer_screen.h"

#include <utility>

#include "core/forms/keys.h"
#include "core/module_state.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

void NewerScreen::cmdOK_Click() {
  Entered("cmdOK_Click");
  if (!ValidateForm())
    return;
  DoWrite();
  Chosen(kTrue);
  Hide();
}

void NewerScreen::cmdCancel_Click() {
  Entered("cmdCancel_Click");
  Cancelled();
}

void NewerScreen::Form_KeyDown(int& keyCode, int shift) {
  Entered("Form_KeyDown");
  if (keyCode != key::kEnter || shift != shift_state::kNone)
    return;
  keyCode = 0;
  SendKeys("{TAB}");
}

void NewerScreen::ShowPayment(Label& payDate, Label& amountPaid) const {
  payDate.Caption(ShownPaidDate());
  amountPaid.Caption(Format(std::string_view(Payment().paidAmount), "Currency"));
}

Handler NewerScreen::OnDigitsChange(TextField& field, Control& next) {
  return [this, &field, &next] {
    Entered(field.Name() + "_Change");
    ResumeNext::Run([&] { field.Text(DigitsOnly(field.Text())); });
    ResumeNext::Run([&] { MoveOnWhenFull(field, next); });
  };
}

Handler NewerScreen::OnAmountChange(TextField& field, Control& next) {
  return [this, &field, &next] {
    Entered(field.Name() + "_Change");
    AmountChange(field, next);
  };
}

Handler NewerScreen::OnAmountLeft(TextField& box, std::string_view name) {
  return [this, &box, name] {
    Entered(box.Name() + "_LostFocus");
    CheckValues(box, name);
  };
}

Handler NewerScreen::OnAmountLeft(TextField& box, const Label& name) {
  return [this, &box, &name] {
    Entered(box.Name() + "_LostFocus");
    CheckValues(box, name.Caption());
  };
}

void NewerScreen::AmountChange(TextField& field, Control& next) {
  field.Text(KeepNumericChars(field.Text()));
  MoveOnWhenFull(field, next);
}

NewerScreen::AmountCheck NewerScreen::CheckAmount(TextField& box, std::string_view name, AmountRange range) {
  constexpr std::string_view kLeavingTo = "cmdCancel";
  // This compares what the active control holds, not its name, so it is practically never met.
  if (ActiveControl() != nullptr && ActiveControl()->DefaultValue() == kLeavingTo)
    return AmountCheck::Skipped;
  const std::string& text = box.Text();
  const double amount = LeadingNumber(text);
  const bool outOfRange = range == AmountRange::Positive ? amount <= 0 : amount < 0;
  if (outOfRange && !FocusIsOn(kLeavingTo)) {
    const std::string_view complaint =
        range == AmountRange::Positive ? " cannot be zero or negative." : " cannot be negative.";
    Refuse(box, std::string(name).append(complaint), MessageStyle::Plain);
    return AmountCheck::Refused;
  }
  box.Text(Format(Trim(text).empty() ? 0 : WithImplicitCents(amount, text), "0.00"));
  return AmountCheck::Accepted;
}

void NewerScreen::CheckValues(TextField& box, std::string_view name) {
  if (CheckAmount(box, name, AmountRange::NotNegative) == AmountCheck::Accepted)
    RecalcForm();
}

FreeFormatSlot NewerScreen::AmountSlot(std::string number, const TextField& field) {
  return {.fieldNum = std::move(number), .fieldValue = AmountToField(Cents(field.Text()))};
}

FreeFormatSlot NewerScreen::ZeroSlot(std::string number) {
  return {.fieldNum = std::move(number), .fieldValue = std::string(kZeroValue)};
}

}  // namespace fiscalon
