#pragma once

#include <optional>

#include "core/launch.h"
#include "tools/fiscalon/shown_record.h"
#include "validation/expectation.h"
#include "validation/rule_sets.h"

namespace fiscalon {

/// What `validate` would say of the payments of a screen that it judges, as far as records alone tell: nothing is held
/// against an amount to be paid or a biller. As of today by the module's clock, under the module's locale.
class PaymentChecks {
 public:
  /// Nothing for a screen whose payments are not judged.
  static std::optional<PaymentChecks> Of(const LaunchRow* screen);

  /// Adds to a record's problems what the rules say of its fields.
  void Follow(ShownRecord& record);
  /// Adds what they say of the payment that ends with this record.
  void EndPayment(ShownRecord& last);

 private:
  explicit PaymentChecks(const RuleSet& rules);

  void FollowPeriod(ShownRecord& record) const;
  void FollowFields(ShownRecord& record) const;

  const RuleSet* rules_;
  JudgingDay day_;
  bool hasPeriod_ = false;
  bool hasFields_ = false;
};

}  // namespace fiscalon
