#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/pc4_records.h"

namespace fiscalon {

/// One line of a record file as it lies there.
struct RecordLine {
  size_t number = 0;
  /// Between the quotes, where there are any.
  std::string_view record = {};
  bool opensWithQuote = false;
  bool closesWithQuote = false;
  /// CR LF or LF; only the last line can lack one.
  bool hasLineEnd = false;
  /// A byte-order mark, taken off, stood in front.
  bool hasByteOrderMark = false;
};

/// The lines of a file. They point into its bytes.
std::vector<RecordLine> SplitRecordLines(std::string_view bytes);

/// A member of a collection as one line, in the code page: an invoice with tabs between its date, amount and
/// description.
std::string LineOf(const PC4& member);

}  // namespace fiscalon
