#include "screens/parts/account_number.h"

#include <algorithm>
#include <utility>

#include "core/forms/keys.h"
#include "core/messages.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/text.h"
#include "screens/parts/moving_on.h"

namespace fiscalon {
namespace {

constexpr size_t kNumberLength = 9;
constexpr size_t kAccountLength = 15;

char CapitalOf(char character) {
  return static_cast<char>(Capital(character));
}

std::string Capitals(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), CapitalOf);
  return text;
}

bool IsAccount(std::string_view text) {
  return text.size() >= kAccountLength && IsNumeric(text.substr(0, kNumberLength)) &&
         IsNumeric(text.substr(text.size() - 4)) && text.substr(kNumberLength, 2) == "RT" &&
         ValidateGSTAccountNumber(text.substr(0, kNumberLength));
}

}  // namespace

bool ValidateGSTAccountNumber(std::string_view number) {
  int sum = 0;
  for (size_t i = 0; i < number.size(); ++i) {
    if (!IsDigit(number[i]))
      return false;
    const int digit = number[i] - '0';
    // Every second digit is doubled, and both digits of the result count.
    const int counted = i % 2 == 0 ? digit : digit * 2;
    sum += counted / 10 + counted % 10;
  }
  return sum % 10 == 0;
}

AccountNumber::AccountNumber(fiscalon::Form& form, std::string name, const FieldDesign& design, ValidationGuard& guard,
                             Asked<Control*> next)
    : TextField(form, std::move(name), design, EventsOf(this)), guard_(guard), next_(std::move(next)) {}

FieldEvents AccountNumber::EventsOf(AccountNumber* self) {
  return {.change =
              [self] {
                ResumeNext::Run([&] { self->Text(Capitals(KeepAlphanumeric(self->Text()))); });
                MoveOn(*self, self->next_);
              },
          .keyPress = KeyPressed,
          .lostFocus = [self] { self->guard_.FieldIsLeft(*self, [self] { return self->CheckGSTAccountField(); }); }};
}

void AccountNumber::KeyPressed(int& character) {
  const char typed = static_cast<char>(character);
  if (character == key::kEnter || character == key::kBackspace)
    return;
  character = KeepAlphanumeric({&typed, 1}).empty() ? 0 : Capital(typed);
}

bool AccountNumber::CheckGSTAccountField() const {
  if (IsAccount(Text()))
    return true;
  ShowMessage("The GST Account Number must be a valid CRA Business Number in the form 999999999RT9999.",
              MessageStyle::Critical);
  return false;
}

}  // namespace fiscalon
