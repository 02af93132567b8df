#pragma once

#include <array>
#include <string>
#include <vector>

#include "tools/reading/shown_record.h"

namespace fiscalon {

/// What is printed in front of the text of each field of a record. It is the same for all records of a kind whose
/// fields stand where the table of their kind has them, as nearly all do: for those it is put together once.
class FieldFronts {
 public:
  using Fronts = std::vector<std::string>;

  /// `make` puts them together, one for each field.
  explicit FieldFronts(Fronts (*make)(const ShownRecord& record)) : make_(make) {}

  /// They hold until the next record is asked for.
  const Fronts& Of(const ShownRecord& record) {
    if (!record.FollowsTable())
      return others_ = make_(record);
    Fronts& fronts = byKind_[static_cast<unsigned char>(record.kind)];
    if (fronts.size() != record.fields.size())
      fronts = make_(record);
    return fronts;
  }

 private:
  Fronts (*make_)(const ShownRecord& record);
  std::array<Fronts, 256> byKind_ = {};
  Fronts others_;
};

}  // namespace fiscalon
