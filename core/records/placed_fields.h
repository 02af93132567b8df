#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "core/records/record_layout.h"

/// Where the fields of a record stand, for whoever explains it. Two kinds of records are longer than their tables, and
/// screens write them so; their readers count on it. The validator does not: it cuts columns as the tables have them.
namespace fiscalon {

/// What makes a record longer than its table.
struct Overrun {
  enum class Kind {
    /// A negative number with more digits than its columns leave room for beside the minus sign. Numbers are not cut,
    /// so all that follows stands further right.
    LongNumber,
    /// The body of a "G" record behind the slots of an "F" record.
    JoinedDetails,
  };
  Kind kind = Kind::LongNumber;
  /// The number, or the joined body, where it stands in the record.
  RecordField place = {};
  /// How many columns further right what follows stands.
  int shift = 0;
  /// How many slots stand in front of a joined body.
  size_t slotCount = 0;
};

/// The fields of a record, the head's too, at the columns where they stand in it.
struct PlacedFields {
  std::vector<RecordField> fields = {};
  std::vector<Overrun> overruns = {};

  /// The length of a record with these fields; 0 for a letter that is no record kind.
  size_t Length() const { return fields.empty() ? 0 : static_cast<size_t>(fields.back().to); }
};

/// The fields stand as the record's table has them, but where overruns account for each column that it has too many.
PlacedFields PlaceFields(std::string_view record);

}  // namespace fiscalon
