#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/launch.h"
#include "tools/fiscalon/shown_record.h"
#include "validation/expectation.h"
#include "validation/rule_sets.h"

namespace fiscalon {

/// Adds a reason of the judge to what is said of the same columns already, or by itself.
void AddValidatesWord(std::vector<Note>& problems, const RecordField& field, std::string_view reason);

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

  void FollowSlots(ShownRecord& record) const;

  const RuleSet* rules_;
  JudgingDay day_;
  bool hasPeriod_ = false;
  bool hasFields_ = false;
};

}  // namespace fiscalon
