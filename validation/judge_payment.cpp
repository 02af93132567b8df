#include "validation/judge_payment.h"

#include "core/logging.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"

namespace fiscalon {

PaymentJudge::PaymentJudge() : PaymentJudge(Today()) {}

/// The amount as the validator reads it back from its text of dollars.
Expectation PaymentJudge::ExpectAnyAmount(const PaymentFigures& payment) const {
  const double dollars = LeadingNumber(DollarsFromCents(std::to_string(payment.cents)));
  return {.paymentAmount = dollars,
          .paymentCents = CentsOfDollars(dollars),
          .billerCode = payment.billerCode,
          .day = &day_};
}

bool PaymentJudge::JudgeClosely(const RuleSet* rules, std::span<const std::string_view> records,
                                const Expectation& expected, std::string& reason) {
  if (rules == nullptr) {
    reason = kUnsupportedScreen;
    return false;
  }
  try {
    return JudgeRecords(*rules, records, expected, reason);
  } catch (const RuntimeError& error) {
    reason = ErrorReason(error);
    return false;
  }
}

}  // namespace fiscalon
