#include "validation/judge_payment.h"

#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "validation/rule_sets.h"

namespace fiscalon {

namespace {

/// The amount as the validator reads it back from its text of dollars.
double Dollars(int64_t cents) {
  // Up to 15 digits the text loses nothing, so it reads back as the quotient itself.
  constexpr int64_t kFifteenDigits = 999'999'999'999'999;
  if (cents >= -kFifteenDigits && cents <= kFifteenDigits)
    return static_cast<double>(cents) / 100;
  return LeadingNumber(DollarsFromCents(std::to_string(cents)));
}

}  // namespace

PaymentJudge::PaymentJudge() : PaymentJudge(Today()) {}

bool PaymentJudge::Judge(const PaymentFigures& payment, std::span<const std::string_view> records,
                         std::string& reason) const {
  reason.clear();
  const RuleSet* const rules = RulesOf(payment.screenCode);
  if (rules == nullptr) {
    reason = kUnsupportedScreen;
    return false;
  }
  return JudgeRecordsWithErrors(
      *rules, records, {.paymentAmount = Dollars(payment.cents), .billerCode = payment.billerCode, .day = day_},
      reason);
}

}  // namespace fiscalon
