#include "screens/parts/return_balance.h"

#include "core/resume_next.h"
#include "core/user_locale.h"
#include "screens/parts/refusal.h"

namespace fiscalon {

bool IsAmountToBePaid(const TextField& amount, const PaymentHead& head) {
  return !ResumeNext::Fails([&] { return ToMoney(amount.Text()) == head.Amount(); });
}

Balance TestBalance(const TextField& balance, const PaymentHead& head, Control& refused) {
  if (ResumeNext::Holds([&] { return ToMoney(balance.Text()) < Money(); })) {
    if (!ResumeNext::Fails([&] { return head.Amount() == Money(); }))
      return Balance::Refund;
    Refuse(refused, "If the Amount Payable is less than zero, the Amount to be paid must be zero (0.00).");
    return Balance::Refused;
  }
  if (IsAmountToBePaid(balance, head))
    return Balance::Payment;
  Refuse(refused, "The Amount Payable must match the Amount to be paid.");
  return Balance::Refused;
}

}  // namespace fiscalon
