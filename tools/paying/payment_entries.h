#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// What a desk has an entry for, in the order in which they stand there.
enum class PaymentEntry {
  CustomerNumber,
  Sequence,
  BillerName,
  BillerCode,
  Cents,
  Dollars,
  Date,
  OnHold,
  EnteredBy,
  Title,
  BusinessName,
  Items,
  ToCollection,
  ToFile,
  File,
};

/// The words of an entry, the same on every desk.
struct EntryWords {
  PaymentEntry entry = {};
  /// An "&" stands before its access key.
  std::string_view caption = {};
  /// What is worth knowing before one types; may be empty.
  std::string_view hint = {};
};

const EntryWords& WordsOf(PaymentEntry entry);

/// The caption as it is read: "Sequence".
std::string NameOf(PaymentEntry entry);

}  // namespace fiscalon
