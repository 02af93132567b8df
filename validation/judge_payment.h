#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "validation/expectation.h"
#include "validation/fault.h"

namespace fiscalon {

/// What is known of a payment beside its records. Texts are in Windows-1252.
struct PaymentFigures {
  std::string_view screenCode = {};  ///< "03" or "20"
  std::string_view billerCode = {};  ///< such as "001052"
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
  /// As of that day.
  explicit PaymentJudge(const Date& today) : day_(JudgingDayOf(today)) {}

  /// Whether a payment's records, without quotes, meet the rules of its screen. `reason` becomes what
  /// `InvalidReason` would be: empty for a good payment.
  bool Judge(const PaymentFigures& payment, std::span<const std::string_view> records, std::string& reason) const;

  /// Where each part of that reason lies, in its order; empty for a good payment. Judges the payment over again, test
  /// by test, so it is for the few that are bad.
  std::vector<Fault> FaultsOf(const PaymentFigures& payment, std::span<const std::string_view> records) const;

  /// The day as of which it judges.
  const JudgingDay& Day() const { return day_; }

 private:
  Expectation Expect(const PaymentFigures& payment) const;
  Expectation ExpectAnyAmount(const PaymentFigures& payment) const;

  JudgingDay day_;
};

}  // namespace fiscalon
