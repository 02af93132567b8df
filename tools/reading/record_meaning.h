#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records/field_names.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// What the fields of the layouts hold, by their names.
enum class Role { AlwaysBlank, Text, Period, Date, Cents, InvoiceCents, FieldNumber, FieldValue };
Role RoleOf(std::string_view name);

/// What is known of a slot of an "F" record before its value is read.
struct SlotBefore {
  /// Its field number; empty where none is in use.
  std::string number = {};
  /// That field of the screen; null where there is none.
  const FieldName* field = nullptr;
};

/// One field with what its text is. What is wrong with the text is added to the problems. `slot` is the slot that the
/// field stands in; a number is noted there for the value behind it.
ShownField UnderstandField(std::string_view record, const RecordField& field, Role role, const LaunchRow* screen,
                           SlotBefore& slot, std::vector<Note>& problems);

/// A number that stands at its place in a record, without its minus sign, which stands before or behind the digits.
struct SignedDigits {
  bool isNegative = false;
  /// Empty where the text is no number.
  std::string_view digits = {};
};
SignedDigits SignedDigitsIn(std::string_view text);

/// Appends what a field's text means: dollars with a point, a date, a name. UTF-8, the same under any locale; nothing
/// where it has no meaning of its own.
void AppendMeaning(std::string& out, const ShownField& field, std::string_view text);

}  // namespace fiscalon
