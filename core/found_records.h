#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"

namespace fiscalon {

/// The records that a host finds after a screen, in the code page and without quotes. Of an invoice in a collection it
/// is the description.
struct FoundRecords {
  std::vector<std::string> records = {};
  /// The collection that they stand in; null where they stand in a file.
  std::shared_ptr<PC4s> collection = {};
  /// The first line of the file that is not framed as screens write it, without CR LF. What can be read of it stands
  /// among the records.
  std::optional<std::string> foreignLine = {};
};

/// Looks into the file of `GovFilename` where `WriteFile` is exactly True, else into `PC4Records`. What is not there
/// holds no records.
FoundRecords FindRecords(const Levyra& session);

}  // namespace fiscalon
