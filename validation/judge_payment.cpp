#include "validation/judge_payment.h"

#include "core/logging.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "validation/quick_judge.h"
#include "validation/rule_sets.h"

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

Expectation PaymentJudge::Expect(const PaymentFigures& payment) const {
  const int64_t cents = payment.cents;
  if (!ReadsBackAsItIs(cents))
    return ExpectAnyAmount(payment);
  return {.paymentAmount = static_cast<double>(cents) / 100,
          .paymentCents = static_cast<uint64_t>(cents),
          .billerCode = payment.billerCode,
          .day = &day_};
}

bool PaymentJudge::Judge(const PaymentFigures& payment, std::span<const std::string_view> records,
                         std::string& reason) const {
  reason.clear();
  if (IsGoodQuickly(payment, records, day_))
    return true;
  const RuleSet* const rules = RulesOf(payment.screenCode);
  if (rules == nullptr) {
    reason = kUnsupportedScreen;
    return false;
  }
  try {
    return JudgeRecords(*rules, records, Expect(payment), reason);
  } catch (const RuntimeError& error) {
    reason = ErrorReason(error);
    return false;
  }
}

std::vector<Fault> PaymentJudge::FaultsOf(const PaymentFigures& payment,
                                          std::span<const std::string_view> records) const {
  if (const RuleSet* const rules = RulesOf(payment.screenCode))
    return FaultsOfRecords(*rules, records, Expect(payment));
  return {{.code = std::string(kUnsupportedScreenCode), .message = std::string(kUnsupportedScreen)}};
}

}  // namespace fiscalon
