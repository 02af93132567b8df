#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string_view>

#include "tools/reading/known_fields.h"
#include "tools/reading/payment_checks.h"
#include "tools/reading/record_checks.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// Takes records apart one by one, in the order in which they stand. Each is taken into a record of the caller's, which
/// can be used again and again without an allocation.
class RecordTaker {
 public:
  /// `screen` tells what the fields are; it may be null.
  explicit RecordTaker(const LaunchRow* screen, uint64_t firstNumber = 1) : screen_(screen), nextNumber_(firstNumber) {}

  /// From here on the records tell what `validate` would say too, if the screen is one that it judges.
  void Judge() { checks_ = PaymentChecks::Of(screen_); }
  /// What it knows of payments as wholes; nothing where none are judged.
  const std::optional<PaymentChecks>& Checks() const { return checks_; }

  /// A line of a file. `hidden` is how many characters of it are left out.
  void Take(const RecordLine& line, uint64_t hidden, ShownRecord& shown);
  /// A record without what stands around it.
  void Take(std::string_view record, ShownRecord& shown);
  /// What a screen hands back.
  void Take(const PC4& member, ShownRecord& shown);

 private:
  void Begin(std::string_view record, ShownRecord& shown);
  void TakeRecord(ShownRecord& shown);
  void TakeFields(std::span<const RecordField> fields, ShownRecord& shown);
  void TakeInvoice(const PC4& member, ShownRecord& shown);

  const LaunchRow* screen_;
  uint64_t nextNumber_;
  std::map<RecordKind, KnownFields> known_;
  OrderCheck order_;
  std::optional<PaymentChecks> checks_;
};

}  // namespace fiscalon
