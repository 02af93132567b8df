#include "core/older_screen.h"

#include <utility>

#include "core/module_state.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

void OlderScreen::ShowPayment(PayeeHead& head) const {
  head.PayeeName.Text(Payment().compName);
  head.AmountPaid.Caption(ShownPaidAmount());
  ShowDate(head.lblCPayDate, head.PayDate);
}

void OlderScreen::ShowDate(Label& caption, Label& payDate) const {
  constexpr uint8_t kOnHold = 1;
  const bool fixed = Payment().apHoldFlg != kOnHold;
  caption.Visible(fixed);
  payDate.Visible(fixed);
  if (fixed)
    payDate.Caption(ShownPaidDate());
}

void OlderScreen::FindHelpFolder() {
  helpFolder_ = Payment().govFilename;
  for (int up = 0; up < 3; ++up) helpFolder_ = Files::ParentFolder(helpFolder_);
}

std::string OlderScreen::ShownPaidAmount() const {
  return Format(LeadingNumber(Payment().paidAmount), "0.00");
}

void OlderScreen::Help_Click() {
  constexpr std::string_view kHelpFile = "ZELMOR.CHM>ShowTopic";
  constexpr int32_t kContext = 100000004;
  TheToolkit().OpenHelp(Files::JoinPath(helpFolder_, kHelpFile), kContext);
}

void OlderScreen::Accept(OutputFailure failure) {
  if (failure == OutputFailure::IsSkipped)
    ResumeNext::Run([&] { WriteRecords(); });
  else
    WriteRecords();
  Chosen(kTrue);
  Hide();
}

void OlderScreen::FilterKey(TextField& field, int& character, std::string_view alsoAccepted) {
  const bool accepted = (character >= '0' && character <= '9') || character == key::kBackspace ||
                        character == key::kEnter ||
                        alsoAccepted.find(static_cast<char>(character)) != std::string_view::npos;
  if (accepted)
    return;
  character = 0;
  field.SetFocus();
}

bool OlderScreen::RefuseAndEmpty(TextField& field, std::string_view message) {
  ShowMessage(message, MessageStyle::Critical);
  field.Text("");
  return Refuse(field);
}

const std::string& OlderScreen::TrimText(TextField& field) {
  field.Text(std::string(Trim(field.Text())));
  return field.Text();
}

double OlderScreen::NumberIn(std::string_view text) {
  double number = 0;
  ResumeNext::Run([&] { number = LeadingNumber(text); });
  return number;
}

Money OlderScreen::AmountIn(std::string_view text) {
  Money amount;
  ResumeNext::Run([&] { amount = Money::FromDouble(LeadingNumber(text)); });
  return amount;
}

void OlderScreen::ShowWithImplicitCents(TextField& field, Money amount) {
  field.Text(Format(WithImplicitCents(amount, field.Text()), "0.00"));
}

void OlderScreen::CheckDateOnLeaving(TextField& field) {
  if (field.Text().empty() || FocusIsOn(waysOut_.cancel) || FocusIsOn(waysOut_.help))
    return;
  TrimText(field);
  if (HoldsDate(field))
    ShowDateDigits(field);
  else
    Refuse(field, "Invalid date value.");
}

Handler OlderScreen::OnDateLeft(TextField& field) {
  return [this, &field] { CheckDateOnLeaving(field); };
}

bool OlderScreen::HoldsDate(const TextField& field) {
  return !ResumeNext::Holds([&] { return !IsValidYYYYMMDD(field.Text()); });
}

void OlderScreen::ShowDateDigits(TextField& field) {
  field.Text(Format(NumberIn(field.Text()), "00000000"));
}

bool OlderScreen::YearIsRefused(const TextField& field, std::string_view name) {
  return YearIsNotCurrent(field.Text(), name) == kTrue;
}

std::string OlderScreen::WithoutColon(const Label& label) {
  std::string caption = label.Caption();
  caption.pop_back();
  return caption;
}

FreeFormatSlot OlderScreen::AmountSlot(std::string number, const TextField& field) {
  return NumberSlot(std::move(number), Cents(field.Text()));
}

}  // namespace fiscalon
