#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "validation/judge_payment.h"
#include "validation/rule_sets.h"

namespace fiscalon {

/// Amounts of up to 15 digits lose nothing as a text of dollars, so they read back as the quotient itself.
constexpr bool ReadsBackAsItIs(int64_t cents) {
  constexpr int64_t kFifteenDigits = 999'999'999'999'999;
  return cents >= 0 && cents <= kFifteenDigits;
}

/// Whether a payment is good by quick tests alone, as nearly all are. False says nothing. Stands in the loop over a
/// batch, so it is put in place there.
inline bool IsGoodQuickly(const PaymentFigures& payment, std::span<const std::string_view> records,
                          const JudgingDay& day) {
  const RuleSet* const rules = RulesOf(payment.screenCode);
  if (rules == nullptr || !ReadsBackAsItIs(payment.cents))
    return false;
  return PassesQuickly(
      *rules, records,
      {.paymentCents = static_cast<uint64_t>(payment.cents), .billerCode = payment.billerCode, .day = &day});
}

}  // namespace fiscalon
