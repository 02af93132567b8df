#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/launch.h"
#include "tools/reading/record_meaning.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// The fields of the last record of a kind, understood. Most of the next one's hold the same: only the others are
/// looked at. That, and printing them so (`ShownField::since`), is what makes a batch quick to show.
class KnownFields {
 public:
  /// Understands the fields of a record of the usual length, which stand in these rows.
  void Follow(std::span<const RecordField> rows, const LaunchRow* screen, ShownRecord& shown);

 private:
  /// Empty where something was wrong with a field, which is to be said of each record anew.
  std::string record_;
  std::vector<ShownField> fields_;
  std::vector<Role> roles_;
  /// What each number said of its slot.
  std::vector<SlotBefore> slots_;
};

}  // namespace fiscalon
