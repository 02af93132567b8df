#pragma once

#include "core/forms/text_field.h"
#include "screens/parts/payment_head.h"

/// OK tests of an amount against the one to be paid, as the user's locale reads both. With resume-next: a text that is
/// no amount fails its test.
namespace fiscalon {

bool IsAmountToBePaid(const TextField& amount, const PaymentHead& head);

/// The balance of a return, which below zero is a refund.
enum class Balance { Refused, Refund, Payment };

/// A refund wants nothing to be paid; any other balance is the amount to be paid. Where that is not so, shows a
/// critical box and gives the focus to `refused`. A balance that is no amount counts as a refund.
Balance TestBalance(const TextField& balance, const PaymentHead& head, Control& refused);

}  // namespace fiscalon
