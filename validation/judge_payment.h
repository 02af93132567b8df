#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "validation/expectation.h"
#include "validation/rule_sets.h"

namespace fiscalon {

/// What is known of a payment beside its records. Texts are in Windows-1252.
struct PaymentFigures {
  std::string_view screenCode = {};
  std::string_view billerCode = {};
  /// The amount to be paid.
  int64_t cents = 0;
};

/// Judges payments from a host's own buffers, with the verdicts and reasons of `clsValidateAddInfo` and
/// without its logs. All are judged as of one day, however long that takes. Allocates nothing for a payment
/// that is good by quick tests. Threads may share one as long as none changes the module.
class PaymentJudge {
 public:
  /// As of today by the module's clock.
  PaymentJudge();
  explicit PaymentJudge(const Date& today) : day_(JudgingDayOf(today)) {}

  /// Whether a payment's records, without quotes, meet the rules of its screen. `reason` becomes what
  /// `InvalidReason` would be: empty for a good payment.
  bool Judge(const PaymentFigures& payment, std::span<const std::string_view> records, std::string& reason) const {
    reason.clear();
    const RuleSet* const rules = RulesOf(payment.screenCode);
    const Expectation expected = Expect(payment);
    return (rules != nullptr && PassesQuickly(*rules, records, expected)) ||
           JudgeClosely(rules, records, expected, reason);
  }

 private:
  /// Amounts of up to 15 digits lose nothing as a text of dollars, so they read back as the quotient itself.
  static constexpr int64_t kFifteenDigits = 999'999'999'999'999;

  Expectation Expect(const PaymentFigures& payment) const {
    const int64_t cents = payment.cents;
    if (cents < 0 || cents > kFifteenDigits)
      return ExpectAnyAmount(payment);
    return {.paymentAmount = static_cast<double>(cents) / 100,
            .paymentCents = static_cast<uint64_t>(cents),
            .billerCode = payment.billerCode,
            .day = &day_};
  }
  Expectation ExpectAnyAmount(const PaymentFigures& payment) const;

  static bool JudgeClosely(const RuleSet* rules, std::span<const std::string_view> records, const Expectation& expected,
                           std::string& reason);

  JudgingDay day_;
};

}  // namespace fiscalon
