#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/launch.h"
#include "tools/reading/shown_record.h"
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
  /// Whether the last one began another payment than the one before it.
  bool BeganPayment() const { return began_; }
  /// Adds to the last line of the payment that ended there, or of the last one of all, what the payment lacks.
  void SayWhatEndedLacks(ShownRecord& last) const { SayWhatLacks(before_, last); }
  void SayWhatLastLacks(ShownRecord& last) const { SayWhatLacks(now_, last); }

 private:
  explicit PaymentChecks(const RuleSet& rules);

  /// What was found of a payment.
  struct Found {
    bool anything = false;
    bool period = false;
    bool fields = false;
  };

  void FollowSlots(ShownRecord& record) const;
  void SayWhatLacks(const Found& found, ShownRecord& last) const;

  const RuleSet* rules_;
  JudgingDay day_;
  std::string seq_;
  bool began_ = false;
  Found now_;
  Found before_;
};

}  // namespace fiscalon
