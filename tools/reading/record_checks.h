#pragma once

#include "core/records/placed_fields.h"
#include "core/records/record_line.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// Whether the line is to be read as a record: it has a record's head, or all the look of a record but for it.
bool LooksLikeRecord(std::string_view record);

/// What is wrong with the line around the record, and what is odd about it: quotes, line end, byte-order mark.
void CheckLine(const RecordLine& line, ShownRecord& shown);

/// What is wrong with the record as a whole: its length, which is that of its fields, its head, control characters. For
/// a line that is no record, what it is instead.
void CheckRecord(ShownRecord& shown, size_t lengthOfFields);

/// What is odd about a record that is longer than others of its kind.
Note NoteOf(const Overrun& overrun);

/// Follows the records of a file, payment by payment: a payment is the run of records with the same sequence.
class OrderCheck {
 public:
  /// Adds to the record's problems what is wrong with its place among those before it.
  void Follow(ShownRecord& record);

 private:
  void CheckFieldNumbers(ShownRecord& record);

  std::string seq_;
  bool inPayment_ = false;
  bool hasGovernment_ = false;
  bool hasDetails_ = false;
  /// The last field number of the payment; empty before the first.
  std::string lastNumber_;
};

}  // namespace fiscalon
