#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// A record as a test writes it: pieces one behind the other, then blanks up to the whole 160 columns, so
/// that a line of a test shows what it is about and is compared whole.
inline std::string Ruled(std::string_view pieces) {
  std::string record(pieces);
  record.resize(record.size() < 160 ? 160 : record.size(), ' ');
  return record;
}

}  // namespace fiscalon
